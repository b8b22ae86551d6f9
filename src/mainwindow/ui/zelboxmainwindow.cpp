#include "mainwindow/ui/zelboxmainwindow.h"

#include "base/logging.h"
#include "base/sourcekeys.h"
#include "cloud/zelboxcloudsvr.h"
#include "kdcinfoc.h"
#include "klitestyle.h"
#include "mainwindow/mainwindowhost.h"
#include "mainwindow/ui/kcentralwidget.h"
#include "mainwindow/ui/navigationbar.h"
#include "mainwindow/ui/titlebar.h"
#include "mainwindow/ui/windowtitlebuttons.h"
#include "mainwindow/ui/zelboxmainwindowmenu.h"
#include "mainwindow/ui/zelboxspacebar.h"
#include "widgets/modalguard.h"
#include "widgets/shortcuts.h"
#include "widgets/windowframe.h"

#include <QCloseEvent>
#include <QMenu>
#include <QWindow>
#include <utility>

ZelBoxMainWindow::ZelBoxMainWindow(MainWindowHost *host, QWidget *parent)
    : QMainWindow(parent,
        Qt::Window | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
            | Qt::WindowCloseButtonHint),
      m_host(host),
      m_central(new KCentralWidget(QStringLiteral("ZEL Box"), host->pages(), host->cloudService(), this)),
      m_showSource(QStringLiteral("normal")),
      m_placement(*this)
{
    setWindowTitle(QStringLiteral("ZEL Box"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setObjectName(QStringLiteral("ZelBoxMainWindow"));
    setCentralWidget(m_central);
    setMinimumSize(KLiteStyle::dpiScaledSize({640, 400}));
    resize(KLiteStyle::dpiScaledSize({900, 580}));
    new WidgetResizeHelper(this);
    new ModalGuard(this);
    connectTitleBar();
    makeShortcuts();

    connect(this, &ZelBoxMainWindow::windowReadyToShow, this, &ZelBoxMainWindow::onWindowReadyToShow);
    connect(this, &ZelBoxMainWindow::windowTitleClicked, this, &ZelBoxMainWindow::onWindowTitleClicked);
    connect(this, &ZelBoxMainWindow::sigMsgCountChanged, m_central->navigation(), &NavigationBar::setBadge);
    connect(m_central, &KCentralWidget::unreadChanged, this, &ZelBoxMainWindow::tellUnread);
    connect(m_central, &KCentralWidget::settingsRequested, this,
        [this](const QString &page) { m_host->openSettings(page); });
    m_central->selectPage(0); // what it tells at once is heard
}

void ZelBoxMainWindow::tellUnread(int page, int count, int redPointCount)
{
    Q_EMIT sigMsgCountChanged(page, count, redPointCount);
    Q_EMIT unreadCountChanged(unreadCount());
}

int ZelBoxMainWindow::unreadCount() const
{
    return m_central->unreadCount();
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
    connect(bar, &TitleBar::windowMenuRequested, this, &ZelBoxMainWindow::showWindowMenu);
    const auto openCloudSettings = [this] { m_host->openSettings(QStringLiteral("cloud")); };
    connect(m_central->spaceBar(), &ZelBoxSpaceBar::loginRequested, this, openCloudSettings);
    connect(m_central->spaceBar(), &ZelBoxSpaceBar::dilatationRequested, this, openCloudSettings);
}

void ZelBoxMainWindow::makeShortcuts()
{
    const auto make = [this](const QString &id, auto slot) {
        QAction *action = zel::Shortcuts::instance()->make(id, this);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    make(QStringLiteral("window.settings"), [this] { m_host->openSettings(QString()); });
    make(QStringLiteral("window.exit"), [this] { m_host->showExitDialog(); });
    make(QStringLiteral("window.close"), [this] { onCloseBtnClicked(); });
    make(QStringLiteral("window.menu"), [this] { showMenu(); });
    make(QStringLiteral("window.search"), [this] { m_central->beginFinding({}); });
    for (int page = 0; page < m_central->pageCount(); ++page) {
        make(zel::pageShortcut(page), [this, page] {
            m_central->selectPage(page);
            m_central->focusPage();
        });
    }
    const auto step = [this](const char *keys, int by) {
        auto *action = new QAction(this);
        action->setShortcut(QKeySequence(QLatin1String(keys)));
        connect(action, &QAction::triggered, this, [this, by] { m_central->stepPage(by); });
        addAction(action);
    };
    step("Ctrl+PgDown", 1);
    step("Ctrl+PgUp", -1);
}

void ZelBoxMainWindow::showMenu()
{
    if (!m_menu) {
        m_menu = new ZelBoxMainWindowMenu(
            m_host, m_central->cloudSpace(), m_central->numberOf(zel::source::CloudDoc), this);
        connect(m_menu, &ZelBoxMainWindowMenu::pageRequested, m_central,
            qOverload<const QString &, const QString &>(&KCentralWidget::selectPage));
        connect(this, &ZelBoxMainWindow::closePopupWindow, m_menu, &QMenu::close);
    }
    QWidget *button = m_central->titleBar()->menuButton();
    const QPoint below = button->mapToGlobal(QPoint(button->width(), button->height()));
    m_menu->popup(below - QPoint(m_menu->sizeHint().width(), 0));
}

// What a frame of the window manager would offer.
void ZelBoxMainWindow::showWindowMenu(const QPoint &globalPos)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(tr("Window"));
    connect(this, &ZelBoxMainWindow::closePopupWindow, menu, &QMenu::close);
    menu->addAction(tr("Minimize"), this, &ZelBoxMainWindow::onMinBtnClicked);
    menu->addAction(
        isMaximized() ? tr("Restore") : tr("Maximize"), this, &ZelBoxMainWindow::onRestoreMaxBtnClicked);
    menu->addSeparator();
    zel::Shortcuts::instance()->follow(QStringLiteral("window.close"),
        menu->addAction(tr("Close"), this, &ZelBoxMainWindow::onCloseBtnClicked));
    menu->popup(globalPos);
}

void ZelBoxMainWindow::saveWindowState()
{
    m_placement.save();
}

void ZelBoxMainWindow::restoreWindowState()
{
    m_placement.restore();
}

void ZelBoxMainWindow::continueFrom(const ZelBoxMainWindow &old)
{
    m_reportsFirstShow = old.m_reportsFirstShow;
    m_showSource = old.m_showSource;
    m_placement.takeOver(old.m_placement);
    setWindowState(old.windowState() & ~Qt::WindowActive);
    setAttribute(Qt::WA_ShowWithoutActivating, !old.isActiveWindow());
    m_central->continueFrom(*old.central());
}

void ZelBoxMainWindow::startHidden()
{
    m_central->startPages();
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
    m_central->releaseMemory();
}

void ZelBoxMainWindow::onMainWindowFirstShown()
{
    if (std::exchange(m_reportsFirstShow, false)) {
        KDcInfoC::postGeneralEvent(
            QStringLiteral("zelbox_mainbox_show"), {{QStringLiteral("showSrc"), m_showSource}});
        m_host->mainWindowFirstShown();
    }
    Q_EMIT windowReadyToShow();
}

void ZelBoxMainWindow::onAppAboutToQuit()
{
    if (m_firstShown)
        saveWindowState();
}

void ZelBoxMainWindow::onWindowReadyToShow()
{
    m_central->tellReady();
    // The page, not the header, is where the keyboard starts.
    if (!focusWidget() || m_central->titleBar()->isAncestorOf(focusWidget()))
        m_central->focusPage();
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
    m_placement.onShown();
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
    if (m_firstShown)
        m_placement.onShown();
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
