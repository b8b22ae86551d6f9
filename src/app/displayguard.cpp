#include "app/displayguard.h"

#include <QByteArray>
#include <QString>
#include <QVector>
#include <cstdio>
#include <cstdlib>
#include <mutex>

namespace {

struct Message
{
    QtMsgType type;
    QByteArray category;
    QString text;
};

// Threads of the box may log meanwhile.
std::mutex s_mutex;
QVector<Message> s_held;
QtMessageHandler s_earlier = nullptr;

[[noreturn]] void end()
{
    QByteArray display;
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (const QByteArray value = qgetenv(name); !value.isEmpty())
            display += (display.isEmpty() ? "" : ", ") + QByteArray(name) + '=' + value;
    }
    std::fprintf(stderr, "zelbox: the display cannot be used (%s)\n", display.constData());
    // Nothing is open yet but sockets and locks, which the kernel gives back: who waits there starts over.
    std::_Exit(1);
}

// Held back, because what Qt says on the way to its end is advice on reinstalling it.
void hold(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtFatalMsg)
        end();
    const std::lock_guard lock(s_mutex);
    s_held.append({type, context.category, text});
}

} // namespace

DisplayGuard::DisplayGuard()
{
    s_earlier = qInstallMessageHandler(hold);
}

DisplayGuard::~DisplayGuard()
{
    qInstallMessageHandler(s_earlier);
    const std::lock_guard lock(s_mutex);
    for (const Message &message : qAsConst(s_held)) {
        const QMessageLogContext context(nullptr, 0, nullptr, message.category.constData());
        s_earlier(message.type, context, message.text);
    }
    s_held.clear();
}
