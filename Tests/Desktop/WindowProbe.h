#pragma once

#include "Rect.h"
#include "Waiting.h"
#include "XConnection.h"

#include <functional>
#include <optional>
#include <xcb/xcb.h>

namespace corvane::desktop {

/// Reads windows and displays independently of the program under test. Pixels of the root window.
class WindowProbe
{
public:
    explicit WindowProbe(XConnection &connection);

    /// What a person sees of the window: decorations included, client-side shadows excluded.
    [[nodiscard]] std::optional<Rect> visibleFrame(xcb_window_t window);
    /// The client window alone, without decorations.
    [[nodiscard]] std::optional<Rect> clientGeometry(xcb_window_t window);
    /// The visible frame once it has stopped changing.
    [[nodiscard]] std::optional<Rect> settledFrame(xcb_window_t window);
    [[nodiscard]] bool waitForFrame(
        xcb_window_t window, const Rect &frame, Milliseconds deadline = patience);

    [[nodiscard]] bool hasState(xcb_window_t window, const QByteArray &state);
    [[nodiscard]] bool isMinimized(xcb_window_t window);
    [[nodiscard]] bool isViewable(xcb_window_t window);
    /// On the window manager's list of clients, and shown.
    [[nodiscard]] bool isManaged(xcb_window_t window);
    [[nodiscard]] xcb_window_t activeWindow();
    [[nodiscard]] QList<xcb_window_t> clients();
    /// Bottom to top.
    [[nodiscard]] QList<xcb_window_t> stacking();

    /// The newest managed window that satisfies the condition; 0 when none came in time.
    [[nodiscard]] xcb_window_t waitForWindow(
        const std::function<bool(xcb_window_t)> &condition, Milliseconds deadline = patience);
    [[nodiscard]] bool hasClass(xcb_window_t window, const QByteArray &name);
    [[nodiscard]] bool hasProcess(xcb_window_t window, pid_t pid);

    /// In the order in which the server lists them, the primary one first.
    [[nodiscard]] QList<Rect> monitors();
    /// Empty while no window manager runs.
    [[nodiscard]] QString windowManagerName();

private:
    std::optional<Rect> onRoot(xcb_window_t window);
    std::optional<xcb_window_t> topLevelOf(xcb_window_t window);

    XConnection &m_connection;
};

} // namespace corvane::desktop
