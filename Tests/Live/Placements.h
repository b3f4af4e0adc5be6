#pragma once

#include "KeyPresser.h"
#include "Rect.h"

#include <QtCore/QString>

#include <span>

namespace corvane::desktop {

/// A placement that stands for a part of the display, and the shortcut that it has from the start.
struct Region {
    QStringView placement;
    Rect unit; ///< fractions of the visible area
    KeyStroke stroke{0, Key::enter}; ///< without modifiers where the placement has no shortcut

    [[nodiscard]] bool hasShortcut() const { return stroke.modifiers != 0; }
    [[nodiscard]] QString name() const { return placement.toString(); }
};

/// In an order in which no press continues the cycle of the one before.
[[nodiscard]] std::span<const Region> regions();
[[nodiscard]] const Region &region(QStringView placement);
[[nodiscard]] Rect frameOf(const Region &region, const Rect &area);

[[nodiscard]] Rect centredIn(const Rect &area, const Rect &frame);
/// Grown by so many pixels on both axes about its centre, but neither beyond the area nor out of it.
[[nodiscard]] Rect grownIn(const Rect &area, const Rect &frame, double pixels);

namespace strokes {
inline constexpr quint8 hyper = KeyStroke::control | KeyStroke::alt | KeyStroke::super;
inline constexpr quint8 shifted = KeyStroke::control | KeyStroke::alt | KeyStroke::shift;
inline constexpr quint8 plain = KeyStroke::control | KeyStroke::alt;
inline constexpr KeyStroke leftHalf{hyper, Key::left};
inline constexpr KeyStroke rightHalf{hyper, Key::right};
inline constexpr KeyStroke maximize{hyper, Key::m};
inline constexpr KeyStroke center{hyper, Key::c};
inline constexpr KeyStroke snapBack{hyper, Key::slash};
inline constexpr KeyStroke original{hyper, Key::o};
inline constexpr KeyStroke nextDisplay{plain, Key::right};
inline constexpr KeyStroke previousDisplay{plain, Key::left};
inline constexpr KeyStroke larger{plain, Key::equal};
inline constexpr KeyStroke smaller{plain, Key::minus};
} // namespace strokes

} // namespace corvane::desktop
