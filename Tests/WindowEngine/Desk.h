#pragma once

#include "LayoutEngine.h"
#include "SimulatedPlatform.h"
#include "Testing.h"
#include "WindowManager.h"
#include "WindowWatcher.h"

#include <ostream>

namespace corvane {

/// A simulated desk with the whole engine: a laptop with a menu bar, and an editor, which shows no
/// window yet.
struct Desk {
    static constexpr Rect laptopArea{0, 25, 1440, 875};
    static constexpr Rect onTheLeft{0, 25, 720, 875};
    static constexpr Rect onTheRight{720, 25, 720, 875};
    static constexpr Rect monitor{1440, 0, 1920, 1080};
    static const AppRef editorApp;
    static const AppRef mail;

    Desk();

    /// A second display, right of the laptop.
    quint32 plugMonitor() { return desktop.plug({.frame = monitor, .name = u"Monitor"_s}); }

    /// A window of the editor.
    AXWindow open(const WindowSpec &wanted = {}) { return openFrom(editor, wanted); }
    AXWindow openFrom(pid_t pid, const WindowSpec &wanted = {});
    /// A window of a process more.
    AXWindow openOf(const AppRef &app, const WindowSpec &wanted = {});
    /// As a person drags it.
    void drag(const AXWindow &window, const Rect &frame);
    void advance(Clock::Duration duration) { platform.manualClock().advance(duration); }
    void later(Clock::Duration delay, std::function<void()> event);

    SimulatedWindow &simulated(const AXWindow &window) { return desktop.window(window.element); }
    Rect frameOf(const AXWindow &window) { return simulated(window).frame; }
    /// The titles of all windows, front to back.
    QString stack();

    /// A pane for a window of the app, one with the title if that is not empty.
    static Pane left(
        const AppRef &app = editorApp, const QString &title = {}, std::optional<int> stack = {});
    static Pane right(const AppRef &app = editorApp, const QString &title = {});
    /// Applies the layout while time passes. The names of what became of its panes.
    QString apply(const WindowLayout &layout, Clock::Duration retryFor = 20s);
    /// Applies panes of the displays that are there.
    QString fill(const QList<Pane> &panes, Clock::Duration retryFor = 20s);
    /// What the user reads of the pane after the latest apply.
    QString said(qsizetype pane) const { return statusText(results[pane].status); }

    SimulatedPlatform platform;
    SimulatedDesktop &desktop = platform.desktop();
    WindowWatcher watcher;
    WindowManager manager{{}, watcher};
    LayoutEngine engine{0};
    quint32 laptop = 0;
    pid_t editor = 0;

    QList<PaneResult> results; ///< of the latest apply
    Clock::Duration applied{}; ///< when it was done
    QList<AXWindow> placed; ///< by any apply, as the engine told it
    QList<Rect> placedFrom;
    QList<Clock::Duration> placedAt;
    QStringList diagnostics; ///< of the engine and the watcher
};

std::ostream &operator<<(std::ostream &out, const Rect &rect);
std::ostream &operator<<(std::ostream &out, Placement placement);

} // namespace corvane
