#include "klitestyle.h"

#include "kskin.h"
#include "stylepaint.h"
#include "styleparts.h"

#include <QPainter>
#include <QStyleOption>

using namespace zel::style;
namespace look = zel::look;

namespace {

using Color = KSkin::Color;

Qt::ArrowType arrowOf(QStyle::PrimitiveElement element)
{
    switch (element) {
    case QStyle::PE_IndicatorArrowUp:
        return Qt::UpArrow;
    case QStyle::PE_IndicatorArrowLeft:
        return Qt::LeftArrow;
    case QStyle::PE_IndicatorArrowRight:
        return Qt::RightArrow;
    default:
        return Qt::DownArrow;
    }
}

// The label of a primary button in the colour that goes on the accent.
QStyleOptionButton onAccent(QStyleOptionButton option)
{
    if (isPrimary(option) && (option.state & QStyle::State_Enabled))
        option.palette.setColor(QPalette::ButtonText, KSkin::color(Color::OnAccent));
    return option;
}

// A selected row has a pale ground, so its text keeps the ordinary colour.
QStyleOptionViewItem withPlainText(QStyleOptionViewItem option)
{
    option.palette.setColor(QPalette::HighlightedText, KSkin::color(Color::Text));
    return option;
}

void drawBevel(
    const QProxyStyle &style, const QStyleOptionButton &option, QPainter *painter, const QWidget *w)
{
    drawPushButtonPanel(option, painter);
    if (!(option.features & QStyleOptionButton::HasMenu))
        return;
    const int side = style.pixelMetric(QStyle::PM_MenuButtonIndicator, &option, w);
    QRect place(
        option.rect.right() - side - KLiteStyle::dpiScaled(4), option.rect.top(), side, option.rect.height());
    place = QStyle::visualRect(option.direction, option.rect, place);
    const QColor color =
        isPrimary(option) ? KSkin::color(Color::OnAccent) : textColor(option, Color::TextSecondary);
    drawChevron(painter, place, Qt::DownArrow, color);
}

} // namespace

void KLiteStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_FrameFocusRect:
        if (option->state & State_KeyboardFocusChange)
            drawFocusRing(painter, option->rect, dpiScaledF(look::RadiusSmall), KSkin::color(Color::Accent));
        return;
    case PE_PanelButtonCommand:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option))
            return drawPushButtonPanel(*button, painter);
        return drawToolButtonPanel(*option, painter);
    case PE_PanelButtonTool:
    case PE_IndicatorButtonDropDown:
        return drawToolButtonPanel(*option, painter);
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return drawCheckIndicator(*option, painter);
    case PE_IndicatorRadioButton:
        return drawRadioIndicator(*option, painter);
    case PE_IndicatorArrowUp:
    case PE_IndicatorArrowDown:
    case PE_IndicatorArrowLeft:
    case PE_IndicatorArrowRight:
        return drawChevron(painter, option->rect, arrowOf(element), textColor(*option, Color::TextSecondary));
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option))
            return drawLineEdit(*frame, painter);
        break;
    case PE_Frame:
    case PE_FrameMenu:
        return drawFrame(*option, painter);
    case PE_IndicatorBranch:
        return drawBranch(*option, painter);
    case PE_PanelMenu:
        painter->fillRect(option->rect, KSkin::color(Color::Surface));
        return;
    case PE_PanelTipLabel:
        return drawTip(*option, painter);
    case PE_PanelItemViewRow:
        return; // the item panel shows selection and hover; the view draws alternating grounds itself
    case PE_PanelItemViewItem:
        return drawItemPanel(*option, painter, widget);
    case PE_PanelScrollAreaCorner:
    case PE_FrameTabWidget:
    case PE_FrameTabBarBase:
        return;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void KLiteStyle::drawControl(
    ControlElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
        if (element == CE_PushButton)
            return drawPushButton(*this, *button, painter, widget);
        if (element == CE_PushButtonBevel)
            return drawBevel(*this, *button, painter, widget);
        if (element == CE_PushButtonLabel) {
            const QStyleOptionButton label = onAccent(*button);
            return QProxyStyle::drawControl(element, &label, painter, widget);
        }
    } else if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option)) {
        if (element == CE_MenuItem)
            return drawMenuItem(*this, *item, painter, widget);
    } else if (const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(option)) {
        if (element == CE_ProgressBar)
            return drawProgressBar(*this, *bar, painter, widget);
        if (element == CE_ProgressBarGroove)
            return drawProgressGroove(*bar, painter);
        if (element == CE_ProgressBarContents)
            return drawProgressContents(*bar, painter, widget);
    } else if (const auto *tab = qstyleoption_cast<const QStyleOptionTab *>(option)) {
        if (element == CE_TabBarTabShape)
            return drawTab(*tab, painter);
    } else if (const auto *row = qstyleoption_cast<const QStyleOptionViewItem *>(option)) {
        if (element == CE_ItemViewItem && (row->state & State_Selected)) {
            const QStyleOptionViewItem plain = withPlainText(*row);
            return QProxyStyle::drawControl(element, &plain, painter, widget);
        }
    } else if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option)) {
        if (element == CE_ShapedFrame
            && (frame->frameShape == QFrame::HLine || frame->frameShape == QFrame::VLine))
            return drawRule(*frame, painter);
    }
    if (element == CE_HeaderSection || element == CE_HeaderEmptyArea)
        return drawHeaderSection(*option, painter);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void KLiteStyle::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option)) {
        if (control == CC_ScrollBar)
            return drawScrollBar(*this, *bar, painter, widget);
        if (control == CC_Slider)
            return drawSlider(*this, *bar, painter, widget);
    } else if (const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option)) {
        return drawComboBox(*combo, painter);
    } else if (const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option)) {
        return drawSpinBox(*this, *spin, painter, widget);
    } else if (const auto *tool = qstyleoption_cast<const QStyleOptionToolButton *>(option)) {
        QStyleOptionToolButton unfocused = *tool;
        unfocused.state.setFlag(State_HasFocus, false);
        QProxyStyle::drawComplexControl(control, &unfocused, painter, widget);
        if (showsKeyboardFocus(*tool))
            drawFocusRing(painter, tool->rect, dpiScaledF(look::Radius), KSkin::color(Color::Accent));
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}
