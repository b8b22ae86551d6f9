#include "base/dbus/sessionbus.h"

#include <QDBusConnection>
#include <QObject>
#include <QPointer>
#include <QVector>
#include <thread>

namespace zel::sessionbus {
namespace {

using Opened = std::function<void()>;

/// Who waits for the bus. Never destroyed, because its thread may come back at any time.
class Opener : public QObject
{
public:
    static Opener *instance()
    {
        static auto *opener = new Opener;
        return opener;
    }

    void open(QObject *context, Opened opened)
    {
        m_waiting.append({context, std::move(opened)});
        if (m_isOpen)
            tellLater();
        else if (!std::exchange(m_isOpening, true))
            std::thread([this] {
                QDBusConnection::sessionBus();
                tellLater();
            }).detach(); // nobody waits for it, not even the end of the program
    }

private:
    struct Waiting
    {
        QPointer<QObject> context;
        Opened opened;
    };

    void tellLater()
    {
        QMetaObject::invokeMethod(
            this, [this] { tell(); }, Qt::QueuedConnection);
    }

    void tell()
    {
        m_isOpen = true;
        const QVector<Waiting> waiting = std::exchange(m_waiting, {});
        for (const Waiting &each : waiting) {
            if (each.context)
                each.opened();
        }
    }

    QVector<Waiting> m_waiting;
    bool m_isOpening = false;
    bool m_isOpen = false;
};

} // namespace

void open(QObject *context, std::function<void()> opened)
{
    Opener::instance()->open(context, std::move(opened));
}

} // namespace zel::sessionbus
