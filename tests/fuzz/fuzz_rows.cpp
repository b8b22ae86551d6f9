// Rows: no text breaks the reader, and what was joined comes back the same.

#include "cloud/wire/rowcodec.h"

#include <cstdlib>

namespace {

/// Any rows at all: the input's fields end at '\1', its rows at '\2'.
QVector<QStringList> rowsFrom(const QString &text)
{
    QVector<QStringList> rows;
    for (const QString &row : text.split(QChar(2)))
        rows.append(row.split(QChar(1)));
    return rows;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    for (const auto &rows : {rowsFrom(text), zel::wire::splitRows(text)}) {
        if (zel::wire::splitRows(zel::wire::joinRows(rows)) != rows)
            std::abort();
    }
    return 0;
}
