#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariant>

class CommandTarget;

/// The box on the session bus: owns the name org.zelbox.ZelBox and offers org.freedesktop.Application there,
/// by which desktops start a program, bring it to the front and perform the actions of its menu entry. GUI
/// thread; nothing here waits for the bus. Gives the name back when destroyed, so that whoever calls then
/// starts a new box.
class DesktopActivation final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    explicit DesktopActivation(CommandTarget &target, QObject *parent = nullptr); ///< `target` outlives it
    ~DesktopActivation() override;

    /// Goes on the bus; `settled` follows. Without a bus, or when another program has the name, the box runs
    /// on without being reachable this way. Again: tries again, unless it is reachable or still trying.
    void start();
    bool isReachable() const { return m_owner; } ///< by that name

Q_SIGNALS:
    void settled(bool reachable); ///< once for each start() that tries, when the bus has answered

public Q_SLOTS: // the bus's names; parameters of actions are not used
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    /// The box opens nothing by itself: shows the main window, as for Activate().
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
    /// "mini-window", "settings" or "quit", as in the desktop file; anything else is answered with an error.
    Q_SCRIPTABLE void ActivateAction(
        const QString &name, const QVariantList &parameter, const QVariantMap &platformData);

private:
    void onBusOpened();
    void onNameAnswered(uint answer);
    void settle(const char *problem); ///< null: reachable

    CommandTarget &m_target;
    bool m_trying = false;
    bool m_registered = false; // the object, hence the bus is open
    bool m_owner = false;
};
