#include "recentfile/timetext.h"

#include <QCoreApplication>

namespace zel::recent {

namespace {
struct TimeTexts
{
    Q_DECLARE_TR_FUNCTIONS(TimeTexts)
};
} // namespace

QString timeText(const QDateTime &time, const QDateTime &now)
{
    if (!time.isValid())
        return {};
    const QDateTime local = time.toLocalTime();
    const QDate date = local.date();
    const QDate today = now.toLocalTime().date();
    const auto clock = [&local] { return local.time().toString(QStringLiteral("hh:mm")); };

    const qint64 daysAgo = date.daysTo(today);
    if (daysAgo == 0)
        return clock();
    if (daysAgo == 1)
        return TimeTexts::tr("yesterday") + QLatin1Char(' ') + clock();
    if (date.year() == today.year())
        return TimeTexts::tr("%1month%2day").arg(QString::number(date.month()), QString::number(date.day()));
    return date.toString(QStringLiteral("yyyy-MM-dd"));
}

} // namespace zel::recent
