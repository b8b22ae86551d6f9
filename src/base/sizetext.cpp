#include "base/sizetext.h"

#include <QLocale>

QString zel::sizeText(qint64 bytes)
{
    if (bytes < 0)
        return {};
    qreal value = bytes;
    while (value >= 1024)
        value /= 1024;
    const int decimals = bytes >= 1024 && value < 10 ? 1 : 0;
    return QLocale().formattedDataSize(bytes, decimals, QLocale::DataSizeTraditionalFormat);
}
