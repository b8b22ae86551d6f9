#pragma once

#include <QString>

namespace zel {

/// A number of bytes for people, as file managers write it ("4.8 kB", "205 MB"): two digits or more, in the
/// user's locale. Empty for a negative number, which stands for "not known". Any thread.
QString sizeText(qint64 bytes);

} // namespace zel
