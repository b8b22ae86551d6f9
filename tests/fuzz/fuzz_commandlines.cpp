// Command lines: those that start the box or are forwarded to it, and those that clients send to the service.
// Nothing breaks their parsers, and a line's meaning does not depend on blanks around it.

#include "app/commandline.h"
#include "service/tables/servicecommand.h"

#include <cstdlib>
#include <cstring>

namespace {

void check(const QString &text)
{
    const CommandLine line = parseCommandLine(text);
    const CommandLine padded = parseCommandLine(QStringLiteral("  ") + text);
    if (line.options != padded.options)
        std::abort();
    zel::service::parseCommand(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    check(text);
    // The same bytes as UTF-16, which may hold halves of characters.
    QString units(int(size / sizeof(QChar)), QChar());
    if (!units.isEmpty())
        std::memcpy(units.data(), data, size_t(units.size()) * sizeof(QChar));
    check(units);
    return 0;
}
