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
#include <QPushButton>

static constexpr int ShowTime = 6000; // ms

InlineNotice::InlineNotice(QWidget *parent)
    : QFrame(parent), m_text(new QLabel(this)), m_action(new QPushButton(this))
{
    auto *close = new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close notice"), this);
    close->setGlyphSize(12);
    connect(close, &QAbstractButton::clicked, this, &QWidget::hide);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({16, 6, 6, 6}));
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action, 0, Qt::AlignVCenter);
    layout->addWidget(close, 0, Qt::AlignVCenter);
    m_timer.setSingleShot(true);
    connect(m_action, &QPushButton::clicked, this, [this] {
        m_offering = false;
        hide();
        Q_EMIT actionTriggered();
    });
    connect(&m_timer, &QTimer::timeout, this, &InlineNotice::onTimeout);
    hide();
}

void InlineNotice::showText(const QString &text, Tone tone)
{
    endOffer();
    m_action->hide();
    present(text, tone, ShowTime);
}

// Who offers anew has already put the new offer in the place of the old one, and would take offerEnded() for
// the end of the new one.
void InlineNotice::showOffer(const QString &text, const QString &action, int milliseconds)
{
    m_offering = true;
    m_action->setText(action);
    m_action->show();
    present(text, Tone::Done, milliseconds);
}

void InlineNotice::present(const QString &text, Tone tone, int milliseconds)
{
    m_text->setText(text);
    m_tone = tone;
    setAccessibleName(text);
    show();
    update();
    m_timer.start(milliseconds);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void InlineNotice::endOffer()
{
    if (std::exchange(m_offering, false))
        Q_EMIT offerEnded();
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
    const QColor color = KSkin::color(m_tone == Tone::Problem ? KSkin::Color::Badge : KSkin::Color::Accent);
    QColor ground = color;
    ground.setAlphaF(0.10);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    const qreal radius = KLiteStyle::dpiScaledF(6);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(color);
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
    if (isHidden()) {
        m_timer.stop();
        endOffer();
    }
    QFrame::hideEvent(event);
}
