#include "app/transferbubbles.h"

#include "base/settingskeys.h"
#include "common_types.h"
#include "kcloudsvrproxy.h"
#include "ksettings.h"
#include "kvelaeventobject.h"
#include "kvelautil.h"
#include "notify_types.h"
#include "settings/cloudoptions.h"

#include <QDate>
#include <QFileInfo>
#include <chrono>

using namespace std::chrono_literals;
using zel::vela::NotifyFileTransferArg;
using zel::vela::VelaIpcArg;
using zel::vela::VelaIpcResult;

Q_DECLARE_METATYPE(zel::vela::NotifyFileTransferArg)

namespace {

constexpr auto Quiet = 1s;
constexpr int MostNames = 3;

// As NotifyFileTransferArg::transferState says them.
enum State { Waits = 1, Runs, Paused, Done, Failed };

QString nameOf(const NotifyFileTransferArg &transfer)
{
    const QString name = QString::fromStdString(transfer.item.name);
    return name.isEmpty() ? QFileInfo(QString::fromStdString(transfer.localPath)).fileName() : name;
}

// Long lists of names are cut by the desktop anyway, and not where one would like.
QString textOf(const QStringList &names)
{
    QString text = names.mid(0, MostNames).join(QLatin1Char('\n'));
    if (const int more = names.size() - MostNames; more > 0)
        text += QLatin1Char('\n') + TransferBubbles::tr("and %Ln more", nullptr, more);
    return text;
}

// Whether none was shown today; from now on one was.
bool beginToday()
{
    KSettings settings;
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    if (settings.value(zel::keys::LastTransferBubble).toString() == today)
        return false;
    settings.setValue(zel::keys::LastTransferBubble, today);
    return true;
}

} // namespace

TransferBubbles::TransferBubbles(std::function<bool()> isWatched, QObject *parent)
    : QObject(parent), m_isWatched(std::move(isWatched))
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(Quiet);
    connect(&m_quiet, &QTimer::timeout, this, &TransferBubbles::ask);
    connect(&m_message, &zel::DesktopNotification::chosen, this, &TransferBubbles::transfersRequested);
}

void TransferBubbles::follow(KCloudSvrProxy *cloud)
{
    if (m_cloud == cloud)
        return;
    m_cloud = cloud;
    const KVelaEventObject *events = cloud->velaEventObject();
    connect(events, &KVelaEventObject::SocketDisConnected, this, [this] { m_underWay.clear(); });
    connect(events, &KVelaEventObject::signal_pushArrived, this,
        [this](const QString &method, const QVariant &record) {
            if (method == QLatin1String("notifyFileTransfer"))
                take(record.value<NotifyFileTransferArg>());
        });
}

void TransferBubbles::take(const NotifyFileTransferArg &transfer)
{
    const QByteArray id = QByteArray::fromStdString(transfer.taskId);
    if (transfer.transferState == Waits || transfer.transferState == Runs) {
        m_underWay.insert(id);
        m_quiet.stop();
        return;
    }
    m_underWay.remove(id);
    if (transfer.transferState == Done)
        m_done << nameOf(transfer);
    else if (transfer.transferState == Failed)
        m_failed << nameOf(transfer);
    if (m_underWay.isEmpty() && m_done.size() + m_failed.size() > 0)
        m_quiet.start();
}

void TransferBubbles::ask()
{
    if (m_isWatched() || !m_cloud) {
        m_done.clear();
        m_failed.clear();
        return;
    }
    const VelaIpcArg arg = KVelaUtil::ipcArg(QStringLiteral("getTransBubbleFrequncy"));
    m_cloud->asynCallEx(QStringLiteral("velaIpcCall"), QArgument<VelaIpcArg>("VelaIpcArg", arg), this,
        QStringLiteral("onGetTransBubbleFrequncyFinished"));
}

void TransferBubbles::onGetTransBubbleFrequncyFinished(bool bOk, const QString &, const VelaIpcResult &result)
{
    using Bubbles = CloudOptions::Bubbles;
    const Bubbles wish = CloudOptions::bubblesOf(bOk, result).value_or(Bubbles::Never);
    if (wish == Bubbles::EachTime || (wish == Bubbles::OnceADay && beginToday()))
        tell();
    m_done.clear();
    m_failed.clear();
}

void TransferBubbles::tell()
{
    if (m_failed.isEmpty())
        m_message.show(tr("%Ln transfer(s) done", nullptr, m_done.size()), textOf(m_done));
    else
        m_message.show(tr("%Ln transfer(s) failed", nullptr, m_failed.size()), textOf(m_failed));
}
