#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

/// A session bus of the test's own, without the services that are installed on the machine. Make it before
/// the first use of QDBusConnection::sessionBus(). A second connection plays the desktop's side.
class PrivateBus
{
public:
    PrivateBus()
    {
        const QString daemon = QStandardPaths::findExecutable("dbus-daemon"_s);
        if (daemon.isEmpty() || !writeConfiguration())
            return;
        m_daemon.start(daemon, {"--nofork"_s, "--print-address=1"_s, "--config-file="_s + configuration()});
        if (!m_daemon.waitForStarted() || !m_daemon.waitForReadyRead())
            return;
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QDBusConnection::connectToBus(QString::fromLatin1(address), "desktop"_s);
    }
    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus("desktop"_s);
        QDBusConnection::disconnectFromBus("qt_default_session_bus"_s);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    bool isRunning() const { return desktop().isConnected(); }
    static QDBusConnection desktop() { return QDBusConnection("desktop"_s); }

private:
    QString configuration() const { return m_folder.filePath("bus.conf"_s); }
    bool writeConfiguration() const
    {
        QFile file(configuration());
        return file.open(QIODevice::WriteOnly)
            && file.write(
                   "<busconfig><type>session</type><listen>unix:dir=" + QFile::encodeName(m_folder.path())
                   + "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
                     "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>")
            > 0;
    }

    QTemporaryDir m_folder;
    QProcess m_daemon;
};

/// A program of the desktop on that bus, as long as this lives. It says what `answer` makes of a call;
/// nothing when that is no message.
class DesktopService : public QDBusVirtualObject
{
public:
    using Answer = std::function<QDBusMessage(const QDBusMessage &call)>;

    DesktopService(const QString &name, const QString &path, Answer answer)
        : m_name(name), m_path(path), m_answer(std::move(answer))
    {
        m_bus.registerVirtualObject(m_path, this, QDBusConnection::SubPath);
        m_bus.registerService(m_name);
    }
    ~DesktopService() override
    {
        m_bus.unregisterService(m_name);
        m_bus.unregisterObject(m_path, QDBusConnection::UnregisterTree);
    }
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        const QDBusMessage reply = m_answer(call);
        return reply.type() == QDBusMessage::InvalidMessage || bus.send(reply);
    }

private:
    QDBusConnection m_bus = PrivateBus::desktop();
    const QString m_name, m_path;
    const Answer m_answer;
};
