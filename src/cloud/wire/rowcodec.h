#pragma once

#include <QStringList>
#include <QVector>

/// The text form of table rows in replies: fields joined with "$$$$", rows with "####". Inside values `\`,
/// `$` and `#` are written `\\`, `\d` and `\h`, and an empty value is `\e`, so that every value comes back
/// the same. Pure functions, any thread, linear in the length of the text.
///
///     {{"42", "Notes.odt"}, {"43", ""}}  <->  42$$$$Notes.odt####43$$$$\e
namespace zel::wire {

/// No rows are the empty text. Every row has at least one field; one without any is left out.
QString joinRows(const QVector<QStringList> &rows);

/// Never fails: unknown escapes and empty fields that are not written as `\e` are taken as they stand.
QVector<QStringList> splitRows(const QString &text);

} // namespace zel::wire
