#pragma once

#include <QString>

/// Folders of this user by the XDG Base Directory Specification. Any thread; paths have no trailing slash.
/// The functions that name a box folder make it (mode 0700) when it is missing; when that fails the path is
/// returned all the same and the first use of it reports the error.
namespace zel::paths {

QString configHome(); ///< $XDG_CONFIG_HOME, else ~/.config
QString dataHome();   ///< $XDG_DATA_HOME, else ~/.local/share
QString stateHome();  ///< $XDG_STATE_HOME, else ~/.local/state

QString settingsDir(); ///< <config>/Halvorn
QString dataDir();     ///< <data>/zelbox
QString stateDir();    ///< <state>/zelbox: logs, telemetry

/// For a person: the home folder as "~".
QString shown(const QString &path, const QString &home);
QString shown(const QString &path); ///< by this user's home

/// Makes the folder that the file is to stand in, mode 0700, when there is none.
void makeFolderOf(const QString &file);

/// `path` moved aside as "<path>.damaged-<yyyyMMddThhmmss>[-n]"; returns the new name, empty when it could
/// not be renamed.
QString keepAside(const QString &path);

} // namespace zel::paths
