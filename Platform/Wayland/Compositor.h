#pragma once

#include "AXError.h"
#include "Expected.h"
#include "Toplevel.h"
#include "WindowAccess.h"

#include <chrono>

namespace corvane::wayland {

/// What a Wayland compositor lets us know of all windows and do to them, by a way of its own: its IPC
/// socket, or a script inside it. Calls are synchronous and end within the messaging timeout; none runs
/// an event loop. Main thread only.
class Compositor : public QObject
{
    Q_OBJECT

public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::milliseconds;

    enum class Scope {
        focused, ///< only the window that has the focus, if any has; with the work areas
        all,
    };

    /// Whether it can be asked now.
    [[nodiscard]] virtual bool isPresent() const = 0;
    /// Its name and version, such as "sway 1.7"; empty while it has not told them.
    [[nodiscard]] virtual QString description() const = 0;
    virtual void setMessagingTimeout(Duration timeout) = 0;
    [[nodiscard]] virtual Duration messagingTimeout() const = 0;

    /// The windows as they are now; a compositor may tell more than is asked for.
    /// Errors: `apiDisabled` while it is not present, `cannotComplete` when it does not answer.
    [[nodiscard]] virtual expected<Desk, AXError> read(Scope scope) = 0;

    /// Asks for all these frames in one message. A window leaves full screen, its maximised state and
    /// the compositor's tiling in the same breath. Returns once the compositor has taken the requests;
    /// the windows follow when they have drawn themselves. A window that is gone is passed over.
    [[nodiscard]] virtual AXError place(const QList<WindowMove> &moves) = 0;
    /// Full screen and maximised state end, so that the window goes where it was before them.
    [[nodiscard]] virtual AXError leaveStates(const WindowElement &window) = 0;
    /// The window enters the state, from a plain one.
    [[nodiscard]] virtual AXError enterState(
        const WindowElement &window, const WindowState &state) = 0;

    /// How long a frame that was asked for must be told unchanged until the window has taken it. Zero
    /// where a frame is only told once the window has drawn itself so.
    [[nodiscard]] virtual Duration holdTime() const = 0;
    /// How long a window that was moved but keeps its size may be about to take another one. Zero where both
    /// are told at once.
    [[nodiscard]] virtual Duration resizeTime() const { return {}; }
    /// Blocks until the compositor tells of a new frame of a window that was placed, or where it tells
    /// of none, until it is worth while to read again. False once the time has come.
    [[nodiscard]] virtual bool waitForFrames(Time deadline) = 0;

    /// Above all other windows; nothing where the compositor cannot do that without giving the focus.
    virtual void raise(const WindowElement &window) = 0;
    /// Above all other windows, one after the other. The last gets the focus, its workspace is shown, and
    /// its minimised state ends; where the compositor raises none without that, so do the others before.
    virtual void bringToFront(const QList<WindowElement> &windows) = 0;
    /// Asks the window to close, as its user would.
    virtual void close(const WindowElement &window) = 0;
    /// Has a window come from its workspace to the one that the user sees.
    virtual void bringHere(const WindowElement &window) = 0;
    /// Has a window of this program stand above all others.
    virtual void keepAbove(const WindowElement &window) = 0;

    /// Leaves all keys to the window that has the focus, or ends that. Ends by itself after three seconds, so
    /// that it ends when this program does. False where the compositor cannot: a window then asks for it.
    [[nodiscard]] virtual bool leaveKeys(bool) { return false; }

Q_SIGNALS:
    void presenceChanged();
    /// Windows came, went, got the focus, or changed their names or states. Also when some may have.
    void windowsChanged();
    /// Windows that were placed a while ago have other frames now.
    void framesChanged();
    void workAreasChanged();
};

} // namespace corvane::wayland
