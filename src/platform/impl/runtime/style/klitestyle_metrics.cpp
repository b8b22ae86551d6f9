#include "klitestyle.h"

#include "klook.h"
#include "styleparts.h"

#include <QStyleOption>
#include <QWidget>

namespace look = zel::look;

namespace {

constexpr int ScrollBarExtent = 8;
constexpr int IndicatorSide = 18;
constexpr int FocusRoom = 5; // beside the text of a check box

// Design pixels; -1 leaves the metric to Fusion.
int designMetric(QStyle::PixelMetric metric)
{
    switch (metric) {
    case QStyle::PM_ScrollBarExtent:
        return ScrollBarExtent;
    case QStyle::PM_SmallIconSize: // also in fields
    case QStyle::PM_ButtonIconSize:
    case QStyle::PM_ListViewIconSize:
    case QStyle::PM_TabBarIconSize:
        return look::Glyph;
    case QStyle::PM_ScrollBarSliderMin:
        return 32;
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
    case QStyle::PM_ExclusiveIndicatorWidth:
    case QStyle::PM_ExclusiveIndicatorHeight:
        return IndicatorSide;
    case QStyle::PM_CheckBoxLabelSpacing:
    case QStyle::PM_RadioButtonLabelSpacing:
        return look::SpaceS;
    case QStyle::PM_MenuHMargin:
    case QStyle::PM_MenuVMargin:
        return look::SpaceXS;
    case QStyle::PM_ToolTipLabelFrameWidth:
        return 6;
    case QStyle::PM_LayoutLeftMargin:
    case QStyle::PM_LayoutTopMargin:
    case QStyle::PM_LayoutRightMargin:
    case QStyle::PM_LayoutBottomMargin:
        return look::SpaceM;
    case QStyle::PM_LayoutHorizontalSpacing:
    case QStyle::PM_LayoutVerticalSpacing:
        return look::SpaceS;
    case QStyle::PM_TabBarTabHSpace:
        return look::SpaceXL;
    case QStyle::PM_TabBarTabVSpace:
        return 14;
    case QStyle::PM_SliderThickness:
    case QStyle::PM_SliderControlThickness:
    case QStyle::PM_SliderLength:
        return IndicatorSide;
    case QStyle::PM_HeaderMargin:
        return 6;
    case QStyle::PM_FocusFrameHMargin: // beside the text of a row
        return 6;
    case QStyle::PM_ButtonMargin:
        return look::SpaceM;
    default:
        return -1;
    }
}

} // namespace

int KLiteStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ScrollView_ScrollBarSpacing:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical:
        return 0;
    case PM_MenuPanelWidth:
    case PM_DefaultFrameWidth:
        return 1;
    default:
        break;
    }
    const int design = designMetric(metric);
    return design >= 0 ? dpiScaled(design) : QProxyStyle::pixelMetric(metric, option, widget);
}

int KLiteStyle::styleHint(
    StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *returnData) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_ComboBox_Popup:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ScrollBar_Transient:
    case SH_ComboBox_AllowWheelScrolling: // it would change what the pointer passes while a page scrolls
        return 0;
    case SH_Menu_MouseTracking:
    case SH_ItemView_ShowDecorationSelected:
    case SH_ComboBox_ListMouseTracking:
        return 1;
    case SH_ToolTipLabel_Opacity:
        return 255;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize KLiteStyle::sizeFromContents(
    ContentsType type, const QStyleOption *option, const QSize &contents, const QWidget *widget) const
{
    if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        item && type == CT_MenuItem)
        return zel::style::menuItemSize(*item, contents);
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const QSize control(0, dpiScaled(look::ControlHeight));
    switch (type) {
    case CT_PushButton: {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        const bool hasText = button && !button->text.isEmpty();
        size.rwidth() += hasText ? dpiScaled(look::SpaceS) : 0;
        return size.expandedTo({hasText ? dpiScaled(look::MinButtonWidth) : 0, control.height()});
    }
    case CT_ComboBox:
        return QSize(size.width() + dpiScaled(20), size.height()).expandedTo(control);
    case CT_LineEdit: {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        return frame && frame->lineWidth > 0 ? size.expandedTo(control) : size;
    }
    case CT_SpinBox:
        return size.expandedTo(control);
    case CT_CheckBox:
    case CT_RadioButton:
        return size + QSize(dpiScaled(FocusRoom), 0);
    case CT_ItemViewItem:
        return size.expandedTo({0, dpiScaled(look::RowHeight)});
    default:
        return size;
    }
}

QRect KLiteStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    switch (element) {
    case SE_ProgressBarContents:
    case SE_ProgressBarGroove:
    case SE_ProgressBarLabel:
        if (const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(option))
            return zel::style::progressPart(*bar, element);
        break;
    case SE_CheckBoxFocusRect:
    case SE_RadioButtonFocusRect: // a ring that touched the letters would make them hard to read
        return QProxyStyle::subElementRect(element, option, widget)
            .adjusted(-dpiScaled(FocusRoom), 0, dpiScaled(FocusRoom), 0)
            .intersected(option->rect);
    case SE_LineEditContents: {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        const int margin = frame && frame->lineWidth > 0 ? dpiScaled(6) : 0;
        return QProxyStyle::subElementRect(element, option, widget).adjusted(margin, 0, -margin, 0);
    }
    default:
        break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect KLiteStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
    SubControl subControl, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && bar)
        return zel::style::scrollBarPart(*bar, subControl);
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control == CC_ComboBox && combo
        && (subControl == SC_ComboBoxArrow || subControl == SC_ComboBoxEditField))
        return zel::style::comboBoxPart(*combo, subControl);
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}
