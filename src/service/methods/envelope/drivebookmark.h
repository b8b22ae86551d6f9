#pragma once

class QString;

/// The drive among the places that file managers and file dialogs list: a line of
/// `$XDG_CONFIG_HOME/gtk-3.0/bookmarks`, which GTK's dialogs and most file managers read (an address, and
/// after a blank its title: https://docs.gtk.org/gtk3/class.PlacesSidebar.html). Lines of others stay byte
/// for byte. Blocks on the file system; one thread at a time.
namespace zel::service {

/// `folder` is an absolute path. False also when the file cannot be read.
bool isBookmarked(const QString &folder);

/// Adds it at the end, or takes all its lines away. False, and the log says why, when nothing could be
/// changed.
bool setBookmarked(const QString &folder, bool wanted);

} // namespace zel::service
