#pragma once

#include <QString>
#include <QStringList>

namespace zel {

/// Where the entries that start a session's programs are, and for whom. A value.
struct AutostartPlaces
{
    QString userFolder;        ///< $XDG_CONFIG_HOME/autostart
    QStringList systemFolders; ///< autostart below each of $XDG_CONFIG_DIRS, the most important first
    QStringList desktops;      ///< of $XDG_CURRENT_DESKTOP
    QString program;           ///< the box, absolute path; may be empty when entries are only read

    static AutostartPlaces fromEnvironment(const QString &program = {});
};

/// Whether the box starts with the session, by the freedesktop Desktop Application Autostart Specification:
/// the first "org.zelbox.ZelBox.desktop" of the user's and the system's folders decides. Keeps nothing in
/// memory: what the desktop's own settings change is seen at the next look. Reads and writes small files; any
/// thread.
class Autostart
{
public:
    explicit Autostart(AutostartPlaces places) : m_places(std::move(places)) { }

    static QString fileName();

    bool isOn() const;
    /// Changes only what has to be changed: other keys of an entry stay, and a system-wide one is overruled
    /// by one of the user. False when the file cannot be read, written or removed, or the box's program is
    /// not there.
    bool setOn(bool on);

private:
    bool wouldStart(const QByteArray &entryText) const;
    bool isForThisDesktop(const QStringList &only, const QStringList &never) const;
    bool systemStarts() const;
    bool switchOn();
    bool switchOff();
    QByteArray switchedOn(const QByteArray &text) const;
    bool write(const QByteArray &text) const;
    QString userFile() const;

    AutostartPlaces m_places;
};

} // namespace zel
