#include "app/zelboxipc.h"

#include "app/commandline.h"
#include "base/logging.h"

#include <QMetaMethod>
#include <QMutexLocker>
#include <QStringList>
#include <QThread>
#include <cstring>
#include <cwchar>

#include <dlfcn.h>

namespace {

constexpr wchar_t Channel[] = L"_TRANSMISSION_";
const QString Separator = QStringLiteral("?=");

// Set once a host interface is present, ready or not, so that the attempt is never repeated.
bool s_registered = false;

void reply(HostOutputData *output, const char16_t *text)
{
    const std::size_t bytes = (std::char_traits<char16_t>::length(text) + 1) * sizeof(char16_t);
    output->setSize(bytes);
    std::memcpy(output->buffer(), text, bytes);
}

} // namespace

ZelBoxIpc *ZelBoxIpc::instance()
{
    static ZelBoxIpc ipc;
    return &ipc;
}

ZelBoxIpc::ZelBoxIpc()
{
    void *program = ::dlopen(nullptr, RTLD_LAZY | RTLD_GLOBAL);
    if (!program)
        return;
    auto getInterface = reinterpret_cast<GetHostInterfaceFunction>(::dlsym(program, "GetHostInterface"));
    if (getInterface)
        getInterface(&hostInterface);
    ::dlclose(program);
}

ZelBoxIpc::~ZelBoxIpc()
{
    // Only an exit() from inside the loop (a lost display) finds the host still delivering.
    if (m_handlerGiven)
        hostInterface->registerHandler(Channel, this, nullptr);
}

bool ZelBoxIpc::registerTransmission()
{
    if (s_registered)
        return true;
    if (!hostInterface)
        return false;
    m_handlerGiven = hostInterface->isReady();
    if (m_handlerGiven)
        hostInterface->registerHandler(Channel, this, &ZelBoxIpc::onHostMessage);
    else
        qCWarning(lcApp, "the host takes no messages; later starts cannot reach this box");
    s_registered = true;
    return true;
}

void ZelBoxIpc::onHostMessage(
    void *context, const wchar_t *channel, void *, HostInputData *input, HostOutputData *output)
{
    const QString text = QString::fromUtf16(input->text());
    if (std::wcscmp(channel, Channel) != 0) {
        reply(output, u"error");
        return;
    }
    if (static_cast<ZelBoxIpc *>(context)->receive(text))
        reply(output, u"handled");
}

void ZelBoxIpc::setLeaving(bool leaving)
{
    const QMutexLocker lock(&m_mutex);
    m_leaving = leaving;
}

// False when the message is for the next box.
bool ZelBoxIpc::receive(const QString &text)
{
    // A value that holds the separator loses it: the pieces behind the key are joined with nothing between
    // them.
    QStringList pieces = text.split(Separator);
    const Message message{pieces.takeFirst(), pieces.join(QString())};
    QMutexLocker lock(&m_mutex);
    if (m_leaving)
        return false;
    // The command is performed later, on the GUI thread; what comes behind it is for the next box.
    m_leaving = message.key == CommandKey && isExit(parseCommandLine(message.value));
    if (!m_connected) {
        m_waiting.append(message);
        return true;
    }
    // From another thread the receivers are only told to act, so the lock is held until they are: an exit
    // must not overtake what was accepted. On their own they act at once, and may come back here.
    if (QThread::currentThread() == thread())
        lock.unlock();
    Q_EMIT ipcTransmission(message.key, message.value);
    return true;
}

void ZelBoxIpc::connectNotify(const QMetaMethod &signal)
{
    if (signal != QMetaMethod::fromSignal(&ZelBoxIpc::ipcTransmission))
        return;
    QMutexLocker lock(&m_mutex);
    // Queued: this runs inside connect(), while the receiver may still be under construction.
    if (!m_connected && !m_waiting.isEmpty())
        QMetaObject::invokeMethod(this, &ZelBoxIpc::deliverWaiting, Qt::QueuedConnection);
    m_connected = m_waiting.isEmpty();
}

void ZelBoxIpc::deliverWaiting()
{
    QVector<Message> messages;
    {
        QMutexLocker lock(&m_mutex);
        messages.swap(m_waiting);
        m_connected = true;
    }
    for (const Message &message : qAsConst(messages))
        Q_EMIT ipcTransmission(message.key, message.value);
}
