#include "styleparts.h"

#include "klitestyle.h"
#include "stylepaint.h"

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace zel::style {
namespace {

constexpr int ComboArrowWidth = 28;
constexpr int ComboTextMargin = 8;

} // namespace

void drawLineEdit(const QStyleOptionFrame &option, QPainter *painter)
{
    if (option.lineWidth > 0)
        drawField(painter, option, true);
    else
        painter->fillRect(option.rect, option.palette.brush(QPalette::Base));
}

void drawComboBox(const QStyleOptionComboBox &option, QPainter *painter)
{
    if (option.frame)
        drawField(painter, option, option.editable);
    else
        fillRounded(painter, option.rect, KLiteStyle::dpiScaledF(look::Radius), overlayFor(option));
    if (option.subControls & QStyle::SC_ComboBoxArrow) {
        const QRect arrow = comboBoxPart(option, QStyle::SC_ComboBoxArrow);
        drawChevron(painter, arrow, Qt::DownArrow, textColor(option, KSkin::Color::TextSecondary));
    }
}

QRect comboBoxPart(const QStyleOptionComboBox &option, QStyle::SubControl part)
{
    const int arrowWidth = KLiteStyle::dpiScaled(ComboArrowWidth);
    QRect rect = option.rect;
    if (part == QStyle::SC_ComboBoxArrow)
        rect.setLeft(rect.right() - arrowWidth + 1);
    else
        rect.adjust(KLiteStyle::dpiScaled(ComboTextMargin), 2, -arrowWidth, -2);
    return QStyle::visualRect(option.direction, option.rect, rect);
}

void drawSpinBox(
    const QProxyStyle &style, const QStyleOptionSpinBox &option, QPainter *painter, const QWidget *w)
{
    if (option.frame)
        drawField(painter, option, true);
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    const auto drawStep = [&](QStyle::SubControl part, Qt::ArrowType arrow,
                              QAbstractSpinBox::StepEnabledFlag flag) {
        const QRect rect = style.subControlRect(QStyle::CC_SpinBox, &option, part, w);
        QStyleOption step(option);
        step.state.setFlag(
            QStyle::State_Enabled, (option.state & QStyle::State_Enabled) && (option.stepEnabled & flag));
        const bool active = option.activeSubControls & part;
        if (active && (step.state & QStyle::State_Enabled))
            fillRounded(painter, rect.adjusted(1, 1, -1, -1), KLiteStyle::dpiScaledF(look::RadiusSmall),
                overlayFor(option));
        drawChevron(painter, rect, arrow, textColor(step, KSkin::Color::TextSecondary));
    };
    drawStep(QStyle::SC_SpinBoxUp, Qt::UpArrow, QAbstractSpinBox::StepUpEnabled);
    drawStep(QStyle::SC_SpinBoxDown, Qt::DownArrow, QAbstractSpinBox::StepDownEnabled);
}

} // namespace zel::style
