#pragma once

/// The interface description as the thrift compiler tells it, apart from the code that it makes of it.
namespace zel::wire::test {

struct Field
{
    int id = 0;
    QString name;
    QString typeName; ///< "string", "struct", "list" …
    QString required;
    QJsonObject type;
};

using Fields = QVector<Field>;

class Description
{
public:
    explicit Description(const QString &folder); ///< of the *.json files

    const QMap<QString, Fields> &records() const { return m_records; }
    const QMap<QString, QJsonObject> &methods() const { return m_methods; }

    /// A whole record with arbitrary values in every field, as its class would write it.
    QByteArray randomRecord(const QString &name, QRandomGenerator &random, int depth = 0) const;

private:
    void addValue(QByteArray &out, const QString &typeName, const QJsonObject &type, QRandomGenerator &random,
        int depth) const;

    QMap<QString, Fields> m_records;
    QMap<QString, QJsonObject> m_methods;
};

} // namespace zel::wire::test
