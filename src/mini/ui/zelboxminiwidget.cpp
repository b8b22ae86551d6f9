#include "mini/ui/zelboxminiwidget.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "mini/ui/recentpicker.h"
#include "widgets/searchfield.h"
#include "widgets/windowframe.h"

#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

ZelBoxMiniWidget::ZelBoxMiniWidget(QWidget *parent, const KRecentFileLogic::Services &services)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_picker(new RecentPicker(services, this))
{
    setWindowTitle(tr("Quick search"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setObjectName(QStringLiteral("ZelBoxMiniWidget"));
    resize(KLiteStyle::dpiScaledSize({520, 380}));
    m_picker->input()->setMinimumHeight(KLiteStyle::dpiScaled(40));
    QFont large = zel::look::font(zel::look::Type::Subtitle, font());
    large.setWeight(QFont::Normal);
    m_picker->input()->setFont(large);

    auto *keys = new QLabel(tr("Enter opens  ·  Ctrl+Enter shows in folder  ·  Esc closes"), this);
    keys->setFont(zel::look::font(zel::look::Type::Caption, font()));
    keys->setForegroundRole(QPalette::PlaceholderText);
    keys->setContentsMargins(KLiteStyle::dpiScaledMargins({24, 0, 24, 0}));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({1, 12, 1, 10}));
    layout->setSpacing(KLiteStyle::dpiScaled(8));
    layout->addWidget(m_picker, 1);
    layout->addWidget(keys);
    connect(m_picker, &RecentPicker::documentOpened, this, &QWidget::hide);
}

void ZelBoxMiniWidget::centerOn(const QRect &geometry)
{
    m_isPlaced = true;
    move(geometry.left() + (geometry.width() - width()) / 2,
        geometry.top() + (geometry.height() - height()) / 2);
}

void ZelBoxMiniWidget::showWithFocus()
{
    if (!isVisible() && !m_isPlaced)
        moveToUsersScreen();
    if (!isVisible())
        show();
    raise();
    activateWindow();
    m_picker->focusInput();
}

// Where the eyes are: in the middle, and high enough that what was found grows into view below.
void ZelBoxMiniWidget::moveToUsersScreen()
{
    QScreen *screen = QGuiApplication::screenAt(QCursor::pos());
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    move(room.left() + (room.width() - width()) / 2, room.top() + qMax(0, (room.height() - height()) / 3));
}

void ZelBoxMiniWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_loaded) {
        m_loaded = true;
        m_picker->startLoading();
    }
}

void ZelBoxMiniWidget::hideEvent(QHideEvent *event)
{
    Q_EMIT sigMiniWindowAboutToHide();
    QWidget::hideEvent(event);
}

void ZelBoxMiniWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || isActiveWindow() || !isVisible())
        return;
    // Not at once: a command that shows this widget again may be on its way.
    m_pendingHide = true;
    QMetaObject::invokeMethod(this, &ZelBoxMiniWidget::hideIfPending, Qt::QueuedConnection);
}

void ZelBoxMiniWidget::hideIfPending()
{
    if (qExchange(m_pendingHide, false) && !isActiveWindow())
        hide();
}

void ZelBoxMiniWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

void ZelBoxMiniWidget::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), KSkin::color(KSkin::Color::Surface));
    zel::paintWindowBorder(this);
}
