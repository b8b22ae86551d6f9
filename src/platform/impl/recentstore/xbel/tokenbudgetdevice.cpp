#include "tokenbudgetdevice.h"

#include <algorithm>

namespace zel::recent {

TokenBudgetDevice::TokenBudgetDevice(QIODevice &source, qint64 total, qint64 perToken)
    : m_source(source), m_total(total), m_perToken(perToken), m_token(perToken)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 TokenBudgetDevice::readData(char *data, qint64 maxSize)
{
    const qint64 allowed = std::min({maxSize, m_token, m_total});
    if (allowed <= 0 && maxSize > 0) {
        m_exhausted = true;
        return -1;
    }
    const qint64 count = m_source.read(data, allowed);
    if (count > 0) {
        m_token -= count;
        m_total -= count;
    }
    return count;
}

} // namespace zel::recent
