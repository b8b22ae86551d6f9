#include "lists/ui/columnheading.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "lists/ui/listsortmenu.h"
#include "widgets/focusring.h"
#include "widgets/rowpaint.h"

#include <QEvent>
#include <QPainter>

namespace look = zel::look;

static int arrowSize()
{
    return KLiteStyle::dpiScaled(12);
}

ColumnHeading::ColumnHeading(zel::ListSort::Key key, const QString &title, QWidget *parent)
    : QAbstractButton(parent), m_key(key)
{
    setText(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

int ColumnHeading::sidePadding()
{
    return KLiteStyle::dpiScaled(look::SpaceS);
}

void ColumnHeading::setSorted(bool sorted, Qt::SortOrder order)
{
    m_sorted = sorted;
    m_order = order;
    const QString words = ListSortMenu::orderText({m_key, order});
    setAccessibleDescription(sorted ? words : QString());
    setToolTip(sorted ? words : QString());
    update();
}

void ColumnHeading::setAtEnd(bool atEnd)
{
    m_atEnd = atEnd;
    update();
}

QSize ColumnHeading::sizeHint() const
{
    const QFontMetrics metrics(look::font(look::Type::Caption, font()));
    return {metrics.horizontalAdvance(text()) + arrowSize() + 3 * sidePadding(),
        metrics.height() + KLiteStyle::dpiScaled(look::SpaceS)};
}

bool ColumnHeading::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void ColumnHeading::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hovered = underMouse() || isDown();
    if (hovered)
        zel::paintButtonVeil(&painter, rect(), isDown());
    QFont font = look::font(look::Type::Caption, this->font());
    if (m_sorted)
        font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    const QColor color = KSkin::color(m_sorted || hovered ? KSkin::Color::Text : KSkin::Color::TextSecondary);
    painter.setPen(color);
    const QFontMetrics metrics = painter.fontMetrics();
    const QRect inner = rect().adjusted(sidePadding(), 0, -sidePadding(), 0);
    const int side = arrowSize();
    const int arrowRoom = m_sorted ? side + KLiteStyle::dpiScaled(look::SpaceXS) : 0;
    const QString shown = metrics.elidedText(text(), Qt::ElideRight, inner.width() - arrowRoom);
    const int width = metrics.horizontalAdvance(shown);
    // At the end the arrow stands before the text, so that the text ends where the numbers do.
    const int left = m_atEnd ? inner.right() + 1 - width : inner.left();
    zel::paintTextLine(&painter, {left, 0, width, height()}, metrics, shown);
    if (m_sorted) {
        const int x = m_atEnd ? left - arrowRoom : left + width + arrowRoom - side;
        const bool up = m_order == Qt::AscendingOrder;
        zel::paintGlyph(&painter, {x, (height() - side) / 2, side, side},
            up ? QStringLiteral(":/icons_svg/row_ascending.svg")
               : QStringLiteral(":/icons_svg/row_descending.svg"),
            color);
    }
    zel::paintFocusRing(&painter, this, QRectF(rect()), KLiteStyle::dpiScaledF(look::RadiusSmall));
}
