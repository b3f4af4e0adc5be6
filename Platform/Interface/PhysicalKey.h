#pragma once

#include <QtCore/QtGlobal>

#include <optional>

namespace corvane {

/// One key of a keyboard, whatever its layout makes of it, by the numbers that it goes by.
struct PhysicalKey {
    quint16 virtualKeyCode = 0; ///< macOS (kVK numbering)
    quint16 evdevCode = 0; ///< Linux (input-event-codes.h), and of Wayland's keyboard events

    /// Of X11's keyboard events, and of Qt's native scan codes on X11 and Wayland.
    [[nodiscard]] constexpr quint32 xkbKeycode() const { return evdevCode + xkbOffset; }

    [[nodiscard]] static std::optional<PhysicalKey> withVirtualKeyCode(quint16 code);
    [[nodiscard]] static std::optional<PhysicalKey> withEvdevCode(quint32 code);
    [[nodiscard]] static std::optional<PhysicalKey> withXkbKeycode(quint32 keycode);

private:
    static constexpr quint32 xkbOffset = 8;
};

} // namespace corvane
