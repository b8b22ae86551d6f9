#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>

class QDBusMessage;
class StatusNotifierItem;

/// Keeps an item registered with the desktop's tray (org.kde.StatusNotifierWatcher), also one that comes late
/// or comes back, and knows whether a tray shows it. GUI thread; nothing here waits for the bus.
class TrayLink final : public QObject
{
    Q_OBJECT
public:
    TrayLink(StatusNotifierItem *item, QObject *parent);
    ~TrayLink() override; ///< takes the item out of the tray

    void start();
    /// Called once, before the first registration: whatever the item needs on the bus besides itself.
    std::function<void(const QDBusConnection &bus)> prepare;

    bool isShown() const { return m_shown; }

Q_SIGNALS:
    /// An answer to the question whether there is a tray; isShown() tells it. None while a panel hangs.
    void settled();
    void shownChanged(bool shown);

private Q_SLOTS:
    void askForHost();

private:
    void onBusOpened();
    void onWatcherChanged(const QString &owner);
    void enroll();
    void setShown(bool shown);
    template <typename Answer> void call(const QDBusMessage &message, Answer answer);

    StatusNotifierItem *m_item;
    const QString m_name; // on the bus
    bool m_onBus = false;
    bool m_prepared = false;
    bool m_shown = false;
};
