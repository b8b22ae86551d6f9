#pragma once

struct CommandLine;
class CommandTarget;

/// Performs every option of `command` in the order of the dispatcher's table, through the pages' routers and
/// `target`. `first` marks the start-up command, which, like an empty one, never sends the box to the
/// background. GUI thread.
void dispatchCommand(const CommandLine &command, bool first, CommandTarget &target);

/// True when the options only address an item of a page, there is nothing but an empty "options", or the
/// session or the bus wants a box to be there: such a command leaves the window as it is.
bool leavesWindowAlone(const CommandLine &command);

/// The session or the bus has started the box ("from" is "autostart" or "dbus"): nobody has asked for a
/// window.
bool startsInBackground(const CommandLine &command);
