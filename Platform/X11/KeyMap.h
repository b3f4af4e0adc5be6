#pragma once

#include "Connection.h"

#include <QtCore/QString>

#include <optional>

namespace corvane::x11 {

/// The X keycode (evdev code + 8) of a macOS virtual key code's physical key.
[[nodiscard]] std::optional<xcb_keycode_t> keycodeFor(quint16 virtualKeyCode);

/// The modifier bits that the keyboard maps to the keys of these names; 0 where it has none.
struct ModifierBits {
    quint16 alt = 0;
    quint16 super = 0;
    quint16 numLock = 0;

    bool operator==(const ModifierBits &) const = default;
};

[[nodiscard]] ModifierBits readModifierBits(Connection &connection);
/// Whether the keyboard has the key.
[[nodiscard]] bool hasKey(Connection &connection, xcb_keycode_t keycode);
/// The letter or sign that the key types on the keyboard's first layout, as it is printed on a cap. Empty
/// for a key that types none of the Latin script.
[[nodiscard]] QString labelOf(Connection &connection, xcb_keycode_t keycode);

} // namespace corvane::x11
