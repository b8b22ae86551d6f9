#include "app/boxwindows.h"

#include "app/commandtarget.h"
#include "base/sourcekeys.h"
#include "cloud/zelboxcloudsvr.h"
#include "krecentfile.h"
#include "mainwindow/mainwindowhost.h"
#include "mainwindow/ui/kcentralwidget.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "recentfile/recentsettings.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"
#include "widgets/filechooser.h"

#include <QApplication>
#include <QDialog>
#include <QDrag>
#include <algorithm>

BoxWindows::BoxWindows(MainWindowHost &host, CommandTarget &commands, KSkin *skin, QObject *parent)
    : QObject(parent), m_host(host), m_commands(commands), m_skin(skin)
{
}

ZelBoxMainWindow *BoxWindows::mainWindow() const
{
    return m_main;
}

ZelBoxMiniWindow *BoxWindows::miniWindow() const
{
    return m_mini;
}

// Roaming records come through the one cloud service that the box has.
void BoxWindows::startRecentStore()
{
    SetRecentSources(zel::recent::storedSources());
    InitRecentFile(WorkMode::Full);
    KRecentFileProxy::instance()->setCloudService(m_host.cloudService());
}

ZelBoxMainWindow *BoxWindows::ensureMainWindow()
{
    if (!m_main) {
        startRecentStore();
        m_main = new ZelBoxMainWindow(&m_host);
        m_main->restoreWindowState();
        connect(m_main->central(), &KCentralWidget::busyChanged, this, [this] {
            if (!isBusy())
                Q_EMIT workEnded();
        });
        Q_EMIT mainWindowMade(m_main);
    }
    return m_main;
}

ZelBoxMiniWindow *BoxWindows::ensureMiniWindow()
{
    if (!m_mini) {
        startRecentStore();
        m_mini = new ZelBoxMiniWindow;
        connect(
            m_mini, &ZelBoxMiniWindow::mainWindowRequested, this, [this] { m_commands.showMainWindow(); });
    }
    return m_mini;
}

ZelBoxMiniWidget *BoxWindows::ensureMiniWidget()
{
    if (!m_miniWidget) {
        startRecentStore();
        m_miniWidget = new ZelBoxMiniWidget;
        Q_EMIT miniWidgetMade(m_miniWidget);
    }
    return m_miniWidget;
}

KZelBoxCloudSettingsDlg *BoxWindows::ensureSettings()
{
    if (!m_settings || !m_settings->isVisible()) { // else it is closed, and goes
        m_settings = new KZelBoxCloudSettingsDlg(m_skin, m_host.cloudService());
        m_settings->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_settings, &KZelBoxCloudSettingsDlg::languageChosen, this, &BoxWindows::languageChosen);
    }
    return m_settings;
}

void BoxWindows::showMainWindow()
{
    const bool existed = m_main;
    ZelBoxMainWindow *window = ensureMainWindow();
    if (existed && window->isVisible())
        window->saveWindowState();
    window->showToFront();
}

void BoxWindows::showTransfers()
{
    ensureMainWindow()->central()->selectPage(zel::source::CloudDoc, zel::place::Transfers);
    showMainWindow();
}

QVector<QWidget *> BoxWindows::all() const
{
    QVector<QWidget *> windows{m_main.data(), m_mini.data(), m_miniWidget.data(), m_settings.data()};
    windows.removeAll(nullptr);
    return windows;
}

QObject *BoxWindows::runningDrag() const
{
    for (const QWidget *window : all()) {
        if (auto *drag = window->findChild<QDrag *>())
            return drag;
    }
    return nullptr;
}

// The small windows hide when the keyboard leaves them, and would take the question along.
QWidget *BoxWindows::frontWindow() const
{
    QWidget *active = QApplication::activeWindow();
    while (active && active != m_main && active != m_settings)
        active = active->parentWidget() ? active->parentWidget()->window() : nullptr;
    if (active)
        return active;
    return m_main && m_main->isVisible() && !m_main->isMinimized() ? m_main.data() : nullptr;
}

bool BoxWindows::hasAttention() const
{
    const QVector<QWidget *> windows = all();
    return std::any_of(
        windows.begin(), windows.end(), [](const QWidget *window) { return window->isActiveWindow(); });
}

QObject *BoxWindows::runningTask() const
{
    if (QObject *drag = runningDrag())
        return drag;
    for (const QWidget *window : all()) {
        if (QObject *chooser = window->findChild<FileChooser *>())
            return chooser;
        const QList<QDialog *> dialogs = window->findChildren<QDialog *>();
        const auto open = std::find_if(
            dialogs.begin(), dialogs.end(), [](const QDialog *dialog) { return dialog->isVisible(); });
        if (open != dialogs.end())
            return *open;
    }
    return nullptr;
}

void BoxWindows::remake()
{
    if (QObject *task = runningTask()) {
        constexpr auto Once = Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection);
        m_remakingWaits = true;
        connect(task, &QObject::destroyed, this, &BoxWindows::onTaskEnded, Once);
        if (auto *dialog = qobject_cast<QDialog *>(task))
            connect(dialog, &QDialog::finished, this, &BoxWindows::onTaskEnded, Once);
        return;
    }
    m_remakingWaits = false;
    remakeMainWindow();
    remakeMiniWindow();
    delete m_miniWidget; // hidden whenever the focus is elsewhere
    remakeSettings();
    Q_EMIT remade();
}

// A dialog ends twice: with its answer, and with the window that it belongs to.
void BoxWindows::onTaskEnded()
{
    if (m_remakingWaits)
        remake();
}

void BoxWindows::remakeMainWindow()
{
    if (!m_main)
        return;
    const QPointer<ZelBoxMainWindow> old = m_main;
    const bool visible = old->isVisible();
    m_main = nullptr;
    ZelBoxMainWindow *window = ensureMainWindow();
    window->continueFrom(*old);
    if (visible)
        window->show();
    else
        window->startHidden();
    window->setAttribute(Qt::WA_ShowWithoutActivating, false);
    // Hidden without its own notices: to the user and to the service it is one window.
    old->disconnect();
    delete old;
}

void BoxWindows::remakeMiniWindow()
{
    if (!m_mini)
        return;
    const bool visible = m_mini->isVisible();
    const bool active = m_mini->isActiveWindow();
    delete m_mini;
    ensureMiniWindow();
    m_mini->setAttribute(Qt::WA_ShowWithoutActivating, !active);
    m_mini->setVisible(visible);
    m_mini->setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void BoxWindows::remakeSettings()
{
    if (!m_settings || !m_settings->isVisible())
        return;
    const QString page = m_settings->currentPage();
    const QRect place = m_settings->geometry();
    delete m_settings;
    m_commands.openSettings(page);
    m_settings->resize(place.size().expandedTo(m_settings->minimumSizeHint()));
    m_settings->move(place.topLeft());
}

bool BoxWindows::isBusy() const
{
    return m_main && m_main->central()->isBusy();
}

void BoxWindows::takeDown()
{
    m_remakingWaits = false;
    delete m_settings;
    delete m_miniWidget;
    delete m_mini;
    if (m_main)
        m_main->onAppAboutToQuit();
    delete m_main;
}
