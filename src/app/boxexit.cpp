#include "app/boxexit.h"

#include "app/boxwindows.h"
#include "app/goingon.h"
#include "app/opendialogs.h"
#include "app/ui/endingdialog.h"
#include "app/ui/zelboxexitdialog.h"
#include "app/zelboxapplication.h"
#include "app/zelboxipc.h"
#include "cloud/zelboxcloudsvr.h"

#include <QCoreApplication>
#include <QTimer>

BoxExit::BoxExit(BoxWindows &windows, OpenDialogs &dialogs, QObject *parent)
    : QObject(parent), m_windows(windows), m_dialogs(dialogs)
{
}

void BoxExit::ask(bool exitWanted, ZelBoxCloudSvr *cloud)
{
    const auto setUp = [this, cloud](ZelBoxExitDialog *dialog) {
        connect(dialog, &ZelBoxExitDialog::exitChosen, this, &BoxExit::quitLater);
        connect(dialog, &ZelBoxExitDialog::backgroundChosen, this, &BoxExit::backgroundChosen);
        connect(dialog, &QDialog::rejected, this, &BoxExit::declined);
        GoingOn::tell(cloud, dialog);
    };
    m_dialogs.present<ZelBoxExitDialog>(m_windows.frontWindow(), setUp)->setExitWanted(exitWanted);
}

void BoxExit::quitLater()
{
    if (!m_windows.isBusy())
        return quitNow();
    const auto setUp = [this](EndingDialog *dialog) {
        connect(dialog, &QDialog::accepted, this, &BoxExit::quitNow);
        connect(dialog, &QDialog::rejected, this, [this] {
            if (m_windows.frontWindow())
                Q_EMIT declined();
        });
        connect(&m_windows, &BoxWindows::workEnded, dialog, [dialog] {
            if (dialog->isVisible()) // else the user has decided to stay
                dialog->accept();
        });
    };
    m_dialogs.present<EndingDialog>(m_windows.frontWindow(), setUp);
}

void BoxExit::quitNow()
{
    // As a guest, the loop is the host's: only the box's own windows go.
    const bool ownProcess = ZelBoxApplicationIndependentProcesses::isRunning();
    ZelBoxIpc::instance()->setLeaving(ownProcess);
    QTimer::singleShot(0, this, [this, ownProcess] {
        if (ownProcess)
            QCoreApplication::quit();
        else
            leaveHost();
    });
}

void BoxExit::leaveHost()
{
    if (QObject *drag = m_windows.runningDrag())
        connect(drag, &QObject::destroyed, this, &BoxExit::leaveHost,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    else
        Q_EMIT hostLeft();
}
