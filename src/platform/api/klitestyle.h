#pragma once

#include "zelplatform_export.h"

#include <QFont>
#include <QMargins>
#include <QPalette>
#include <QProxyStyle>
#include <QSize>

/// The suite's widget style (over Fusion): flat buttons, thin scroll bars, a visible focus ring, colours from
/// KSkin. GUI thread.
class ZELPLATFORM_EXPORT KLiteStyle : public QProxyStyle
{
    Q_OBJECT
public:
    KLiteStyle();

    /// Design sizes are for 96 dpi; these scale them by dpiFactor() and round to whole device-independent
    /// pixels.
    /// Logical dpi of the primary screen / 96, times the desktop's text scale where the dpi does not hold it
    /// already (Wayland). 1 without a screen. May change, see KSkin::metricsChanged().
    static qreal dpiFactor();
    static int dpiScaled(int value);
    static qreal dpiScaledF(qreal value);
    static QSize dpiScaledSize(const QSize &size);
    static QMargins dpiScaledMargins(const QMargins &margins);

    /// The skin's colours as a palette: Window and Base are KSkin's Surface, AlternateBase is KSkin's Window.
    static QPalette palette(bool dark, bool highContrast = false);

    /// "Microsoft YaHei" of 9 points (times the text scale where the dpi does not hold it), with other
    /// sans-serifs for where the family is not installed: for Chinese texts those that cover Latin and
    /// Chinese alike come first, else Latin ones, whose quotes are narrow. Once it is the application's font
    /// (QApplication::setFont), it follows changes of scale by itself.
    static QFont applicationFont();

    QPalette standardPalette() const override;
    void polish(QWidget *widget) override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
        const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl subControl,
        const QWidget *widget) const override;
    QRect subElementRect(
        SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
        const QWidget *widget) const override;

    using QProxyStyle::polish;
};
