#pragma once

/// What the box tells the suite's skin of itself. GUI thread, before the first window.
namespace zel {

void describeLook();    ///< where its resources lie, and which skin it wants
void loadSkinLibrary(); ///< a skin may bring code of its own; ours does not

} // namespace zel
