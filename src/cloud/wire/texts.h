#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <map>
#include <string>
#include <vector>

/// Texts of records, which are UTF-8, and Qt's. Pure functions; any thread.
namespace zel::wire {

inline QString toQt(const std::string &text)
{
    return QString::fromStdString(text);
}
QStringList toQt(const std::vector<std::string> &texts);
QMap<QString, QString> toQt(const std::map<std::string, std::string> &texts);

inline std::string fromQt(const QString &text)
{
    return text.toStdString();
}
std::vector<std::string> fromQt(const QStringList &texts);
std::map<std::string, std::string> fromQt(const QMap<QString, QString> &texts);

} // namespace zel::wire
