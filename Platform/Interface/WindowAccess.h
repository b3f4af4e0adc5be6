#pragma once

#include "AXError.h"
#include "Expected.h"
#include "Rect.h"
#include "WindowElement.h"
#include "WindowState.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <optional>
#include <sys/types.h>

namespace corvane {

/// A window that can be seen now: not minimised, hidden or on another workspace.
struct OnScreenWindow {
    pid_t pid = 0;
    Rect bounds; ///< as `WindowAccess::frame` tells it

    bool operator==(const OnScreenWindow &) const = default;
};

/// Where a window is to go.
struct WindowMove {
    WindowElement window;
    Rect frame;

    bool operator==(const WindowMove &) const = default;
};

/// Other applications' windows. Every call is synchronous and bounded by the messaging timeout.
/// Notices arrive on the main thread, never from inside a call.
class WindowAccess : public QObject
{
    Q_OBJECT

public:
    struct Focused {
        std::optional<WindowElement> window;
        pid_t pid = 0;
        AXError status = AXError::success;
    };

    /// Whether the desktop lets us move windows now.
    [[nodiscard]] virtual bool isTrusted() = 0;
    /// Why windows cannot be moved now, as one sentence for the user; empty while they can.
    [[nodiscard]] virtual QString distrustReason() = 0;
    virtual void setMessagingTimeout(double seconds) = 0;
    /// Whether windows that the desktop's own layout places stay where they are, or leave it for a
    /// move. Where the desktop lets them not leave it, they stay.
    virtual void setTiledWindowsStay(bool) { }

    /// The window that has the focus. None while a panel or the desktop itself has it.
    [[nodiscard]] virtual Focused focusedWindow() = 0;
    /// The application's windows on this workspace, front to back, of every kind. None without trust;
    /// an error only from an application that does not answer.
    [[nodiscard]] virtual expected<QList<WindowElement>, AXError> windows(pid_t pid) = 0;
    /// The windows of every application that can be seen now, of every kind but desktops, front to
    /// back.
    [[nodiscard]] virtual QList<OnScreenWindow> onScreenWindows() = 0;

    /// The rectangle that a person sees of the window: with its decoration, without a shadow that
    /// the application draws.
    [[nodiscard]] virtual expected<Rect, AXError> frame(const WindowElement &window) = 0;
    [[nodiscard]] virtual expected<QString, AXError> title(const WindowElement &window) = 0;
    [[nodiscard]] virtual expected<bool, AXError> isFullScreen(const WindowElement &window) = 0;
    [[nodiscard]] virtual expected<bool, AXError> isMinimized(const WindowElement &window) = 0;
    /// Whether it is a managed top-level window of any kind but panel and desktop.
    [[nodiscard]] virtual expected<bool, AXError> isWindow(const WindowElement &window) = 0;
    /// Whether it is an application's ordinary window: no dialog, utility, splash screen or
    /// notification.
    [[nodiscard]] virtual expected<bool, AXError> isStandard(const WindowElement &window) = 0;

    /// Moves or resizes the visible frame. Inside an operation a size may be held back until the
    /// position is set, the window is read, or the operation ends. A window may constrain what it is
    /// given, and may do so later than the call: read the frame to know what it took.
    [[nodiscard]] virtual AXError setPosition(const WindowElement &window, Point origin) = 0;
    [[nodiscard]] virtual AXError setSize(const WindowElement &window, Size size) = 0;
    /// Whether the window's own limits explain why it is not of this size, so that waiting brings
    /// it no closer. False while it may still follow, and where the desktop cannot tell.
    [[nodiscard]] virtual bool isFinal(const WindowElement &, Size) { return false; }
    /// Why the desktop refused the last write to this window, where it can tell; else empty.
    [[nodiscard]] virtual QString refusalDetail(const WindowElement &window) = 0;

    /// The state that the window was in before the running operation wrote to it. None for a plain
    /// window, and on a desktop that cannot tell.
    [[nodiscard]] virtual std::optional<WindowState> endedState(const WindowElement &) const
    {
        return std::nullopt;
    }
    /// Puts the window back to a frame that it had, whatever sizes it asks for, and into the state
    /// that it had there, if any. A failure where the desktop cannot.
    [[nodiscard]] virtual AXError restore(
        const WindowElement &, const Rect &, const std::optional<WindowState> &)
    {
        return AXError::failure;
    }

    virtual void raise(const WindowElement &window) = 0;
    /// Makes the window its application's main and focused one.
    virtual void makeMain(const WindowElement &window) = 0;
    /// Brings the application forward, with whatever windows the desktop takes along.
    virtual void bringForward(pid_t pid) = 0;
    /// Brings only this window forward and focuses it. False where the desktop has no way to. Inside
    /// an operation the focus may wait for its end, and go to the last window alone.
    virtual bool bringToFrontAlone(const WindowElement &window) = 0;

    /// Asks for `windowCreated` notices of this process.
    [[nodiscard]] virtual AXError observe(pid_t pid) = 0;
    virtual void stopObserving(pid_t pid) = 0;

    /// Begins and ends an operation, inside which reads of a window may share one answer and writes
    /// may be merged. Operations nest.
    virtual void beginOperation() { }
    virtual void endOperation() { }
    /// Only inside an operation: has the next read of the window ask the desktop again.
    virtual void readAnew(const WindowElement &) { }
    /// Only inside an operation: reads all there is to know of these applications' windows, titles
    /// included, in one go, so that no read of them has to wait until the operation ends.
    virtual void readAhead(const QList<pid_t> &) { }
    /// Only inside an operation: sends the windows on their way all together, those apart that take
    /// more than a move (full screen, maximised, tiled). A hint that settles nothing: each is written
    /// to afterwards, which is quick where it has arrived.
    virtual void moveAhead(const QList<WindowMove> &) { }

Q_SIGNALS:
    void windowCreated(const corvane::WindowElement &window, pid_t pid);
    void windowClosed(const corvane::WindowElement &window);
    void trustChanged(bool trusted);
};

/// Everything between construction and destruction belongs to one operation.
class WindowOperation final
{
public:
    explicit WindowOperation(WindowAccess &windows) : m_windows(windows)
    {
        m_windows.beginOperation();
    }
    ~WindowOperation() { m_windows.endOperation(); }
    Q_DISABLE_COPY_MOVE(WindowOperation)

private:
    WindowAccess &m_windows;
};

} // namespace corvane
