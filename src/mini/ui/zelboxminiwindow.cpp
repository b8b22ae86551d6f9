#include "mini/ui/zelboxminiwindow.h"

#include "klitestyle.h"
#include "mini/miniplaces.h"
#include "mini/ui/minipanel.h"
#include "mini/ui/ministrip.h"
#include "mini/ui/minisurface.h"
#include "mini/ui/minituck.h"
#include "mini/ui/recentpicker.h"

#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

using namespace zel::mini;

namespace {

constexpr QSize WindowSize(320, 440);
constexpr int SnapDistance = 24;
constexpr int FirstDistance = 24; // of a window without a place from the edges
constexpr int StripWidth = 5;

QString keyOf(const QScreen &screen)
{
    const QString serial = screen.serialNumber();
    return serial.isEmpty() ? screen.name() : screen.name() % QLatin1Char(' ') % serial;
}

Screens currentScreens()
{
    Screens screens;
    for (const QScreen *screen : QGuiApplication::screens()) // the primary one is first
        screens.append({keyOf(*screen), screen->geometry(), screen->availableGeometry()});
    return screens;
}

QSize windowSize()
{
    return KLiteStyle::dpiScaledSize(WindowSize);
}

} // namespace

ZelBoxMiniWindow::ZelBoxMiniWindow(QWidget *parent, const KRecentFileLogic::Services &services)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_panel(new MiniPanel(services, this)),
      m_strip(new MiniStrip(this)),
      m_tuck(new MiniTuck(this)),
      m_pinned(places::isPinned())
{
    setWindowTitle(tr("Mini window"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setObjectName(QStringLiteral("ZelBoxMiniWindow"));
    resize(windowSize());
    m_surface = MiniSurface::make(this);
    m_panel->setPinVisible(m_surface->canPlace());
    m_panel->setPinned(m_pinned);
    if (!m_surface->canPopUp())
        m_panel->setPopupsAllowed(false);
    m_strip->hide();
    connectPanel();
    if (m_surface->canPlace())
        followScreens();
}

ZelBoxMiniWindow::~ZelBoxMiniWindow()
{
    hide(); // while the surface is there
}

void ZelBoxMiniWindow::connectPanel()
{
    connect(m_panel, &MiniPanel::openRequested, this, &ZelBoxMiniWindow::mainWindowRequested);
    connect(m_panel, &MiniPanel::closeRequested, this, &QWidget::hide);
    connect(m_panel, &MiniPanel::pinToggled, this, &ZelBoxMiniWindow::setPinned);
    connect(m_panel, &MiniPanel::dragBegan, this, &ZelBoxMiniWindow::beginDrag);
    connect(m_panel, &MiniPanel::dragMoved, this, &ZelBoxMiniWindow::drag);
    connect(m_panel, &MiniPanel::dragEnded, this, &ZelBoxMiniWindow::endDrag);
    connect(m_tuck, &MiniTuck::partChanged, this, &ZelBoxMiniWindow::applyPart);
}

// Queued: a screen that is being removed is still listed.
void ZelBoxMiniWindow::followScreens()
{
    using Self = ZelBoxMiniWindow;
    connect(qApp, &QGuiApplication::screenAdded, this, &Self::followScreen);
    connect(qApp, &QGuiApplication::screenAdded, this, &Self::onScreensChanged, Qt::QueuedConnection);
    connect(qApp, &QGuiApplication::screenRemoved, this, &Self::onScreensChanged, Qt::QueuedConnection);
    connect(
        qApp, &QGuiApplication::primaryScreenChanged, this, &Self::onScreensChanged, Qt::QueuedConnection);
    for (QScreen *screen : QGuiApplication::screens())
        followScreen(screen);
}

void ZelBoxMiniWindow::followScreen(QScreen *screen)
{
    using Self = ZelBoxMiniWindow;
    connect(screen, &QScreen::geometryChanged, this, &Self::onScreensChanged, Qt::QueuedConnection);
    connect(screen, &QScreen::availableGeometryChanged, this, &Self::onScreensChanged, Qt::QueuedConnection);
}

void ZelBoxMiniWindow::onScreensChanged()
{
    if (isVisible()) // else done on the next show
        restorePlace();
}

// The place that was chosen last, or the nearest to it that the screens of the moment allow; a screen that
// comes back gets its window back.
void ZelBoxMiniWindow::restorePlace()
{
    m_screens = currentScreens();
    m_screen = screenWithKey(places::lastScreen(), m_screens);
    if (m_screen < 0)
        return;
    const Screen &screen = m_screens.at(m_screen);
    m_place = places::of(screen.key)
                  .value_or(firstPlace(windowSize(), screen.available, KLiteStyle::dpiScaled(FirstDistance)));
    updateTuck();
    applyPart();
}

void ZelBoxMiniWindow::keepPlace(const Place &place)
{
    m_place = place;
    places::remember(m_screens.at(m_screen).key, place);
    updateTuck();
    applyPart();
}

QRect ZelBoxMiniWindow::outRect() const
{
    return zel::mini::outRect(m_place, windowSize(), m_screens.at(m_screen).available);
}

bool ZelBoxMiniWindow::isTuckedAway() const
{
    return m_tuck->isTucked();
}

void ZelBoxMiniWindow::updateTuck()
{
    m_tuck->setAllowed(!m_pinned && m_screen >= 0
        && canTuckAway(m_place.edge, outRect(), m_screens.at(m_screen), m_screens));
}

void ZelBoxMiniWindow::applyPart()
{
    if (m_screen < 0)
        return;
    const QRect out = outRect();
    const QRect seen = seenRect(m_place.edge, out, m_tuck->part(), KLiteStyle::dpiScaled(StripWidth));
    m_panel->setGeometry(QRect(contentOffset(m_place.edge, out.size(), seen.size()), out.size()));
    m_strip->setVisible(m_tuck->isTucked());
    m_surface->place(m_place.edge, seen, QGuiApplication::screens().value(m_screen));
}

void ZelBoxMiniWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_strip->setGeometry(rect());
    if (!m_surface || !m_surface->canPlace())
        m_panel->setGeometry(rect());
}

void ZelBoxMiniWindow::showToFront()
{
    show();
    m_tuck->comeOut();
    raise();
    activateWindow();
    m_panel->picker()->focusInput();
}

void ZelBoxMiniWindow::setVisible(bool visible)
{
    if (visible == isVisible())
        return QWidget::setVisible(visible);
    if (visible && m_surface->canPlace())
        restorePlace();
    if (!visible) {
        m_tuck->reset();
        m_surface->aboutToHide();
    }
    QWidget::setVisible(visible);
    if (visible)
        m_surface->shown();
}

void ZelBoxMiniWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_firstShown)
        return;
    m_firstShown = true;
    m_panel->picker()->startLoading();
    Q_EMIT sigMiniWindowFirstShow();
}

