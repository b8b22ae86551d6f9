#pragma once

#include <QString>

#include <functional>

class QObject;

namespace zel::platform {

/// Lets the desktop's own opener (xdg-open) open a file or folder. `then` runs once, later, unless `context`
/// has gone: false when the opener is not there or says that it could not. GUI thread.
void openByDesktop(const QString &path, QObject *context, const std::function<void(bool opened)> &then);

} // namespace zel::platform
