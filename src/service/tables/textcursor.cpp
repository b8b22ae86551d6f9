#include "service/tables/textcursor.h"

namespace zel::service {
namespace {

constexpr int MaxDigits = 19;

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

} // namespace

bool TextCursor::take(QLatin1String piece)
{
    if (!m_rest.startsWith(piece))
        return false;
    m_rest = m_rest.mid(piece.size());
    return true;
}

std::optional<QString> TextCursor::takeQuoted(int maxLength)
{
    const auto end = m_rest.indexOf(QLatin1Char('\''));
    if (end < 0)
        return {};
    if (end > maxLength) {
        refuse(Refusal::ValueTooLong);
        return {};
    }
    const QString value = m_rest.left(end).toString();
    m_rest = m_rest.mid(end + 1);
    return value.isNull() ? QLatin1String("") : value;
}

std::optional<qint64> TextCursor::takeNumber(qint64 largest)
{
    int digits = 0;
    while (digits < m_rest.size() && isDigit(m_rest[digits]))
        ++digits;
    if (digits == 0 || (digits > 1 && m_rest.front() == QLatin1Char('0')))
        return {};
    bool fits = digits <= MaxDigits;
    const qint64 number = fits ? m_rest.left(digits).toString().toLongLong(&fits) : 0;
    if (!fits || number > largest) {
        refuse(Refusal::NumberTooLarge);
        return {};
    }
    m_rest = m_rest.mid(digits);
    return number;
}

} // namespace zel::service
