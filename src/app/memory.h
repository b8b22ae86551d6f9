#pragma once

/// Memory that the box can do without while it is in the background.
namespace zel::memory {

/// Gives back what can be made again when a window is shown: pictures of icons and thumbnails, the pixels of
/// hidden windows, the store's page cache, and what the C library keeps of freed memory. GUI thread; what
/// other threads have is given back a moment later. Costs some milliseconds.
void giveBack();

} // namespace zel::memory
