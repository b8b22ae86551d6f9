// The part of the core that makes its windows anew when the language or the sizes have changed. Every text
// and size is set where a widget is made, so that is done again rather than a second way of doing it kept in
// each of them.

#include "app/zelboxcore.h"

#include "app/ui/kzelboxcloudsettingsdlg.h"
#include "app/ui/zelboxminiwidget.h"
#include "app/ui/zelboxminiwindow.h"
#include "app/ui/zelboxtray.h"
#include "cloud/zelboxclientsvrproxy.h"
#include "krt/kapptranslators.h"
#include "krt/krt.h"
#include "mainwindow/ui/kcentralwidget.h"
#include "mainwindow/ui/zelboxmainwindow.h"

void ZelBoxCore::onLanguageChosen()
{
    krt::KAppTranslators::uninstallTranslation(krt::applicationName());
    krt::KAppTranslators::installTranslation(krt::applicationName());
    // The chooser is one of the windows that go.
    QMetaObject::invokeMethod(this, &ZelBoxCore::remakeWindows, Qt::QueuedConnection);
}

void ZelBoxCore::remakeWindows()
{
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
        m_settings->move(place.topLeft());
    }
}

void ZelBoxCore::remakeMainWindow()
{
    if (!m_mainWindow)
        return;
    const QPointer<ZelBoxMainWindow> old = m_mainWindow;
    const bool visible = old->isVisible();
    const bool minimised = old->isMinimized();
    const bool wasShown = old->wasShown();
    const int page = old->central()->currentPage();
    old->saveWindowState();
    m_mainWindow = nullptr;
    ZelBoxMainWindow *window = ensureMainWindow();
    if (wasShown)
        window->continueFrom();
    window->selectPage(page);
    if (minimised)
        window->showMinimized();
    else if (visible)
        window->show();
    else
        window->startHidden();
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
    delete m_miniWindow;
    if (visible)
        showMiniWindow(m_startFrom);
}
