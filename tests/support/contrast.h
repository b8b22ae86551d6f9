#pragma once

#include <cmath>

/// Contrast of two opaque colours, 1 to 21, as the Web Content Accessibility Guidelines 2.1 define it.
inline double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double v) {
            return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
            + 0.0722 * linear(color.blueF());
    };
    const double x = luminance(a);
    const double y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}