void ZelBoxMiniWindow::setPinned(bool pinned)
{
    m_pinned = pinned;
    places::setPinned(pinned);
    m_panel->setPinned(pinned);
    updateTuck();
}

void ZelBoxMiniWindow::dockAt(Edge edge)
{
    if (!m_surface->canPlace() || m_screen < 0)
        return;
    const QPoint offset = outRect().topLeft() - m_screens.at(m_screen).available.topLeft();
    keepPlace({edge, offset});
}

void ZelBoxMiniWindow::beginDrag(const QPoint &globalPos)
{
    if (!m_surface->canPlace()) {
        windowHandle()->startSystemMove();
        return;
    }
    if (m_screen < 0)
        return;
    m_dragged = outRect(); // a layer surface knows no geometry
    m_grabbed = globalPos - m_dragged.topLeft();
    if (!m_surface->canFollowPointer())
        setCursor(Qt::ClosedHandCursor);
    m_tuck->setHeld(true);
}

void ZelBoxMiniWindow::drag(const QPoint &globalPos)
{
    if (!m_surface->canPlace())
        return;
    m_dragged.moveTopLeft(globalPos - m_grabbed);
    if (m_surface->canFollowPointer())
        m_surface->place(Edge::None, m_dragged, QGuiApplication::screens().value(m_screen));
}

void ZelBoxMiniWindow::endDrag()
{
    if (!m_surface->canPlace())
        return;
    unsetCursor();
    m_screens = currentScreens();
    m_screen = screenOf(m_dragged, m_screens);
    if (m_screen >= 0)
        keepPlace(placeOf(m_dragged, m_screens.at(m_screen).available, KLiteStyle::dpiScaled(SnapDistance)));
    m_tuck->setHeld(false);
}

void ZelBoxMiniWindow::enterEvent(QEvent *event)
{
    QWidget::enterEvent(event);
    m_tuck->setPointerInside(true);
}

void ZelBoxMiniWindow::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    m_tuck->setPointerInside(false);
}

void ZelBoxMiniWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        m_tuck->setActive(isActiveWindow());
}

void ZelBoxMiniWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        if (!m_panel->picker()->clearInput())
            hide();
        return;
    }
    if (event->modifiers() != Qt::AltModifier)
        return QWidget::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Left:
        return dockAt(Edge::Left);
    case Qt::Key_Right:
        return dockAt(Edge::Right);
    case Qt::Key_Up:
        return dockAt(Edge::Top);
    case Qt::Key_Down:
        return dockAt(Edge::None);
    default:
        QWidget::keyPressEvent(event);
    }
}
