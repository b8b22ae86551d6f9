#include "base/timetext.h"

#include <QCoreApplication>

namespace zel {

namespace {
struct TimeTexts
{
    Q_DECLARE_TR_FUNCTIONS(TimeTexts)
};

QString clockText(const QDateTime &local)
{
    return local.time().toString(QStringLiteral("hh:mm"));
}
} // namespace

QLocale textLocale()
{
    const QLocale catalogue(TimeTexts::tr("en", "the language of this catalogue, for names of months"));
    const QLocale desktop;
    return desktop.language() == catalogue.language() ? desktop : catalogue;
}

// Not by QString::arg(), which complains of what a text leaves out.
QString dateWords(QString text, int first, int second, const QString &monthName)
{
    return text.replace(QLatin1String("%1"), QString::number(first))
        .replace(QLatin1String("%2"), QString::number(second))
        .replace(QLatin1String("%3"), monthName);
}

QString timeText(const QDateTime &time, const QDateTime &now)
{
    if (!time.isValid())
        return {};
    const QDateTime local = time.toLocalTime();
    const QDate date = local.date();
    const QDate today = now.toLocalTime().date();
    const qint64 daysAgo = date.daysTo(today);
    if (daysAgo == 0)
        return clockText(local);
    if (daysAgo == 1)
        return TimeTexts::tr("yesterday") + QLatin1Char(' ') + clockText(local);
    if (date.year() == today.year()) {
        return dateWords(TimeTexts::tr("%1month%2day"), date.month(), date.day(),
            textLocale().monthName(date.month(), QLocale::ShortFormat));
    }
    return date.toString(QStringLiteral("yyyy-MM-dd"));
}

QString momentText(const QDateTime &time, const QDateTime &now)
{
    const QString text = timeText(time, now);
    const QDateTime local = time.toLocalTime();
    const qint64 daysAgo = local.date().daysTo(now.toLocalTime().date());
    return text.isEmpty() || daysAgo == 0 || daysAgo == 1
        ? text
        : TimeTexts::tr("%1, %2", "date, time of day").arg(text, clockText(local));
}

QString longTimeText(const QDateTime &time)
{
    if (!time.isValid())
        return {};
    const QDateTime local = time.toLocalTime();
    return TimeTexts::tr("%1, %2", "date, time of day")
        .arg(textLocale().toString(local.date(), QLocale::LongFormat), clockText(local));
}

} // namespace zel
