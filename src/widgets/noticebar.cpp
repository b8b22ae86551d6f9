#include "widgets/noticebar.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/iconbutton.h"
#include "widgets/svgicon.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace look = zel::look;

namespace {

KSkin::Color colorOf(NoticeBar::Tone tone)
{
    return tone == NoticeBar::Tone::Problem ? KSkin::Color::Badge : KSkin::Color::Accent;
}

} // namespace

NoticeBar::NoticeBar(QWidget *parent)
    : QFrame(parent), m_glyph(new QLabel(this)), m_text(new QLabel(this)), m_action(new QPushButton(this))
{
    auto *close = new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close notice"), this);
    connect(close, &QAbstractButton::clicked, this, &QWidget::hide);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(
        KLiteStyle::dpiScaledMargins({look::SpaceM, look::SpaceXS, look::SpaceXS, look::SpaceXS}));
    layout->setSpacing(KLiteStyle::dpiScaled(look::SpaceS));
    layout->addWidget(m_glyph);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action, 0, Qt::AlignVCenter);
    layout->addWidget(close, 0, Qt::AlignVCenter);
    m_action->setAutoDefault(false); // Enter elsewhere in a dialog must not press it
    m_timer.setSingleShot(true);
    connect(m_action, &QPushButton::clicked, this, &NoticeBar::triggerAction);
    connect(&m_timer, &QTimer::timeout, this, &NoticeBar::onTimeout);
    hide();
}

int NoticeBar::defaultTime()
{
    return look::NoticeTime;
}

void NoticeBar::showText(const QString &text, Tone tone, int milliseconds)
{
    endOffer();
    m_action->hide();
    present(text, tone, milliseconds);
}

// Who offers anew has already put the new offer in the place of the old one, and would take dismissed() for
// the end of the new one.
void NoticeBar::showAction(const QString &text, const QString &action, Tone tone, int milliseconds)
{
    m_offering = true;
    m_action->setText(action);
    m_action->show();
    present(text, tone, milliseconds);
}

void NoticeBar::addLink(const QString &text, std::function<void()> clicked)
{
    auto *link = new QPushButton(text, this);
    link->setFlat(true);
    link->setAutoDefault(false);
    auto *row = static_cast<QBoxLayout *>(layout());
    row->insertWidget(row->indexOf(m_action), link, 0, Qt::AlignVCenter);
    connect(link, &QPushButton::clicked, this, std::move(clicked));
}

void NoticeBar::present(const QString &text, Tone tone, int milliseconds)
{
    m_text->setText(text);
    m_tone = tone;
    setAccessibleName(text);
    updateGlyph();
    show();
    update();
    if (milliseconds == Stay)
        m_timer.stop();
    else
        m_timer.start(milliseconds);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void NoticeBar::triggerAction()
{
    if (!std::exchange(m_offering, false))
        return;
    hide();
    Q_EMIT actionTriggered();
}

void NoticeBar::endOffer()
{
    if (std::exchange(m_offering, false))
        Q_EMIT dismissed();
}

QString NoticeBar::text() const
{
    return m_text->text();
}

int NoticeBar::naturalWidth() const
{
    int beside = layout()->contentsMargins().left() + layout()->contentsMargins().right() + 2;
    for (int i = 0; i < layout()->count(); ++i) {
        const QWidget *part = layout()->itemAt(i)->widget();
        if (part != m_text && !part->isHidden())
            beside += layout()->itemAt(i)->sizeHint().width() + layout()->spacing();
    }
    return qMin(KLiteStyle::dpiScaled(look::NoticeWidth),
        beside + m_text->fontMetrics().horizontalAdvance(m_text->text()));
}

void NoticeBar::onTimeout()
{
    if (underMouse() || isAncestorOf(QApplication::focusWidget()))
        m_timer.start();
    else
        hide();
}

void NoticeBar::updateGlyph()
{
    const bool problem = m_tone == Tone::Problem;
    const int side = KLiteStyle::dpiScaled(look::Glyph);
    m_glyph->setPixmap(zel::tintedPixmap(
        problem ? QStringLiteral(":/icons_svg/warning.svg") : QStringLiteral(":/icons_svg/info.svg"),
        {side, side}, devicePixelRatioF(), KSkin::color(colorOf(m_tone))));
}

void NoticeBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(KSkin::color(KSkin::Color::Surface)); // what is below must not show through
    painter.drawRoundedRect(plate, radius, radius);
    QColor tint = KSkin::color(colorOf(m_tone));
    painter.setPen(KSkin::highContrast() ? tint : KSkin::color(KSkin::Color::ControlBorder));
    tint.setAlphaF(look::SoftTint);
    painter.setBrush(tint);
    painter.drawRoundedRect(plate, radius, radius);
}

void NoticeBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QFrame::keyPressEvent(event);
}

// Also comes when the window is minimised; the notice then stays.
void NoticeBar::hideEvent(QHideEvent *event)
{
    if (isHidden()) {
        m_timer.stop();
        endOffer();
    }
    QFrame::hideEvent(event);
}

void NoticeBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updateGlyph();
    QFrame::changeEvent(event);
}
