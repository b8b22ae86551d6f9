#pragma once

#include <QString>

/// The files that a database consists of: its own and its companions. Any thread.
namespace zel::recent {

/// Nobody but the user may read them; the companions get the database's mode when they are made. Makes it
/// when it is missing.
void makePrivate(const QString &database);

/// Moves them out of the way, under a name that says that they are damaged; that of the database, empty when
/// it could not be moved.
QString keepDatabaseAside(const QString &database);

void removeKeptAside(const QString &database); ///< all that ever were

} // namespace zel::recent
