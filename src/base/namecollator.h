#pragma once

#include <QCollator>

namespace zel {

/// Compares names as a file manager does: by the user's language, case ignored, digits by their value. Loads
/// the language's rules: make it once and keep it. Any thread.
QCollator nameCollator();

} // namespace zel
