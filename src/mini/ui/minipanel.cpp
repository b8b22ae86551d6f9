#include "mini/ui/minipanel.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "mini/ui/recentpicker.h"
#include "widgets/iconbutton.h"
#include "widgets/windowframe.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

MiniPanel::MiniPanel(const KRecentFileLogic::Services &services, QWidget *parent)
    : QWidget(parent),
      m_header(new QWidget(this)),
      m_icon(new QLabel(m_header)),
      m_open(new IconButton(QStringLiteral(":/icons_svg/open_box.svg"), tr("Open ZEL Box"), m_header)),
      m_pin(new IconButton(QStringLiteral(":/icons_svg/pin.svg"), tr("Keep in sight"), m_header)),
      m_close(new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close"), m_header)),
      m_picker(new RecentPicker(services, this))
{
    layOutHeader();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({1, 1, 1, 8}));
    layout->setSpacing(KLiteStyle::dpiScaled(4));
    layout->addWidget(m_header);
    layout->addWidget(m_picker, 1);
    connect(m_open, &QAbstractButton::clicked, this, &MiniPanel::openRequested);
    connect(m_close, &QAbstractButton::clicked, this, &MiniPanel::closeRequested);
    connect(m_pin, &QAbstractButton::clicked, this, &MiniPanel::pinToggled);
}

void MiniPanel::layOutHeader()
{
    auto *title = new QLabel(QStringLiteral("ZEL Box"), m_header);
    title->setFont(zel::look::font(zel::look::Type::Strong, font()));
    m_pin->setCheckable(true);
    m_pin->setHoverColor(KSkin::Color::Selected, KSkin::Color::Accent);
    auto *row = new QHBoxLayout(m_header);
    row->setContentsMargins(KLiteStyle::dpiScaledMargins({14, 6, 6, 2}));
    row->setSpacing(KLiteStyle::dpiScaled(2));
    row->addWidget(m_icon);
    row->addSpacing(KLiteStyle::dpiScaled(6));
    row->addWidget(title, 1);
    for (IconButton *button : {m_open, m_pin, m_close})
        row->addWidget(button);
    updateIcon();
}

void MiniPanel::updateIcon()
{
    const QSize size = KLiteStyle::dpiScaledSize({18, 18});
    m_icon->setPixmap(QIcon(QStringLiteral(":/icons/zelbox.svg")).pixmap(window()->windowHandle(), size));
}

void MiniPanel::setPinned(bool pinned)
{
    m_pin->setChecked(pinned);
}

void MiniPanel::setPinVisible(bool visible)
{
    m_pin->setVisible(visible);
}

void MiniPanel::setPopupsAllowed(bool allowed)
{
    m_picker->setPopupsAllowed(allowed);
    for (QWidget *child : findChildren<QWidget *>()) {
        if (allowed)
            child->removeEventFilter(this);
        else
            child->installEventFilter(this);
    }
}

bool MiniPanel::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::ToolTip || QWidget::eventFilter(watched, event);
}

// Presses on labels and on the free part of the header arrive here; buttons and fields keep theirs.
void MiniPanel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_header->geometry().contains(event->pos()))
        return;
    m_drag = Drag::Pressed;
    m_pressed = event->globalPos();
}

void MiniPanel::mouseMoveEvent(QMouseEvent *event)
{
    if (m_drag == Drag::Pressed
        && (event->globalPos() - m_pressed).manhattanLength() >= QApplication::startDragDistance()) {
        m_drag = Drag::Moving;
        Q_EMIT dragBegan(m_pressed);
    }
    if (m_drag == Drag::Moving)
        Q_EMIT dragMoved(event->globalPos());
}

void MiniPanel::mouseReleaseEvent(QMouseEvent *)
{
    if (std::exchange(m_drag, Drag::None) == Drag::Moving)
        Q_EMIT dragEnded();
}

void MiniPanel::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_header->geometry().contains(event->pos()))
        Q_EMIT openRequested();
}

void MiniPanel::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), KSkin::color(KSkin::Color::Surface));
    zel::paintWindowBorder(this);
}

void MiniPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateIcon();
}
