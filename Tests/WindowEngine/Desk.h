#pragma once

#include "LayoutEngine.h"
#include "Screens.h"
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
    inline static const AppRef editorApp{u"org.example.Editor"_s, u"Editor"_s};
    inline static const AppRef mail{u"org.example.Mail"_s, u"Mail"_s};

    Desk()
    {
        engine.onPlaced = [this](const AXWindow &window, const Rect &previous) {
            placed << window;
            placedFrom << previous;
            placedAt << platform.clock().now();
        };
    }

    /// A second display, right of the laptop.
    quint32 plugMonitor() { return desktop.plug({.frame = monitor, .name = u"Monitor"_s}); }

    /// A window of the editor.
    AXWindow open(const WindowSpec &wanted = {}) { return openFrom(editor, wanted); }
    AXWindow openFrom(pid_t pid, const WindowSpec &wanted = {})
    {
        return {desktop.openWindow(pid, wanted), pid};
    }
    /// A window of a process more.
    AXWindow openOf(const AppRef &app, const WindowSpec &wanted = {})
    {
        return openFrom(desktop.start(app.bundleID, app.name), wanted);
    }
    /// As a person drags it.
    void drag(const AXWindow &window, const Rect &frame)
    {
        desktop.moveWindow(simulated(window), frame.origin());
        desktop.resizeWindow(simulated(window), frame.size());
    }
    void advance(Clock::Duration duration) { platform.manualClock().advance(duration); }
    void later(Clock::Duration delay, std::function<void()> event)
    {
        platform.clock().after(delay, &desktop, std::move(event));
    }

    SimulatedWindow &simulated(const AXWindow &window) { return desktop.window(window.element); }
    Rect frameOf(const AXWindow &window) { return simulated(window).frame; }
    /// The titles of all windows, front to back.
    QString stack()
    {
        QString titles;
        for (const WindowElement &element : desktop.stack())
            titles += desktop.window(element).title;
        return titles;
    }

    /// A pane for a window of the app, one with the title if that is not empty.
    static Pane left(
        const AppRef &app = editorApp, const QString &title = {}, std::optional<int> stack = {})
    {
        return {.rect = {0, 0, 0.5, 1}, .app = app, .titleContains = title, .stack = stack};
    }
    static Pane right(const AppRef &app = editorApp, const QString &title = {})
    {
        return {.rect = {0.5, 0, 0.5, 1}, .app = app, .titleContains = title};
    }
    /// Applies the layout while time passes. The names of what became of its panes.
    QString apply(const WindowLayout &layout, Clock::Duration retryFor = 20s)
    {
        QStringList names;
        const auto keep = [&](const QList<PaneResult> &done) {
            results = done;
            applied = platform.clock().now();
            for (const PaneResult &result : done)
                names << statusName(result.status);
        };
        const auto task = engine.apply(layout, 8s, retryFor).then(keep);
        const Clock::Duration deadline = platform.clock().now() + 60s;
        while (!task.isReady() && platform.clock().now() < deadline)
            advance(50ms);
        EXPECT_TRUE(task.isReady());
        return names.join(u' ');
    }
    /// Applies panes of the displays that are there.
    QString fill(const QList<Pane> &panes, Clock::Duration retryFor = 20s)
    {
        return apply({.displays = Screens::signature(), .panes = panes}, retryFor);
    }
    /// What the user reads of the pane after the latest apply.
    QString said(qsizetype pane) const { return statusText(results[pane].status); }

    SimulatedPlatform platform;
    SimulatedDesktop &desktop = platform.desktop();
    WindowWatcher watcher;
    WindowManager manager{{}, watcher};
    LayoutEngine engine{0};
    quint32 laptop = desktop.plug({.frame = {0, 0, 1440, 900},
        .name = u"Laptop"_s,
        .panels = {{SimulatedPanel::Edge::top, 25}}});
    pid_t editor = desktop.start(editorApp.bundleID, editorApp.name);

    QList<PaneResult> results; ///< of the latest apply
    Clock::Duration applied{}; ///< when it was done
    QList<AXWindow> placed; ///< by any apply, as the engine told it
    QList<Rect> placedFrom;
    QList<Clock::Duration> placedAt;
};

inline std::ostream &operator<<(std::ostream &out, const Rect &rect)
{
    return out << '(' << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height
               << ')';
}

} // namespace corvane
