// The part of the core that makes its windows anew when the language or the sizes have changed. Every text
// and size is set where a widget is made, so that is done again rather than a second way of doing it kept in
// each of them.

#include "app/zelboxcore.h"

#include "cloud/zelboxclientsvrproxy.h"
#include "krt/kapptranslators.h"
#include "krt/krt.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"
#include "tray/ui/zelboxtray.h"

#include <QDialog>
#include <QDrag>
#include <algorithm>

void ZelBoxCore::onLanguageChosen()
{
    krt::KAppTranslators::uninstallTranslation(krt::applicationName());
    krt::KAppTranslators::installTranslation(krt::applicationName());
    // The chooser is one of the windows that go.
    QMetaObject::invokeMethod(this, &ZelBoxCore::remakeWindows, Qt::QueuedConnection);
}

// A drag runs a loop of its own inside the code of the widget that began it.
QObject *ZelBoxCore::runningDrag() const
{
    for (const QWidget *window : ownWindows()) {
        if (auto *drag = window->findChild<QDrag *>())
            return drag;
    }
    return nullptr;
}

QVector<QWidget *> ZelBoxCore::ownWindows() const
{
    QVector<QWidget *> windows{
        m_mainWindow.data(), m_miniWindow.data(), m_miniWidget.data(), m_settings.data()};
    windows.removeAll(nullptr);
    return windows;
}

// What a person is in the middle of: a drag, or the answer to a question.
QObject *ZelBoxCore::runningTask() const
{
    if (QObject *drag = runningDrag())
        return drag;
    for (const QWidget *window : ownWindows()) {
        const QList<QDialog *> dialogs = window->findChildren<QDialog *>();
        const auto open = std::find_if(
            dialogs.begin(), dialogs.end(), [](const QDialog *dialog) { return dialog->isVisible(); });
        if (open != dialogs.end())
            return *open;
    }
    return nullptr;
}

void ZelBoxCore::remakeWindows()
{
    if (QObject *task = runningTask()) {
        constexpr auto Once = Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection);
        m_remakingWaits = true;
        connect(task, &QObject::destroyed, this, &ZelBoxCore::onTaskEnded, Once);
        if (auto *dialog = qobject_cast<QDialog *>(task))
            connect(dialog, &QDialog::finished, this, &ZelBoxCore::onTaskEnded, Once);
        return;
    }
    m_remakingWaits = false;
    remakeMainWindow();
    remakeMiniWindow();
    delete m_miniWidget; // hidden whenever the focus is elsewhere
    if (m_tray) {
        delete std::exchange(m_tray, nullptr);
        startPresence();
    }
    if (m_settings && m_settings->isVisible()) {
        const QString page = m_settings->currentPage();
        const QRect place = m_settings->geometry();
        delete m_settings;
        openSettings(page);
        m_settings->resize(place.size().expandedTo(m_settings->minimumSizeHint()));
        m_settings->move(place.topLeft());
    }
}

// A dialog ends twice: with its answer, and with the window that it belongs to.
void ZelBoxCore::onTaskEnded()
{
    if (m_remakingWaits)
        remakeWindows();
}

void ZelBoxCore::remakeMainWindow()
{
    if (!m_mainWindow)
        return;
    const QPointer<ZelBoxMainWindow> old = m_mainWindow;
    const bool visible = old->isVisible();
    m_mainWindow = nullptr;
    ZelBoxMainWindow *window = ensureMainWindow();
    window->continueFrom(*old);
    if (visible)
        window->show();
    else
        window->startHidden();
    window->setAttribute(Qt::WA_ShowWithoutActivating, false);
    // Hidden without its own notices: to the user and to the service it is one window.
    QObject::disconnect(old, nullptr, this, nullptr);
    QObject::disconnect(old, nullptr, m_clientProxy, nullptr);
    delete old;
}

void ZelBoxCore::remakeMiniWindow()
{
    if (!m_miniWindow)
        return;
    const bool visible = m_miniWindow->isVisible();
    const bool active = m_miniWindow->isActiveWindow();
    delete m_miniWindow;
    makeMiniWindow(); // its first show has been told already
    m_miniWindow->setAttribute(Qt::WA_ShowWithoutActivating, !active);
    m_miniWindow->setVisible(visible);
    m_miniWindow->setAttribute(Qt::WA_ShowWithoutActivating, false);
}
