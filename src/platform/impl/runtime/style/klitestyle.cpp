#include "klitestyle.h"

#include "krt/kapptranslators.h"
#include "kskin.h"
#include "stylepaint.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>

using Color = KSkin::Color;

namespace {

constexpr qreal DesignDpi = 96;
constexpr qreal FontPoints = 9;

void setDisabledColors(QPalette &palette, const QColor &text, const QColor &ground)
{
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText,
             QPalette::HighlightedText, QPalette::Link, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, ground);
}

// What Fusion derives shades of edges from, where it still draws.
void setEdgeColors(QPalette &palette, const QColor &border, const QColor &surface)
{
    palette.setColor(QPalette::Light, surface);
    palette.setColor(QPalette::Midlight, zel::style::mixed(surface, border, 0.5));
    palette.setColor(QPalette::Mid, border);
    palette.setColor(QPalette::Dark, zel::style::mixed(border, Qt::black, 0.25));
    palette.setColor(QPalette::Shadow, Qt::black);
}

// What shows first in a line also gives quotes and dots their width, which Chinese wants wide and Latin
// narrow. Both come before a family for which neither was drawn.
QStringList substitutes(const QString &language)
{
    const QStringList chinese{QStringLiteral("Microsoft YaHei UI"), QStringLiteral("Noto Sans CJK SC"),
        QStringLiteral("Source Han Sans SC"), QStringLiteral("Source Han Sans CN"),
        QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("WenQuanYi Zen Hei")};
    const QStringList latin{QStringLiteral("Noto Sans"), QStringLiteral("Open Sans"),
        QStringLiteral("Cantarell"), QStringLiteral("Ubuntu"), QStringLiteral("Liberation Sans")};
    const QStringList last{QStringLiteral("DejaVu Sans")};
    return language.startsWith(QLatin1String("zh")) ? chinese + latin + last : latin + chinese + last;
}

// On X11 the desktop puts the scale of texts into the dpi; a dpi forced upon Wayland stands for it, too.
qreal textScaleBesidesDpi()
{
    const qreal scale = KSkin::textScale();
    const bool inDpi = qFuzzyCompare(scale, 1) || QGuiApplication::platformName() == QLatin1String("xcb")
        || qEnvironmentVariableIntValue("QT_WAYLAND_FORCE_DPI") > 0;
    return inDpi ? 1 : scale;
}

} // namespace

QFont KLiteStyle::applicationFont()
{
    const QString family = QStringLiteral("Microsoft YaHei");
    QFont font(family);
    font.setFamilies(QStringList(family) + substitutes(krt::KAppTranslators::language()));
    font.setPointSizeF(FontPoints * textScaleBesidesDpi());
    return font;
}

KLiteStyle::KLiteStyle() : QProxyStyle(QStringLiteral("Fusion"))
{
    setObjectName(QStringLiteral("KLiteStyle"));
}

qreal KLiteStyle::dpiFactor()
{
    const QScreen *screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    // Whole dots: X servers derive the value from millimetres and tell 96.05 for 96.
    return screen ? qRound(screen->logicalDotsPerInch()) / DesignDpi * textScaleBesidesDpi() : 1;
}

int KLiteStyle::dpiScaled(int value)
{
    return qRound(dpiScaledF(value));
}

qreal KLiteStyle::dpiScaledF(qreal value)
{
    return value * dpiFactor();
}

QSize KLiteStyle::dpiScaledSize(const QSize &size)
{
    return {dpiScaled(size.width()), dpiScaled(size.height())};
}

QMargins KLiteStyle::dpiScaledMargins(const QMargins &margins)
{
    return {dpiScaled(margins.left()), dpiScaled(margins.top()), dpiScaled(margins.right()),
        dpiScaled(margins.bottom())};
}

QPalette KLiteStyle::palette(bool dark, bool highContrast)
{
    const auto color = [=](Color role) { return KSkin::color(role, dark, highContrast); };
    QPalette palette;
    palette.setColor(QPalette::Window, color(Color::Surface));
    palette.setColor(QPalette::Base, color(Color::Surface));
    palette.setColor(QPalette::AlternateBase, color(Color::Window));
    palette.setColor(QPalette::Button, color(Color::Hover));
    palette.setColor(QPalette::WindowText, color(Color::Text));
    palette.setColor(QPalette::Text, color(Color::Text));
    palette.setColor(QPalette::ButtonText, color(Color::Text));
    palette.setColor(QPalette::BrightText, color(Color::Badge));
    palette.setColor(QPalette::PlaceholderText, color(Color::TextSecondary));
    palette.setColor(QPalette::Highlight, color(Color::Accent));
    palette.setColor(QPalette::HighlightedText, color(Color::OnAccent));
    palette.setColor(QPalette::Link, color(Color::Accent));
    palette.setColor(QPalette::LinkVisited, color(Color::Accent));
    palette.setColor(QPalette::ToolTipBase, color(Color::Tip));
    palette.setColor(QPalette::ToolTipText, color(Color::OnTip));
    setEdgeColors(palette, color(Color::Border), color(Color::Surface));
    setDisabledColors(palette, color(Color::TextDisabled), color(Color::Border));
    return palette;
}

QPalette KLiteStyle::standardPalette() const
{
    return palette(KSkin::isDark(), KSkin::highContrast());
}

void KLiteStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (widget->inherits("QLineEdit") || widget->inherits("QScrollBar"))
        widget->setAttribute(Qt::WA_Hover);
    // The list of a combo box paints its rows by itself unless it is given the delegate that asks the style.
    auto *combo = qobject_cast<QComboBox *>(widget);
    if (combo && combo->itemDelegate()->inherits("QComboBoxDelegate"))
        combo->setItemDelegate(new QStyledItemDelegate(combo));
    // Only the handle is drawn; the page shows through around it.
    if (qobject_cast<QScrollBar *>(widget))
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
}
