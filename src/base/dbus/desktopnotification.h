#pragma once

#include <QDBusConnection>
#include <QObject>

class QDBusMessage;

namespace zel {

/// One message of the desktop (Desktop Notifications Specification 1.2), in the box's name. GUI thread;
/// nothing here waits. Taken off the screen with this object.
class DesktopNotification final : public QObject
{
    Q_OBJECT
public:
    explicit DesktopNotification(QObject *parent = nullptr);
    ~DesktopNotification() override;

    /// Plain texts. Takes the place of the message before it. Without a desktop that shows messages nothing
    /// happens.
    void show(const QString &title, const QString &text);

Q_SIGNALS:
    void chosen(); ///< the user has clicked it

private Q_SLOTS:
    void onActionInvoked(uint id, const QString &action);
    void onClosed(uint id);

private:
    void askForMarkup();
    void send(bool understandsMarkup);
    template <class Answer> void call(const QDBusMessage &message, Answer answer);

    QString m_title;
    QString m_text;
    uint m_id = 0; ///< of the message on the screen; 0: none
    QDBusConnection m_bus{QString()};
};

} // namespace zel
