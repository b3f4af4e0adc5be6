#pragma once

#include "AppOpener.h"
#include "AXWindow.h"
#include "PaneResult.h"
#include "WindowLayout.h"

#include <functional>
#include <qcorotask.h>

namespace corvane {

class LayoutRun;

/// Makes a layout of the windows on screen, and puts windows back into a layout. Lives as long as
/// any apply that it began.
class LayoutEngine final
{
public:
    /// Which windows an apply puts back when they leave their panes by themselves.
    enum class Follow {
        opened, ///< those of the apps that were opened: some restore a size of their own
        all, ///< window managers move windows for a while after a display came
    };

    explicit LayoutEngine(double points) : gap(points) { }

    double gap; ///< between windows, in points
    /// A window was placed, or put back; before, it had the frame `previous`.
    std::function<void(const AXWindow &, const Rect &previous)> onPlaced;
    std::function<void(const QString &)> onDiagnostic;
    /// Told of the panes whose windows were placed, or put back, at one time.
    std::function<void(const QList<PaneResult> &)> onPassed;
    /// Told of the results of the panes that wait for no window, and of how many do: at the begin of
    /// an apply, and whenever others wait.
    std::function<void(const QList<PaneResult> &settled, qsizetype waiting)> onProgress;

    /// The windows on screen as they stand now; those mostly hidden by others are left out.
    [[nodiscard]] WindowLayout capture(const QString &name) const;
    /// Moves the windows that are there into their panes at once, and opens the apps that are not
    /// running, which have `launchWait` to show a window. Panes that still have no window then wait
    /// for one for as long as `retryFor`; it joins in its place of the stack, without the focus.
    /// One result per pane, in the layout's order, once every window has stayed in its place for a
    /// while. A newer apply ends one that is under way: its panes without a window stay so.
    [[nodiscard]] QCoro::Task<QList<PaneResult>> apply(WindowLayout layout,
        Clock::Duration launchWait, Clock::Duration retryFor, Follow follow = Follow::opened);
    /// The user has placed this window, which an apply under way is not to put back.
    void leaveAlone(const AXWindow &window);

private:
    AppOpener m_opener;
    LayoutRun *m_run = nullptr; ///< the latest apply, while it is under way
};

} // namespace corvane
