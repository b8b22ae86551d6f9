#pragma once

#include <QRect>
#include <QSize>
#include <QStyle>

class QPainter;
class QProxyStyle;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionFrame;
class QStyleOptionHeader;
class QStyleOptionMenuItem;
class QStyleOptionProgressBar;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionTab;
class QStyleOptionToolButton;
class QWidget;

/// The drawing of single controls, called by KLiteStyle. `style` is that object, for what a part hands back
/// to it.
namespace zel::style {

// styleparts_buttons.cpp
void drawPushButton(
    const QProxyStyle &style, const QStyleOptionButton &option, QPainter *painter, const QWidget *w);
void drawPushButtonPanel(const QStyleOptionButton &option, QPainter *painter);
void drawToolButtonPanel(const QStyleOption &option, QPainter *painter);
bool isPrimary(const QStyleOptionButton &option); ///< the default button of its window
void drawCheckIndicator(const QStyleOption &option, QPainter *painter);
void drawRadioIndicator(const QStyleOption &option, QPainter *painter);

// styleparts_fields.cpp
void drawLineEdit(const QStyleOptionFrame &option, QPainter *painter);
void drawComboBox(const QStyleOptionComboBox &option, QPainter *painter);
QRect comboBoxPart(const QStyleOptionComboBox &option, QStyle::SubControl part); ///< field and arrow only
void drawSpinBox(
    const QProxyStyle &style, const QStyleOptionSpinBox &option, QPainter *painter, const QWidget *w);

// styleparts_scrollbar.cpp
void drawScrollBar(
    const QProxyStyle &style, const QStyleOptionSlider &option, QPainter *painter, const QWidget *w);
QRect scrollBarPart(const QStyleOptionSlider &option, QStyle::SubControl part);
void drawSlider(
    const QProxyStyle &style, const QStyleOptionSlider &option, QPainter *painter, const QWidget *w);

// styleparts_menu.cpp
void drawMenuItem(
    const QProxyStyle &style, const QStyleOptionMenuItem &option, QPainter *painter, const QWidget *w);
QSize menuItemSize(const QStyleOptionMenuItem &option, const QSize &contents);

// styleparts_progress.cpp
void drawProgressGroove(const QStyleOptionProgressBar &option, QPainter *painter);
void drawProgressContents(const QStyleOptionProgressBar &option, QPainter *painter, const QWidget *w);
void drawProgressBar(
    const QProxyStyle &style, const QStyleOptionProgressBar &option, QPainter *painter, const QWidget *w);
QRect progressPart(const QStyleOptionProgressBar &option, QStyle::SubElement part);

// styleparts_views.cpp
void drawItemPanel(const QStyleOption &option, QPainter *painter, const QWidget *w);
void drawTab(const QStyleOptionTab &option, QPainter *painter);
void drawHeaderSection(const QStyleOption &option, QPainter *painter);
void drawFrame(const QStyleOption &option, QPainter *painter);
void drawBranch(const QStyleOption &option, QPainter *painter);    ///< the mark of a tree row with children
void drawRule(const QStyleOptionFrame &option, QPainter *painter); ///< QFrame::HLine and VLine
void drawTip(const QStyleOption &option, QPainter *painter);

} // namespace zel::style
