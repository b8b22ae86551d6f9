#pragma once

#include <QMap>
#include <QMetaType>
#include <QStringList>

/// Answer of a call that has no record of its own. A value; any thread.
class KRpcResponse
{
public:
    KRpcResponse() = default;
    KRpcResponse(
        int state, const QMap<QString, QString> &map, const QStringList &list = {}, const QString &text = {})
        : m_state(state), m_map(map), m_list(list), m_text(text)
    {
    }

    int state() const { return m_state; } ///< 0: done; else the number of the service's error
    const QMap<QString, QString> &map() const { return m_map; }
    const QStringList &list() const { return m_list; }
    const QString &text() const { return m_text; }
    QString value(const QString &key) const { return m_map.value(key); } ///< of the map; empty when missing

    bool operator==(const KRpcResponse &) const = default;

private:
    int m_state = 0;
    QMap<QString, QString> m_map;
    QStringList m_list;
    QString m_text;
};
Q_DECLARE_METATYPE(KRpcResponse)
