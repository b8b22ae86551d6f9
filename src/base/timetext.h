#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

/// Times as every page shows them. GUI thread (translated).
namespace zel {

/// For a list, in local time as seen at `now`: "hh:mm" for today, "yesterday hh:mm", month and day within
/// this year (also for days to come), else "yyyy-MM-dd". Empty for an invalid time.
QString timeText(const QDateTime &time, const QDateTime &now);
/// Likewise, and always with the time of day: where two times are compared.
QString momentText(const QDateTime &time, const QDateTime &now);
/// In full and in local time, where there is room for it: date with weekday, hours and minutes.
QString longTimeText(const QDateTime &time);

/// A translated text with numbers in it, "%1 Month": %1 is `first`, %2 is `second`, and %3, which only
/// catalogues use, is the name of a month. Each may be missing.
QString dateWords(QString text, int first, int second, const QString &monthName);
/// The locale of the language that the texts are in: the desktop's when it speaks that language.
QLocale textLocale();

} // namespace zel
