#include "kskin.h"

namespace {

struct Shade
{
    QRgb light;
    QRgb dark;
    QRgb lightContrast;
    QRgb darkContrast;
};

// In the order of KSkin::Color; cool greys and one blue. tst_palette measures every pair that is used.
constexpr Shade Shades[KSkin::ColorCount] = {
    {0xfff4f6f9, 0xff191b1f, 0xffffffff, 0xff000000}, // Window
    {0xffffffff, 0xff212429, 0xffffffff, 0xff000000}, // Surface
    {0xffedf0f5, 0xff2b2f36, 0xffe9edf4, 0xff23272e}, // Hover
    {0xffdfe9fb, 0xff29395a, 0xffd3e2fd, 0xff14305e}, // Selected
    {0xffdde1e8, 0xff383d46, 0xff5f6773, 0xffa3aab6}, // Border
    {0xff1d2129, 0xffe7e9ee, 0xff000000, 0xffffffff}, // Text
    {0xff575f6d, 0xffaab1bf, 0xff2c323c, 0xffdde1e8}, // TextSecondary
    {0xff9aa2af, 0xff6d7583, 0xff5f6773, 0xffa3aab6}, // TextDisabled
    {0xff2459c9, 0xff82aeff, 0xff0a3a9c, 0xffa8c9ff}, // Accent
    {0xffffffff, 0xff0d1a35, 0xffffffff, 0xff000000}, // OnAccent
    {0xffc42b2f, 0xffff8580, 0xff8c0d12, 0xffffb8b3}, // Badge
    {0xffffffff, 0xff2d0806, 0xffffffff, 0xff000000}, // OnBadge
    {0x33101828, 0x80000000, 0x66000000, 0xff000000}, // Shadow
    {0xff7c8593, 0xff7f8898, 0xff2c323c, 0xffdde1e8}, // ControlBorder
    {0xff2a2f38, 0xff3a404a, 0xff000000, 0xff23272e}, // Tip
    {0xfff2f4f7, 0xfff2f4f7, 0xffffffff, 0xffffffff}, // OnTip
};

} // namespace

QColor KSkin::color(Color role, bool dark, bool highContrast)
{
    const Shade &shade = Shades[int(role)];
    if (highContrast)
        return QColor::fromRgba(dark ? shade.darkContrast : shade.lightContrast);
    return QColor::fromRgba(dark ? shade.dark : shade.light);
}

QColor KSkin::color(Color role)
{
    return color(role, isDark(), highContrast());
}
