#include "mainwindow/ui/titlebar.h"

#include "klitestyle.h"
#include "kskin.h"
#include "mainwindow/ui/searchbox.h"
#include "mainwindow/ui/windowtitlebuttons.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QSvgRenderer>

TitleBar::TitleBar(const QString &title, QWidget *parent)
    : QWidget(parent),
      m_title(title),
      m_search(new SearchBox(this)),
      m_menuButton(new IconButton(QStringLiteral(":/icons_svg/menu.svg"), tr("Menu"), this)),
      m_buttons(new KZelBoxWindowTitleButtonGroup(this))
{
    m_menuButton->setObjectName(QStringLiteral("menuButton"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({0, 6, 6, 6}));
    layout->setSpacing(0);
    layout->addWidget(m_search, 3, Qt::AlignVCenter);
    layout->addStretch(1);
    layout->addWidget(m_menuButton);
    layout->addSpacing(KLiteStyle::dpiScaled(4));
    layout->addWidget(m_buttons);
}

void TitleBar::setSearchIndent(int left)
{
    QMargins margins = layout()->contentsMargins();
    margins.setLeft(left);
    layout()->setContentsMargins(margins);
}

QSize TitleBar::sizeHint() const
{
    return KLiteStyle::dpiScaledSize({200, 48});
}

void TitleBar::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const int logo = KLiteStyle::dpiScaled(18);
    const int left = KLiteStyle::dpiScaled(16);
    const QRectF logoRect(left, (height() - logo) / 2.0, logo, logo);
    if (logoRect.intersects(event->rect())) // not for every blink of the search field's cursor
        QSvgRenderer(QStringLiteral(":/icons/zelbox.svg")).render(&painter, logoRect);

    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(KSkin::color(KSkin::Color::Text));
    const int textLeft = left + logo + KLiteStyle::dpiScaled(8);
    const QRect textRect(textLeft, 0, m_search->x() - textLeft - KLiteStyle::dpiScaled(8), height());
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft,
        painter.fontMetrics().elidedText(m_title, Qt::ElideRight, textRect.width()));
}

void TitleBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = event->globalPos();
    m_dragging = true;
    Q_EMIT leftButtonPressed();
}

void TitleBar::mouseMoveEvent(QMouseEvent *event)
{
    const bool far = (event->globalPos() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!m_dragging || !far || !event->buttons().testFlag(Qt::LeftButton))
        return;
    m_dragging = false;
    Q_EMIT dragStarted(m_pressed);
}

void TitleBar::mouseReleaseEvent(QMouseEvent *)
{
    m_dragging = false;
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_dragging = false;
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked();
}

void TitleBar::contextMenuEvent(QContextMenuEvent *event)
{
    Q_EMIT windowMenuRequested(event->globalPos());
}
