#pragma once

#include "KeyPresser.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// Presses keys and times many windows' arrival at their new places, on a connection of its own.
class LayoutStopwatch
{
public:
    /// Whoever moves the windows is to bring them forward in this order.
    LayoutStopwatch(desktop::VirtualDesktop &desktop, const QList<xcb_window_t> &windows);

    /// Milliseconds from the key going down until the last window has come forward, as the window
    /// manager does in its turn after everything that it was told before. Nothing when that did not
    /// happen, or when then not every client window was at its place.
    [[nodiscard]] std::optional<double> time(
        const desktop::KeyStroke &stroke, const QList<Rect> &clients);

private:
    using Clock = std::chrono::steady_clock;

    /// Puts the first window in front, so that the last one has to come forward.
    [[nodiscard]] bool prepare();
    [[nodiscard]] bool stand(const QList<Rect> &clients);
    /// Takes one notice that the active window has changed, if there is one.
    [[nodiscard]] bool wasNoticed();

    QList<xcb_window_t> m_windows;
    desktop::XConnection m_connection;
    desktop::KeyPresser m_keyboard;
    desktop::WindowProbe m_probe;
    xcb_atom_t m_activeWindow;
};

} // namespace corvane::bench
