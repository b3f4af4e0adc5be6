#pragma once

#include "FrameCounter.h"
#include "SnapshotReader.h"
#include "WindowManagerLink.h"
#include "WindowState.h"

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
    /// Puts a window back to a frame that it had, whatever sizes it asks for, and into the state
    /// that it had there.
    [[nodiscard]] expected<WindowSnapshot, AXError> restore(xcb_window_t window,
        const WindowSnapshot &before, const Rect &frame, const std::optional<WindowState> &state);
    /// Where the window manager put the window when the last `place` made it leave its state.
    [[nodiscard]] std::optional<Rect> normalFrame() const { return m_normalFrame; }
    /// Why the last `place` or `restore` failed, where it can be told.
    [[nodiscard]] QString refusalDetail() const { return m_refusalDetail; }

private:
    void handle(const xcb_generic_event_t &event) override;
    [[nodiscard]] expected<WindowSnapshot, AXError> leaveState(
        xcb_window_t window, const WindowSnapshot &before);
    [[nodiscard]] bool hasDrawnItself(
        const WindowSnapshot &window, const Extents &shadowBefore) const;
    [[nodiscard]] Rect normalFrame(WindowSnapshot normal, const WindowSnapshot &drawn) const;
    using Condition = std::function<bool(const WindowSnapshot &)>;

    enum class StateChange : quint32 { remove = 0, add = 1 }; // _NET_WM_STATE's own numbers

    [[nodiscard]] expected<WindowSnapshot, AXError> placeOutOfState(
        xcb_window_t window, const WindowSnapshot &before, const Rect &frame);
    void changeState(xcb_window_t window, StateChange change, const WindowState &state);
    void send(xcb_window_t window, const Rect &request);
    [[nodiscard]] expected<WindowSnapshot, AXError> requested(
        xcb_window_t window, const WindowSnapshot &from, const Rect &frame);
    /// The same; an error where it stayed what it was.
    [[nodiscard]] expected<WindowSnapshot, AXError> moved(
        xcb_window_t window, const WindowSnapshot &from, const Rect &frame);
    void watch(xcb_window_t window);
    void stopWatching();
    /// `frame`: where to move it again when it has moved itself.
    [[nodiscard]] expected<WindowSnapshot, AXError> followClient(xcb_window_t window,
        WindowSnapshot current, const Condition &isDone, const std::optional<Rect> &frame);
    [[nodiscard]] expected<WindowSnapshot, AXError> settled(
        xcb_window_t window, const Condition &isDone);
    [[nodiscard]] expected<WindowSnapshot, AXError> read(xcb_window_t window);
    [[nodiscard]] AXError refuse(AXError error, const QString &detail);

    Connection &m_connection;
    WindowManagerLink &m_windowManager;
    FrameCounter m_frames;
    QString m_refusalDetail;
    std::optional<Rect> m_normalFrame;
    xcb_window_t m_watched = noWindow;
    bool m_disturbed = false; ///< since the watched window was read last
};

} // namespace corvane::x11
