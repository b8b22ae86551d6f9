#include "mainwindow/ui/zelboxmainwindow.h"

#include "base/logging.h"
#include "base/settingskeys.h"
#include "base/sourcekeys.h"
#include "cloud/zelboxcloudsvr.h"
#include "kdcinfoc.h"
#include "klitestyle.h"
#include "ksettings.h"
#include "mainwindow/mainwindowhost.h"
#include "mainwindow/pagelist.h"
#include "mainwindow/ui/kcentralwidget.h"
#include "mainwindow/ui/navigationbar.h"
#include "mainwindow/ui/titlebar.h"
#include "mainwindow/ui/windowtitlebuttons.h"
#include "mainwindow/ui/zelboxmainwindowmenu.h"
#include "mainwindow/ui/zelboxspacebar.h"
#include "mainwindow/windowgeometry.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilewidget.h"
#include "widgets/windowframe.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPixmapCache>
#include <QScreen>
#include <QWindow>

#include <malloc.h>

ZelBoxMainWindow::ZelBoxMainWindow(MainWindowHost *host, QWidget *parent)
    : QMainWindow(parent,
        Qt::Window | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
            | Qt::WindowCloseButtonHint),
      m_host(host),
      m_central(new KCentralWidget(QStringLiteral("ZEL Box"), host->cloudService(), this)),
      m_showSource(QStringLiteral("normal"))
{
    setWindowTitle(QStringLiteral("ZEL Box"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setObjectName(QStringLiteral("ZelBoxMainWindow"));
    setCentralWidget(m_central);
    setMinimumSize(KLiteStyle::dpiScaledSize({640, 400}));
    resize(KLiteStyle::dpiScaledSize({900, 580}));
    new WidgetResizeHelper(this);
    connectTitleBar();

    connect(this, &ZelBoxMainWindow::windowReadyToShow, this, &ZelBoxMainWindow::onWindowReadyToShow);
    connect(this, &ZelBoxMainWindow::windowTitleClicked, this, &ZelBoxMainWindow::onWindowTitleClicked);
    connect(this, &ZelBoxMainWindow::sigMsgCountChanged, m_central->navigation(), &NavigationBar::setBadge);
    connect(m_central->recentPage(), &ZelBoxRecentFileWidgetBase::sigSettingsWanted, this,
        [this] { m_host->openSettings(); });
    connect(m_central->recentPage(), &ZelBoxRecentFileWidgetBase::recentFileUnreadMsgCount, this,
        [this](quint64 count) {
            const int page = zel::pageNumber(zel::source::RecentFile);
            Q_EMIT sigMsgCountChanged(page, int(qMin<quint64>(count, 99999)), count > 0 ? 1 : 0);
        });
}

void ZelBoxMainWindow::connectTitleBar()
{
    TitleBar *bar = m_central->titleBar();
    KZelBoxWindowTitleButtonGroup *buttons = bar->buttons();
    connect(buttons, &KZelBoxWindowTitleButtonGroup::minBtnClicked, this, &ZelBoxMainWindow::onMinBtnClicked);
    connect(buttons, &KZelBoxWindowTitleButtonGroup::restoreMaxBtnClicked, this,
        &ZelBoxMainWindow::onRestoreMaxBtnClicked);
    connect(
        buttons, &KZelBoxWindowTitleButtonGroup::closeBtnClicked, this, &ZelBoxMainWindow::onCloseBtnClicked);
    connect(bar, &TitleBar::leftButtonPressed, this, &ZelBoxMainWindow::onTitleLButtonClick);
    connect(bar, &TitleBar::doubleClicked, this, &ZelBoxMainWindow::onRestoreMaxBtnClicked);
    connect(bar, &TitleBar::dragStarted, this, [this] { windowHandle()->startSystemMove(); });
    connect(bar->menuButton(), &QAbstractButton::clicked, this, &ZelBoxMainWindow::showMenu);
    connect(m_central->spaceBar(), &ZelBoxSpaceBar::loginRequested, this, [this] { m_host->openSettings(); });
    connect(m_central->spaceBar(), &ZelBoxSpaceBar::dilatationRequested, this,
        [this] { m_host->openSettings(); });

    auto *settings = new QAction(this);
    settings->setShortcut(QKeySequence(QStringLiteral("Ctrl+,")));
    connect(settings, &QAction::triggered, this, [this] { m_host->openSettings(); });
    auto *exit = new QAction(this);
    exit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(exit, &QAction::triggered, this, [this] { m_host->showExitDialog(); });
    auto *close = new QAction(this);
    close->setShortcut(QKeySequence(QStringLiteral("Ctrl+W")));
    connect(close, &QAction::triggered, this, &ZelBoxMainWindow::onCloseBtnClicked);
    auto *menu = new QAction(this);
    menu->setShortcut(QKeySequence(QStringLiteral("F10")));
    connect(menu, &QAction::triggered, this, &ZelBoxMainWindow::showMenu);
    addActions({settings, exit, close, menu});
}

void ZelBoxMainWindow::showMenu()
{
    if (!m_menu) {
        m_menu = new ZelBoxMainWindowMenu(m_host, this);
        connect(m_menu, &ZelBoxMainWindowMenu::pageRequested, m_central,
            qOverload<const QString &>(&KCentralWidget::selectPage));
        connect(this, &ZelBoxMainWindow::closePopupWindow, m_menu, &QMenu::close);
    }
    QWidget *button = m_central->titleBar()->menuButton();
    const QPoint below = button->mapToGlobal(QPoint(button->width(), button->height()));
    m_menu->popup(below - QPoint(m_menu->sizeHint().width(), 0));
}

QRect ZelBoxMainWindow::normalRect() const
{
    if (m_restoredRect.isValid())
        return m_restoredRect;
    if (!isMaximized() && !isMinimized() && !isFullScreen())
        return geometry();
    const QRect normal = normalGeometry();
    return normal.isValid() ? normal : geometry();
}

void ZelBoxMainWindow::forgetRestoredRect()
{
    if (m_firstShown && !isMaximized() && !isMinimized() && !isFullScreen())
        m_restoredRect = QRect();
}

void ZelBoxMainWindow::saveWindowState()
{
    const QRect normal = normalRect();
    KSettings settings;
    settings.beginGroup(zel::keys::ApplicationSettings);
    settings.setValue(zel::keys::WindowPosX, normal.left());
    settings.setValue(zel::keys::WindowPosY, normal.top());
    settings.setValue(zel::keys::WindowWidth, normal.width());
    settings.setValue(zel::keys::WindowHeight, normal.height());
    settings.setValue(zel::keys::WindowIsMaximized, isMaximized());
    settings.endGroup();
}

void ZelBoxMainWindow::restoreWindowState()
{
    const QScreen *primary = QGuiApplication::primaryScreen();
    if (!primary)
        return;
    zel::geometry::ScreenState screen{primary->geometry(), primary->availableGeometry(), 0};
    for (const QScreen *each : QGuiApplication::screens())
        screen.totalWidth += each->geometry().width();

    zel::geometry::StoredPlacement stored;
    KSettings settings;
    settings.beginGroup(zel::keys::ApplicationSettings);
    if (settings.contains(zel::keys::WindowPosX)) {
        stored.normal = zel::geometry::storedRect(settings.value(zel::keys::WindowPosX, x()).toInt(),
            settings.value(zel::keys::WindowPosY, y()).toInt(),
            settings.value(zel::keys::WindowWidth, width()).toInt(),
            settings.value(zel::keys::WindowHeight, height()).toInt(), screen);
        stored.maximized = settings.value(zel::keys::WindowIsMaximized, false).toBool();
    }
    const zel::geometry::Placement placement = zel::geometry::restore(stored, size(), screen);
    setUpdatesEnabled(false);
    resize(placement.normal.size());
    move(placement.normal.topLeft());
    m_restoredRect = QRect(placement.normal.topLeft(), size());
    if (placement.maximized)
        setWindowState(windowState() | Qt::WindowMaximized);
    setUpdatesEnabled(true);
}

void ZelBoxMainWindow::showToFront()
{
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    Q_EMIT windowShowToFront();
}

bool ZelBoxMainWindow::selectPage(int number)
{
    return m_central->selectPage(number);
}

void ZelBoxMainWindow::onMinBtnClicked()
{
    showMinimized();
}

void ZelBoxMainWindow::onCloseBtnClicked()
{
    saveWindowState();
    Q_EMIT windowClose();
}

void ZelBoxMainWindow::onRestoreMaxBtnClicked()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void ZelBoxMainWindow::onStashProcessMemory()
{
    saveWindowState();
    QPixmapCache::clear();
    ::malloc_trim(0);
}

void ZelBoxMainWindow::onMainWindowFirstShown()
{
    KDcInfoC::postGeneralEvent(
        QStringLiteral("zelbox_mainbox_show"), {{QStringLiteral("showSrc"), m_showSource}});
    m_host->mainWindowFirstShown();
    Q_EMIT windowReadyToShow();
}

void ZelBoxMainWindow::onAppAboutToQuit()
{
    if (m_firstShown)
        saveWindowState();
}

void ZelBoxMainWindow::onWindowReadyToShow()
{
    m_central->recentPage()->onWindowFirstShown();
    m_central->recentPage()->onWindowReadyToShow();
    // The list, not the first button of the title bar, is where the keyboard starts.
    if (!focusWidget() || m_central->titleBar()->isAncestorOf(focusWidget()))
        m_central->recentPage()->view()->setFocus(Qt::OtherFocusReason);
}

void ZelBoxMainWindow::onWindowTitleClicked()
{
    Q_EMIT closePopupWindow();
}

void ZelBoxMainWindow::onLnkDialogDisappear()
{
    activateWindow();
}

void ZelBoxMainWindow::onTitleLButtonClick()
{
    Q_EMIT sigTitleLButtonClick();
    Q_EMIT windowTitleClicked();
}

void ZelBoxMainWindow::slotMoveWidget(QPoint point)
{
    if (!isMaximized() && !isFullScreen())
        move(point);
}

void ZelBoxMainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (m_firstShown || event->spontaneous())
        return;
    m_firstShown = true;
    forgetRestoredRect();
    // On the next turn of the loop, so that nothing stands between this and the window on the screen.
    QMetaObject::invokeMethod(this, &ZelBoxMainWindow::onMainWindowFirstShown, Qt::QueuedConnection);
}

void ZelBoxMainWindow::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        saveWindowState();
    QMainWindow::hideEvent(event);
}

void ZelBoxMainWindow::closeEvent(QCloseEvent *event)
{
    // The window manager's close is the close button's: the window stays until the core hides it or the box
    // ends.
    event->ignore();
    onCloseBtnClicked();
}

void ZelBoxMainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    const Qt::WindowStates before = static_cast<QWindowStateChangeEvent *>(event)->oldState();
    m_central->titleBar()->buttons()->setMaximized(isMaximized());
    forgetRestoredRect();
    Q_EMIT windowStateChange();
    if (isMinimized())
        Q_EMIT windowMinimize();
    else if (isMaximized())
        Q_EMIT windowMaximized();
    else if (before & (Qt::WindowMaximized | Qt::WindowMinimized))
        Q_EMIT windowRestored();
    if (before.testFlag(Qt::WindowMinimized) && !isMinimized())
        Q_EMIT windowShowFromTaskIcon();
}
