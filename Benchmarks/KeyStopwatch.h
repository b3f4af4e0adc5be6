#pragma once

#include "KeyPresser.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// Presses keys and times one window's arrival at its new place, on a connection of its own.
class KeyStopwatch
{
public:
    KeyStopwatch(desktop::VirtualDesktop &desktop, xcb_window_t window);

    /// Milliseconds from the key going down to the notice of a change after which the client window
    /// is at `client`; nothing when none came within a second.
    [[nodiscard]] std::optional<double> time(const desktop::KeyStroke &stroke, const Rect &client);

private:
    using Clock = std::chrono::steady_clock;

    /// Takes one notice of a change of the window's geometry, if there is one.
    [[nodiscard]] bool wasNoticed();

    xcb_window_t m_window;
    desktop::XConnection m_connection;
    desktop::KeyPresser m_keyboard;
    desktop::WindowProbe m_probe;
};

} // namespace corvane::bench
