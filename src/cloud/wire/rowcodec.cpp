#include "cloud/wire/rowcodec.h"

namespace zel::wire {
namespace {

const QLatin1String FieldMark("$$$$");
const QLatin1String RowMark("####");
const QLatin1String EmptyValue("\\e");

void appendValue(QString &text, const QString &value)
{
    if (value.isEmpty())
        text += EmptyValue;
    for (const QChar c : value) {
        switch (c.unicode()) {
        case '\\':
            text += QLatin1String("\\\\");
            break;
        case '$':
            text += QLatin1String("\\d");
            break;
        case '#':
            text += QLatin1String("\\h");
            break;
        default:
            text += c;
        }
    }
}

/// The character that an escape stands for; null when there is no such escape.
QChar meaningOf(QChar escape)
{
    switch (escape.unicode()) {
    case '\\':
        return QLatin1Char('\\');
    case 'd':
        return QLatin1Char('$');
    case 'h':
        return QLatin1Char('#');
    default:
        return {};
    }
}

QString valueOf(const QString &field)
{
    if (field == EmptyValue)
        return {};
    if (!field.contains(QLatin1Char('\\')))
        return field;
    QString value;
    value.reserve(field.size());
    for (int i = 0; i < field.size(); ++i) {
        const bool escape = field[i] == QLatin1Char('\\') && i + 1 < field.size();
        const QChar meaning = escape ? meaningOf(field[i + 1]) : QChar();
        value += meaning.isNull() ? field[i] : meaning;
        i += meaning.isNull() ? 0 : 1;
    }
    return value;
}

} // namespace

QString joinRows(const QVector<QStringList> &rows)
{
    QString text;
    for (const QStringList &row : rows) {
        if (row.isEmpty())
            continue;
        if (!text.isEmpty())
            text += RowMark;
        appendValue(text, row.first());
        for (int i = 1; i < row.size(); ++i) {
            text += FieldMark;
            appendValue(text, row[i]);
        }
    }
    return text;
}

QVector<QStringList> splitRows(const QString &text)
{
    QVector<QStringList> rows;
    if (text.isEmpty())
        return rows;
    const QStringList parts = text.split(RowMark);
    rows.reserve(parts.size());
    for (const QString &part : parts) {
        QStringList row = part.split(FieldMark);
        for (QString &field : row)
            field = valueOf(field);
        rows.append(row);
    }
    return rows;
}

} // namespace zel::wire
