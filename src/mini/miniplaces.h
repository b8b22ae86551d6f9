#pragma once

#include "mini/minidock.h"

namespace zel::mini {

/// What the settings remember of the small floating window. GUI thread; every call reads or writes the
/// settings store.
namespace places {

std::optional<Place> of(const QString &screenKey);           ///< nothing when it never stood there
QString lastScreen();                                        ///< key of the screen it was put on last
void remember(const QString &screenKey, const Place &place); ///< and that this was the last screen

bool isPinned();
void setPinned(bool pinned);

} // namespace places
} // namespace zel::mini
