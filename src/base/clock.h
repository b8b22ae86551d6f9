#pragma once

#include <QDateTime>

namespace zel {

/// Now, local time. Tests and screenshots fix it with setFixedNow(); any thread.
QDateTime now();
/// An invalid value returns to the real clock. Not for use while other threads run.
void setFixedNow(const QDateTime &value);

} // namespace zel
