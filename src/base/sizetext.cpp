#include "base/sizetext.h"

#include <QCoreApplication>
#include <QLocale>

namespace {
struct SizeTexts
{
    Q_DECLARE_TR_FUNCTIONS(SizeTexts)
};
} // namespace

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

QString zel::spaceText(qint64 used, qint64 total)
{
    if (used < 0)
        return {};
    return total > 0
        ? SizeTexts::tr("%1 used, %2 free").arg(sizeText(used), sizeText(qMax<qint64>(0, total - used)))
        : SizeTexts::tr("%1 used").arg(sizeText(used));
}
