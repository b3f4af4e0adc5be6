#pragma once

#include "KeyPresser.h"

namespace corvane::bench {

/// The key as X requests name it, on the virtual desktop's keyboard.
struct GrabbedKey {
    explicit GrabbedKey(const desktop::KeyStroke &stroke);

    quint8 keycode = 0;
    quint16 modifiers = 0;
};

/// Whether some other client holds a grab of the key, found out by trying to grab it.
[[nodiscard]] bool isGrabbed(desktop::XConnection &connection, const desktop::KeyStroke &stroke);

} // namespace corvane::bench
