#pragma once

#include <QString>

namespace zel {

/// A number of bytes for people, as file managers write it ("4.8 kB", "205 MB"): two digits or more, in the
/// user's locale. Empty for a negative number, which stands for "not known". Any thread.
QString sizeText(qint64 bytes);

/// How full a drive is: "5.4 MB used, 62 GB free". What is free says more than the total, which shrinks
/// where other programs fill the same disk. `total` 0: no limit; empty for a negative `used`. GUI thread
/// (translated).
QString spaceText(qint64 used, qint64 total);

} // namespace zel
