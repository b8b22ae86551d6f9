#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

/// What whoever starts a program hands over, so that its window may come to the front although another one
/// has the focus. Plain value; either part may be empty.
struct StartupToken
{
    QByteArray startupId;       ///< of X11, as in DESKTOP_STARTUP_ID
    QByteArray activationToken; ///< of Wayland, as in XDG_ACTIVATION_TOKEN

    bool isEmpty() const { return startupId.isEmpty() && activationToken.isEmpty(); }
    bool operator==(const StartupToken &) const = default;

    static const QString IpcKey; ///< key of the message that brings one from a later start's launcher
    static StartupToken fromIpc(const QString &value);             ///< what stands behind that key
    static StartupToken fromPlatformData(const QVariantMap &data); ///< of org.freedesktop.Application
    /// Removes both variables from the environment, so that programs which the box opens do not inherit them.
    /// After the application object is made: Qt takes what it needs before.
    static void dropFromEnvironment();
};

/// Milliseconds of X server time at which the user asked for the start, as the identifier says; 0: it does
/// not.
quint32 x11TimeOf(const QByteArray &startupId);

/// While it lives, windows that are shown or activated count as asked for by the holder of `token`; its end
/// tells the desktop that the start is done. GUI thread, in a function's scope. On X11 only: Qt 5 has no
/// means to hand a token to a Wayland compositor, where a window in the background therefore stays there.
class StartupNotice
{
public:
    explicit StartupNotice(const StartupToken &token);
    ~StartupNotice();
    StartupNotice(const StartupNotice &) = delete;
    StartupNotice &operator=(const StartupNotice &) = delete;

private:
    QByteArray m_startupId; // empty: nothing to end
};
