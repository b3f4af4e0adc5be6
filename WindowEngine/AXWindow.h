#pragma once

#include "Applications.h"
#include "MoveError.h"
#include "Rect.h"
#include "WindowElement.h"
#include "WindowState.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>
#include <sys/types.h>

namespace corvane {

/// One window of another application, and the only handle on it above the platform floor. Reads
/// treat every failure as a missing value. Rectangles are in accessibility coordinates.
struct AXWindow {
    struct Focused;

    WindowElement element;
    pid_t pid = 0;

    /// The focused window of the frontmost application.
    [[nodiscard]] static Focused focused();
    /// The application's standard windows that are not minimized, in the application's order.
    [[nodiscard]] static QList<AXWindow> windows(const RunningApplication &application);
    /// The windows of every application that the process is, likewise.
    [[nodiscard]] static QList<AXWindow> windows(pid_t pid);
    /// The same, or an error from an application that stops answering: it is then asked no further.
    [[nodiscard]] static expected<QList<AXWindow>, AXError> windowsIfAnswering(pid_t pid);
    /// Brings the application forward, with whatever windows the desktop takes along.
    static void bringForward(pid_t pid);

    [[nodiscard]] std::optional<Rect> frame() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] bool belongsTo(const QString &bundleIdentifier) const;
    /// The application's name, or "pid " with its number.
    [[nodiscard]] QString appName() const;
    [[nodiscard]] bool isFullScreen() const;
    [[nodiscard]] bool isWindow() const;
    [[nodiscard]] bool isStandard() const;
    [[nodiscard]] bool isMinimized() const;

    void raise() const;
    /// Makes the window its application's main and focused one.
    void makeMain() const;
    /// Brings only this window forward. False where the desktop has no way to.
    bool bringToFrontAlone() const;

    /// Moves the window to `target`. A window that insists on being larger keeps to the edges of
    /// `bounds` that the target touches within `slack`; one that stays smaller is no error. May
    /// sleep three times 0.06 seconds for an application that may yet follow.
    [[nodiscard]] expected<void, MoveError> setFrame(
        const Rect &target, const std::optional<Rect> &bounds, double slack) const;

    /// Moves the window back to a frame and a state that it had, exactly.
    [[nodiscard]] expected<void, MoveError> restore(
        const Rect &frame, const std::optional<WindowState> &state) const;
    /// What the window was in before the running operation moved it, as far as the desktop can tell.
    [[nodiscard]] std::optional<WindowState> endedState() const;

    bool operator==(const AXWindow &other) const { return element == other.element; }
};

/// The status tells a busy application from one without a window.
struct AXWindow::Focused {
    std::optional<AXWindow> window;
    AXError status = AXError::success;
};

inline size_t qHash(const AXWindow &window, size_t seed = 0) noexcept
{
    return qHash(window.element, seed);
}

} // namespace corvane
