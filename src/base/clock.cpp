#include "base/clock.h"

namespace zel {
namespace {
QDateTime &fixedNow()
{
    static QDateTime value;
    return value;
}
} // namespace

QDateTime now()
{
    return fixedNow().isValid() ? fixedNow() : QDateTime::currentDateTime();
}

void setFixedNow(const QDateTime &value)
{
    fixedNow() = value;
}

} // namespace zel
