#pragma once

#include <QtGlobal>

class QString;

/// The two ways into the box, exported under their plain names.
extern "C" {

/// Runs the box as a process of its own until the user quits; always returns 0. `cmdline` is the whole
/// command line without the program's name, as UCS-4; a null pointer ends in std::logic_error. Main thread,
/// before any QApplication exists.
Q_DECL_EXPORT int EntryPoint(int argc, char **argv, const wchar_t *cmdline);

/// Hands a command line to the box inside a host that runs a Qt event loop. Returns 0 at once; the command
/// runs on a later turn of the loop. GUI thread of the host.
Q_DECL_EXPORT int execZelBox(const QString &cmdline);
}
