#pragma once

#include "base/hostinterface.h"

#include <QMutex>
#include <QObject>
#include <QVector>

/// The box's end of the host's message channel. One per process, made on first use, destroyed at process
/// exit. The host calls the handler on any thread; everything else is GUI thread.
class ZelBoxIpc : public QObject
{
    Q_OBJECT
public:
    static inline const QString CommandKey =
        QStringLiteral("zelbox_active_window"); ///< brings a command line

    static ZelBoxIpc *instance();

    /// Registers the handler for the channel "_TRANSMISSION_", once per process; later calls only return
    /// true. False when the process offers no host interface.
    bool registerTransmission();

    /// While the box is leaving, its messages get no reply, so that the host lets their senders start a box
    /// of their own instead of telling them "handled". The command that ends the box marks it as leaving when
    /// it comes in. What was accepted before is on its way to the GUI thread when this returns. Any thread.
    void setLeaving(bool leaving);

Q_SIGNALS:
    /// One message of the channel. Messages that came while nobody was connected yet are emitted as soon as
    /// somebody is, in their order, on the turn of the loop after that.
    void ipcTransmission(const QString &key, const QString &value);

protected:
    void connectNotify(const QMetaMethod &signal) override;

private:
    ZelBoxIpc();
    ~ZelBoxIpc() override;

    static void onHostMessage(
        void *context, const wchar_t *channel, void *unused, HostInputData *input, HostOutputData *output);
    bool receive(const QString &text);
    Q_INVOKABLE void deliverWaiting();

    HostMessageInterface *hostInterface = nullptr;
    bool m_handlerGiven = false;

    struct Message
    {
        QString key;
        QString value;
    };
    QMutex m_mutex; // guards those below
    QVector<Message> m_waiting;
    bool m_connected = false;
    bool m_leaving = false;
};
