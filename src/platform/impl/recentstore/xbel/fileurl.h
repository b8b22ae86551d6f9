#pragma once

#include <QString>

namespace zel::recent {

/// Local path of a file: address as a recently-used list carries it (percent-encoded UTF-8), made clean
/// without resolving links. Empty when it is of another kind, host or encoding, or encodes a slash or a zero
/// byte.
QString localPathOf(const QString &address);

} // namespace zel::recent
