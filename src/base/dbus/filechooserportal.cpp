#include "base/dbus/filechooserportal.h"

#include "base/dbus/sessionbus.h"
#include "base/logging.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFile>
#include <QStringList>
#include <QUrl>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace zel {
namespace {

// A portal is started when it is first asked.
constexpr std::chrono::milliseconds Patience = 3s;
constexpr uint FirstWithFolders = 3;

const QLatin1String Service("org.freedesktop.portal.Desktop");
const QLatin1String Path("/org/freedesktop/portal/desktop");
const QLatin1String Chooser("org.freedesktop.portal.FileChooser");
const QLatin1String Request("org.freedesktop.portal.Request");

QString nextToken()
{
    static int number = 0;
    return QStringLiteral("zelbox_%1_%2")
        .arg(QString::number(QCoreApplication::applicationPid()), QString::number(++number));
}

} // namespace

FileChooserPortal::FileChooserPortal(QObject *parent) : QObject(parent), m_token(nextToken()) { }

FileChooserPortal::~FileChooserPortal()
{
    if (!m_request.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(Service, m_request, Request, QStringLiteral("Close")));
}

void FileChooserPortal::ask(const FileQuestion &question, const QString &window)
{
    m_question = question;
    m_window = window;
    sessionbus::open(this, [this] {
        m_bus = QDBusConnection::sessionBus();
        if (m_bus.isConnected())
            askForVersion();
        else
            Q_EMIT unavailable();
    });
}

template <class Answer> void FileChooserPortal::call(const QDBusMessage &message, Answer answer)
{
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(message, int(Patience.count())), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, answer] {
        pending->deleteLater();
        if (m_isOver)
            return;
        if (!pending->isError())
            return answer(*pending);
        m_isOver = true;
        qCInfo(lcPlatform, "no file chooser of the desktop: %ls", qUtf16Printable(pending->error().name()));
        Q_EMIT unavailable();
    });
}

void FileChooserPortal::askForVersion()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        Service, Path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message << QString(Chooser) << QStringLiteral("version");
    call(message, [this](const QDBusPendingReply<QDBusVariant> &reply) {
        if (m_question.kind == FileQuestion::Kind::Folder
            && reply.value().variant().toUInt() < FirstWithFolders)
            Q_EMIT unavailable();
        else
            openChooser();
    });
}

// The answer may come before that of the call, so its place, which is known beforehand, is followed first.
void FileChooserPortal::openChooser()
{
    const QString sender = m_bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    m_request = Path + QStringLiteral("/request/%1/%2").arg(sender, m_token);
    follow(m_request);
    QDBusMessage message = QDBusMessage::createMethodCall(Service, Path, Chooser, QStringLiteral("OpenFile"));
    message << m_window << m_question.title << options();
    call(message, [this](const QDBusPendingReply<QDBusObjectPath> &reply) {
        const QString request = reply.value().path();
        if (std::exchange(m_request, request) != request) // that of an old portal
            follow(request);
    });
    auto *watcher =
        new QDBusServiceWatcher(Service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { onResponse(2, {}); });
}

// Without a service name: naming it would make Qt look up its owner and wait for the answer.
void FileChooserPortal::follow(const QString &request)
{
    m_bus.connect(
        QString(), request, Request, QStringLiteral("Response"), this, SLOT(onResponse(uint, QVariantMap)));
}

QVariantMap FileChooserPortal::options() const
{
    const auto escaped = QString(m_question.accept).replace(QLatin1Char('_'), QLatin1String("__"));
    QVariantMap options{{QStringLiteral("handle_token"), m_token}, {QStringLiteral("accept_label"), escaped},
        {QStringLiteral("modal"), true},
        {QStringLiteral("multiple"), m_question.kind == FileQuestion::Kind::Files},
        {QStringLiteral("directory"), m_question.kind == FileQuestion::Kind::Folder}};
    if (!m_question.folder.isEmpty()) // bytes with a zero at their end
        options.insert(QStringLiteral("current_folder"), QFile::encodeName(m_question.folder).append('\0'));
    return options;
}

void FileChooserPortal::onResponse(uint code, const QVariantMap &results)
{
    if (std::exchange(m_isOver, true))
        return;
    m_request.clear();
    if (code > 1) // neither chosen nor cancelled: the window could not be had, or went
        return Q_EMIT unavailable();
    QStringList paths;
    const QStringList uris = results.value(QStringLiteral("uris")).toStringList();
    for (const QString &uri : uris) {
        const QString path = QUrl::fromEncoded(uri.toUtf8()).toLocalFile();
        if (code == 0 && !path.isEmpty())
            paths.append(path);
    }
    Q_EMIT answered(paths);
}

} // namespace zel
