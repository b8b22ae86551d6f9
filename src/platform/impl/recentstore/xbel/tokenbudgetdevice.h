#pragma once

#include <QIODevice>

namespace zel::recent {

/// Reads through to another device, but ends when more bytes are asked for than a whole list or one of its
/// tokens may have, so that a parser behind it cannot be made to hoard memory. The source outlives it.
class TokenBudgetDevice final : public QIODevice
{
public:
    TokenBudgetDevice(QIODevice &source, qint64 total, qint64 perToken);

    void renew() { m_token = m_perToken; } ///< the parser has finished a token
    bool isExhausted() const { return m_exhausted; }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QIODevice &m_source;
    qint64 m_total;
    const qint64 m_perToken;
    qint64 m_token;
    bool m_exhausted = false;
};

} // namespace zel::recent
