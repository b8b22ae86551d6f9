#pragma once

#include <QFont>

/// The measures of the box's look; docs/look.md tells how they belong together. Lengths are design pixels for
/// KLiteStyle::dpiScaled(), times are milliseconds for KSkin::animationDuration().
namespace zel::look {

// Distances: multiples of four.
constexpr int SpaceXS = 4;  ///< between things that are one, such as a title and its subtitle
constexpr int SpaceS = 8;   ///< between neighbours
constexpr int SpaceM = 12;  ///< between groups; inside of controls
constexpr int SpaceL = 16;  ///< from the edge of a page or card to its content
constexpr int SpaceXL = 24; ///< from the edge of a dialog; between sections

// Corners.
constexpr qreal RadiusSmall = 4; ///< check boxes, rows of plain lists, menu items
constexpr qreal Radius = 6;      ///< buttons, fields, notices, navigation, rows of documents
constexpr qreal RadiusLarge = 8; ///< cards, popups

// Heights and widths.
constexpr int ControlHeight = 32; ///< buttons, fields, icon buttons (square)
constexpr int RowHeight = 28;     ///< rows of plain lists; menu items are as tall as controls
constexpr int SideRowHeight = 36; ///< rows of navigation
constexpr int MinButtonWidth = 80;
constexpr int DialogWidth = 420;   ///< of a dialog at least
constexpr int NoticeWidth = 560;   ///< of a notice at most
constexpr int ContentWidth = 1100; ///< of what a page shows at most; headers stand on the same edges

// Line icons, drawn on a grid of 24 with a stroke of 1.5: one pixel at the size they are meant for.
constexpr int Glyph = 16;
constexpr int GlyphLarge = 32; ///< alone in a card

// Lines.
constexpr qreal FocusWidth = 2; ///< of the focus ring; not scaled below this

// Grounds in a tone (chosen chip, notice): the tone's colour, this transparent, over Window or Surface.
constexpr qreal SoftTint = 0.10;
constexpr qreal SoftTintActive = 0.15; ///< under the pointer

// Motion.
constexpr int MotionFast = 100;  ///< a knob, a colour
constexpr int Motion = 180;      ///< something appears or changes its place inside a window
constexpr int MotionSlow = 260;  ///< a window slides
constexpr int NoticeTime = 6000; ///< a notice without a decision stays this long

/// The type scale, as factors of the application font (9 points).
enum class Type {
    Caption,  ///< 11 px: badges, group headers of lists
    Body,     ///< 12 px
    Strong,   ///< 12 px, demi-bold
    Subtitle, ///< 14 px, demi-bold: sections of a page
    Title,    ///< 16 px, demi-bold: heading of a page or dialog, empty states
    Display,  ///< 20 px, demi-bold: the box's name
};

constexpr qreal factorOf(Type type)
{
    switch (type) {
    case Type::Caption:
        return 11 / 12.0;
    case Type::Body:
    case Type::Strong:
        return 1;
    case Type::Subtitle:
        return 14 / 12.0;
    case Type::Title:
        return 16 / 12.0;
    case Type::Display:
        return 20 / 12.0;
    }
    return 1;
}

/// `base` (of body size) in another place of the scale.
inline QFont font(Type type, QFont base = QFont())
{
    if (base.pixelSize() > 0)
        base.setPixelSize(qRound(base.pixelSize() * factorOf(type)));
    else
        base.setPointSizeF(base.pointSizeF() * factorOf(type));
    if (type != Type::Caption && type != Type::Body)
        base.setWeight(QFont::DemiBold);
    return base;
}

} // namespace zel::look
