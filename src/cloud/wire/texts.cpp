#include "cloud/wire/texts.h"

namespace zel::wire {

QStringList toQt(const std::vector<std::string> &texts)
{
    QStringList list;
    list.reserve(int(texts.size()));
    for (const std::string &text : texts)
        list.append(toQt(text));
    return list;
}

QMap<QString, QString> toQt(const std::map<std::string, std::string> &texts)
{
    QMap<QString, QString> map;
    for (const auto &[key, text] : texts)
        map.insert(toQt(key), toQt(text));
    return map;
}

std::vector<std::string> fromQt(const QStringList &texts)
{
    std::vector<std::string> list;
    list.reserve(size_t(texts.size()));
    for (const QString &text : texts)
        list.push_back(fromQt(text));
    return list;
}

std::map<std::string, std::string> fromQt(const QMap<QString, QString> &texts)
{
    std::map<std::string, std::string> map;
    for (auto it = texts.begin(); it != texts.end(); ++it)
        map[fromQt(it.key())] = fromQt(it.value());
    return map;
}

} // namespace zel::wire
