#include "isotime.h"

#include <QDateTime>

#include <algorithm>

namespace zel::recent {
namespace {

constexpr int SecondsEnd = 19; // of "yyyy-MM-ddThh:mm:ss"
constexpr int LongestText = 64;

// Value of `count` digits, or -1.
int digits(QStringView text, int at, int count)
{
    int value = 0;
    for (int i = at; i < at + count; ++i) {
        const int digit = text[i].unicode() - u'0';
        if (digit < 0 || digit > 9)
            return -1;
        value = value * 10 + digit;
    }
    return value;
}

// Milliseconds of ".123456", or -1; `text` runs from the point to before the "Z".
int fraction(QStringView text)
{
    if (text.isEmpty())
        return 0;
    if (text[0] != u'.' || text.size() < 2)
        return -1;
    int ms = 0;
    for (int i = 1; i < 4; ++i) {
        const int digit = i < text.size() ? digits(text, i, 1) : 0;
        if (digit < 0)
            return -1;
        ms = ms * 10 + digit;
    }
    return ms;
}

qint64 parseUtc(QStringView text)
{
    const bool shaped = text.size() > SecondsEnd && text.last() == u'Z' && text[4] == u'-' && text[7] == u'-'
        && text[10] == u'T' && text[13] == u':' && text[16] == u':';
    if (!shaped)
        return 0;
    const QDate date(digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2));
    const int h = digits(text, 11, 2);
    const int m = digits(text, 14, 2);
    const int s = digits(text, 17, 2);
    const int ms = fraction(text.mid(SecondsEnd, text.size() - SecondsEnd - 1));
    if (!date.isValid() || h < 0 || h > 23 || m < 0 || m > 59 || s < 0 || s > 59 || ms < 0)
        return 0;
    const qint64 days = date.toJulianDay() - QDate(1970, 1, 1).toJulianDay();
    return ((days * 24 + h) * 60 + m) * 60000 + s * 1000 + ms;
}

} // namespace

qint64 parseIsoTime(QStringView text)
{
    if (text.size() > LongestText)
        return 0;
    if (const qint64 quick = parseUtc(text))
        return std::max<qint64>(quick, 0);
    const QDateTime time = QDateTime::fromString(text.toString(), Qt::ISODate);
    return time.isValid() ? std::max<qint64>(time.toMSecsSinceEpoch(), 0) : 0;
}

} // namespace zel::recent
