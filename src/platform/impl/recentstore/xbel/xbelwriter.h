#pragma once

#include "xbeledit.h"

#include <functional>

namespace zel::recent {

/// Edits the list, see editXbelText(). The new file (mode 0600) is on disk before it takes the old one's
/// place by renaming; when that was changed meanwhile by another program the edit is made anew on its
/// version. A change between this comparison and the renaming would be lost: nothing stands between the two,
/// but as other programs take no lock the window is not zero. A missing or empty list is made.
/// `beforeReplace` is called each time right before the comparison.
XbelEditResult editXbel(
    const QString &file, const XbelEdit &edit, const std::function<void()> &beforeReplace = {});

} // namespace zel::recent
