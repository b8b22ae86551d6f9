#include "description.h"

#include <thrift/protocol/TProtocol.h>

using namespace apache::thrift::protocol;

namespace zel::wire::test {
namespace {

constexpr int DeepestFilled = 4; // records within records further down stay empty

TType typeNumber(const QString &name)
{
    static const QMap<QString, TType> numbers = {{"bool"_s, T_BOOL}, {"i32"_s, T_I32}, {"i64"_s, T_I64},
        {"double"_s, T_DOUBLE}, {"string"_s, T_STRING}, {"struct"_s, T_STRUCT}, {"list"_s, T_LIST},
        {"map"_s, T_MAP}};
    return numbers.value(name, T_STOP);
}

template <class Number> void addNumber(QByteArray &out, Number number)
{
    const Number big = qToBigEndian(number);
    out.append(reinterpret_cast<const char *>(&big), sizeof(big));
}

void addText(QByteArray &out, QRandomGenerator &random)
{
    const QByteArray text(1 + int(random.bounded(40)), char('a' + random.bounded(26)));
    addNumber(out, qint32(text.size()));
    out.append(text);
}

} // namespace

Description::Description(const QString &folder)
{
    for (const QFileInfo &info : QDir(folder).entryInfoList({"*.json"_s})) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonObject area = QJsonDocument::fromJson(file.readAll()).object();
        for (const QJsonValue structure : area.value(QLatin1String("structs")).toArray()) {
            Fields fields;
            for (const QJsonValue value : structure[QLatin1String("fields")].toArray())
                fields.append({value[QLatin1String("key")].toInt(), value[QLatin1String("name")].toString(),
                    value[QLatin1String("typeId")].toString(), value[QLatin1String("required")].toString(),
                    value[QLatin1String("type")].toObject()});
            m_records.insert(structure[QLatin1String("name")].toString(), fields);
        }
        for (const QJsonValue service : area.value(QLatin1String("services")).toArray()) {
            for (const QJsonValue method : service[QLatin1String("functions")].toArray())
                m_methods.insert(method[QLatin1String("name")].toString(), method.toObject());
        }
    }
}

QByteArray Description::randomRecord(const QString &name, QRandomGenerator &random, int depth) const
{
    QByteArray out;
    for (const Field &field : m_records.value(name)) {
        addNumber(out, quint8(typeNumber(field.typeName)));
        addNumber(out, qint16(field.id));
        addValue(out, field.typeName, field.type, random, depth);
    }
    out.append('\0');
    return out;
}

void Description::addValue(QByteArray &out, const QString &typeName, const QJsonObject &type,
    QRandomGenerator &random, int depth) const
{
    const auto part = [&](const char *key) { return type.value(QLatin1String(key)); };
    switch (typeNumber(typeName)) {
    case T_BOOL:
        return addNumber(out, quint8(random.bounded(2)));
    case T_I32:
        return addNumber(out, random.generate());
    case T_I64:
    case T_DOUBLE: // bits of numbers that are one: those of the first half of the positive ones
        return addNumber(out, random.generate64() >> 2);
    case T_STRING:
        return addText(out, random);
    case T_STRUCT:
        out.append(randomRecord(part("class").toString().section(QLatin1Char('.'), -1), random, depth + 1));
        return;
    case T_LIST: {
        const int count = depth < DeepestFilled ? int(random.bounded(3)) : 0;
        addNumber(out, quint8(typeNumber(part("elemTypeId").toString())));
        addNumber(out, qint32(count));
        for (int i = 0; i < count; ++i)
            addValue(out, part("elemTypeId").toString(), part("elemType").toObject(), random, depth + 1);
        return;
    }
    case T_MAP: { // one entry, because the classes put them in order
        const int count = depth == 0 ? 1 : depth < DeepestFilled ? int(random.bounded(2)) : 0;
        addNumber(out, quint8(typeNumber(part("keyTypeId").toString())));
        addNumber(out, quint8(typeNumber(part("valueTypeId").toString())));
        addNumber(out, qint32(count));
        for (int i = 0; i < count; ++i) {
            addValue(out, part("keyTypeId").toString(), part("keyType").toObject(), random, depth + 1);
            addValue(out, part("valueTypeId").toString(), part("valueType").toObject(), random, depth + 1);
        }
        return;
    }
    default:
        qFatal("no type %s", qPrintable(typeName));
    }
}

} // namespace zel::wire::test
