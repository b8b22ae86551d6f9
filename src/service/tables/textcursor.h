#pragma once

#include "service/tables/statementparser.h"

namespace zel::service {

/// Walks along a statement's text, piece by piece. What is not there is not taken. A copy looks ahead.
class TextCursor
{
public:
    explicit TextCursor(QStringView text) : m_rest(text) { }

    bool take(QLatin1String piece);
    /// Up to the next quote, which is taken too.
    std::optional<QString> takeQuoted(int maxLength);
    /// Decimal digits without leading zeros.
    std::optional<qint64> takeNumber(qint64 largest);
    bool atEnd() const { return m_rest.isEmpty(); }

    void refuse(Refusal refusal) { m_refusal = refusal; }
    Refusal refusal() const { return m_refusal; }

private:
    QStringView m_rest;
    Refusal m_refusal = Refusal::UnknownShape;
};

} // namespace zel::service
