#pragma once

#include "SnapshotReader.h"
#include "WindowManagerLink.h"

namespace corvane::x11 {

/// Brings a window's visible frame to a rectangle, whatever state the window is in, by the requests
/// that every EWMH window manager follows to the pixel.
class WindowPlacer final : private EventSink
{
public:
    WindowPlacer(Connection &connection, WindowManagerLink &windowManager);
    ~WindowPlacer();
    Q_DISABLE_COPY_MOVE(WindowPlacer)

    /// Returns once the window manager has acted, with the window as it then is. `before` is the
    /// window as it is now; a maximised or full-screen window leaves that state first.
    [[nodiscard]] expected<WindowSnapshot, AXError> place(
        xcb_window_t window, const WindowSnapshot &before, const Rect &frame);
    /// Sends a window on its way that needs no more than one request, and waits for nothing. Whether
    /// it sent one.
    [[nodiscard]] bool sendAhead(
        xcb_window_t window, const WindowSnapshot &before, const Rect &frame);
    /// Why the last `place` failed, where it can be told.
    [[nodiscard]] QString refusalDetail() const { return m_refusalDetail; }

private:
    void handle(const xcb_generic_event_t &event) override;
    [[nodiscard]] static bool isAt(const WindowSnapshot &window, const Rect &frame);

    enum class StateChange : quint32 { remove = 0, add = 1 }; // _NET_WM_STATE's own numbers

    [[nodiscard]] expected<WindowSnapshot, AXError> placeOutOfState(
        xcb_window_t window, const WindowSnapshot &before, const Rect &frame);
    void changeMaximized(xcb_window_t window, StateChange change);
    void leaveState(xcb_window_t window, const WindowSnapshot &snapshot);
    void send(xcb_window_t window, const Rect &request);
    [[nodiscard]] expected<WindowSnapshot, AXError> moved(
        xcb_window_t window, const WindowSnapshot &from, const Rect &frame);
    void watch(xcb_window_t window, const WindowSnapshot &snapshot);
    void stopWatching();
    [[nodiscard]] expected<WindowSnapshot, AXError> followClient(
        xcb_window_t window, WindowSnapshot current, const Rect &frame);
    [[nodiscard]] expected<WindowSnapshot, AXError> settled(
        xcb_window_t window, const std::function<bool(const WindowSnapshot &)> &isDone);
    [[nodiscard]] expected<WindowSnapshot, AXError> look(xcb_window_t window);
    [[nodiscard]] AXError refuse(AXError error, const QString &detail);

    Connection &m_connection;
    WindowManagerLink &m_windowManager;
    QString m_refusalDetail;
    xcb_window_t m_watched = noWindow;
    bool m_disturbed = false; ///< since the last look at the watched window
};

} // namespace corvane::x11
