#include "kskin.h"

namespace {

struct Shade
{
    QRgb light;
    QRgb dark;
};

// In the order of KSkin::Color; cool greys and one blue.
constexpr Shade Shades[KSkin::ColorCount] = {
    {0xfff4f6f9, 0xff191b1f}, // Window
    {0xffffffff, 0xff212429}, // Surface
    {0xffedf0f5, 0xff2b2f36}, // Hover
    {0xffdfe9fb, 0xff29395a}, // Selected
    {0xffdde1e8, 0xff383d46}, // Border
    {0xff1d2129, 0xffe7e9ee}, // Text
    {0xff575f6d, 0xffaab1bf}, // TextSecondary
    {0xff9aa2af, 0xff6d7583}, // TextDisabled
    {0xff2459c9, 0xff82aeff}, // Accent
    {0xffffffff, 0xff0d1a35}, // OnAccent
    {0xffc42b2f, 0xffff8580}, // Badge
    {0xffffffff, 0xff2d0806}, // OnBadge
    {0x33101828, 0x80000000}, // Shadow
};

} // namespace

QColor KSkin::color(Color role, bool dark)
{
    const Shade &shade = Shades[int(role)];
    return QColor::fromRgba(dark ? shade.dark : shade.light);
}

QColor KSkin::color(Color role)
{
    return color(role, isDark());
}
