// Statements and command lines of clients: nothing breaks the parsers, and a statement that is taken is, to
// the letter, the text that its meaning is written as.

#include "service/tables/servicecommand.h"
#include "service/tables/statementparser.h"

#include <cstdlib>

namespace {

void require(bool held)
{
    if (!held)
        std::abort();
}

void check(const QString &text)
{
    const auto statement = zel::service::parseStatement(text);
    if (!statement)
        return;
    require(zel::service::toText(*statement) == text);
    require(text.count(QLatin1Char('\'')) % 2 == 0 && !text.contains(QChar(QChar::Null)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    check(text);
    // The same bytes as UTF-16, which may hold halves of characters.
    check(QString(
        reinterpret_cast<const QChar *>(data), size % 2 == 0 && quintptr(data) % 2 == 0 ? int(size / 2) : 0));
    if (const auto command = zel::service::parseCommand(text)) {
        if (const auto *table = std::get_if<zel::service::TableCommand>(&*command))
            check(table->statement);
    }
    return 0;
}
