#include "app/goingon.h"

#include "account_types.h"
#include "app/ui/zelboxexitdialog.h"
#include "kcloudsvrproxy.h"

#include <QCoreApplication>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using zel::vela::NotifyExitArg;
using zel::vela::NotifyExitResult;

namespace {

constexpr auto PauseAfterChange = 1s; // each of many files begins and ends

template <class Then> CloudCall askHowMany(KCloudSvrProxy *cloud, QObject *context, Then then)
{
    NotifyExitArg arg; // a question as long as it stops nothing
    arg.clientName = "zelbox";
    arg.processId = QCoreApplication::applicationPid();
    return zel::ask<NotifyExitResult>(
        cloud, "notifyExit", arg, context, [then](const CloudReply<NotifyExitResult> &reply) {
            if (reply)
                then(reply.record.runningTaskCount);
        });
}

} // namespace

GoingOn::GoingOn(QObject *parent) : QObject(parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseAfterChange);
    connect(&m_pause, &QTimer::timeout, this, &GoingOn::ask);
}

void GoingOn::follow(KCloudSvrProxy *cloud)
{
    if (m_cloud == cloud)
        return;
    m_cloud = cloud;
    const KVelaEventObject *events = cloud->velaEventObject();
    connect(events, &KVelaEventObject::SocketConnected, this, &GoingOn::ask);
    connect(events, &KVelaEventObject::SocketDisConnected, this, [this] { take(0); });
    connect(events, &KVelaEventObject::signal_pushArrived, this, [this](const QString &method) {
        if (method == QLatin1String("notifyFileTransfer") && !m_pause.isActive())
            m_pause.start();
    });
}

void GoingOn::ask()
{
    m_asking.cancel(); // the answer would be older than this one's
    m_asking = askHowMany(m_cloud, this, [this](int transfers) { take(transfers); });
}

void GoingOn::take(int transfers)
{
    if (std::exchange(m_transfers, transfers) != transfers)
        Q_EMIT changed(transfers);
}

void GoingOn::tell(KCloudSvrProxy *cloud, ZelBoxExitDialog *question)
{
    if (cloud && cloud->isConnected())
        askHowMany(cloud, question, [question](int transfers) { question->tellTransfers(transfers); });
}
