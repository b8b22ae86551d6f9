#include "recentfile/ui/inlinenotice.h"

#include "klitestyle.h"
#include "kskin.h"
#include "widgets/iconbutton.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

static constexpr int ShowTime = 6000; // ms

InlineNotice::InlineNotice(QWidget *parent) : QFrame(parent), m_text(new QLabel(this))
{
    auto *close = new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close notice"), this);
    close->setGlyphSize(12);
    connect(close, &QAbstractButton::clicked, this, &QWidget::hide);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({16, 6, 6, 6}));
    layout->addWidget(m_text, 1);
    layout->addWidget(close, 0, Qt::AlignVCenter);
    m_timer.setSingleShot(true);
    m_timer.setInterval(ShowTime);
    connect(&m_timer, &QTimer::timeout, this, &InlineNotice::onTimeout);
    hide();
}

void InlineNotice::showText(const QString &text)
{
    m_text->setText(text);
    setAccessibleName(text);
    show();
    m_timer.start();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QString InlineNotice::text() const
{
    return m_text->text();
}

void InlineNotice::onTimeout()
{
    if (underMouse() || isAncestorOf(QApplication::focusWidget()))
        m_timer.start();
    else
        hide();
}

void InlineNotice::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = KSkin::color(KSkin::Color::Badge);
    ground.setAlphaF(0.10);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    const qreal radius = KLiteStyle::dpiScaledF(6);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(KSkin::color(KSkin::Color::Badge));
    const int bar = KLiteStyle::dpiScaled(3);
    painter.drawRoundedRect(QRectF(bar, bar * 2, bar, height() - bar * 4), bar / 2.0, bar / 2.0);
}

void InlineNotice::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QFrame::keyPressEvent(event);
}

void InlineNotice::hideEvent(QHideEvent *event)
{
    if (isHidden())
        m_timer.stop();
    QFrame::hideEvent(event);
}
