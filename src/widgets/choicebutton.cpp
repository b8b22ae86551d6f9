#include "widgets/choicebutton.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/focusring.h"
#include "widgets/rowpaint.h"

#include <QKeyEvent>
#include <QPainter>

namespace look = zel::look;

namespace {

constexpr int GlyphSide = 20;

int beforeTexts()
{
    return KLiteStyle::dpiScaled(look::SpaceM) + KLiteStyle::dpiScaled(GlyphSide)
        + KLiteStyle::dpiScaled(look::SpaceM);
}

} // namespace

ChoiceButton::ChoiceButton(
    const QString &icon, const QString &text, const QString &explanation, QWidget *parent)
    : QAbstractButton(parent), m_icon(icon), m_explanation(explanation)
{
    setText(text);
    setAccessibleName(text);
    setAccessibleDescription(explanation);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ChoiceButton::sizeHint() const
{
    const QFontMetrics strong(look::font(look::Type::Strong, font()));
    const int texts = qMax(strong.horizontalAdvance(text()), fontMetrics().horizontalAdvance(m_explanation));
    const int height = strong.height() + KLiteStyle::dpiScaled(look::SpaceXS) + fontMetrics().height();
    return {beforeTexts() + texts + KLiteStyle::dpiScaled(look::SpaceM),
        height + 2 * KLiteStyle::dpiScaled(look::SpaceS)};
}

bool ChoiceButton::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

// Enter would press the default button of the dialog.
void ChoiceButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ChoiceButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    const bool active = underMouse() || isDown();
    painter.setPen(KSkin::color(KSkin::highContrast() ? KSkin::Color::ControlBorder : KSkin::Color::Border));
    painter.setBrush(KSkin::color(active ? KSkin::Color::Hover : KSkin::Color::Surface));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    const int side = KLiteStyle::dpiScaled(GlyphSide);
    const int margin = KLiteStyle::dpiScaled(look::SpaceM);
    const QFont strong = look::font(look::Type::Strong, font());
    const QFontMetrics strongMetrics(strong);
    const auto placed = [this](const QRect &place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    zel::paintGlyph(&painter, placed({margin, (height() - side) / 2, side, side}), m_icon,
        KSkin::color(KSkin::Color::Accent));
    const int width = this->width() - beforeTexts() - margin;
    const int top = KLiteStyle::dpiScaled(look::SpaceS);
    const auto line = [&](int y, const QFont &font, const QString &text, KSkin::Color color) {
        const QFontMetrics metrics(font);
        painter.setFont(font);
        painter.setPen(KSkin::color(color));
        painter.drawText(placed({beforeTexts(), y, width, metrics.height()}),
            int(Qt::AlignVCenter) | int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)),
            metrics.elidedText(text, Qt::ElideRight, width));
    };
    line(top, strong, text(), KSkin::Color::Text);
    line(top + strongMetrics.height() + KLiteStyle::dpiScaled(look::SpaceXS), font(), m_explanation,
        KSkin::Color::TextSecondary);
    zel::paintFocusRing(&painter, this, QRectF(rect()), radius);
}
