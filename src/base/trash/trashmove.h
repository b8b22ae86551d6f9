#pragma once

#include "base/trash/trash.h"

#include <QByteArray>

namespace zel::trash {

/// Renames without ever replacing what is at `to`. 0, or the errno of the failure (EEXIST: something is
/// there).
int moveTo(const QByteArray &from, const QByteArray &to);

/// The kind of failure that an errno of a file operation means, and its words for the log.
Outcome outcomeOf(int error);
Result failure(int error, const char *during);

} // namespace zel::trash
