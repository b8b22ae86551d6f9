#include "app/goingon.h"

#include "account_types.h"
#include "app/ui/zelboxexitdialog.h"
#include "kcloudask.h"
#include "kcloudsvrproxy.h"

#include <QCoreApplication>

using zel::vela::NotifyExitArg;
using zel::vela::NotifyExitResult;

void zel::tellWhatGoesOn(KCloudSvrProxy *cloud, ZelBoxExitDialog *question)
{
    if (!cloud || !cloud->isConnected())
        return;
    NotifyExitArg arg; // a question as long as it stops nothing
    arg.clientName = "zelbox";
    arg.processId = QCoreApplication::applicationPid();
    ask<NotifyExitResult>(
        cloud, "notifyExit", arg, question, [question](const CloudReply<NotifyExitResult> &reply) {
            if (reply)
                question->tellTransfers(reply.record.runningTaskCount);
        });
}
