#pragma once

#include "AXWindow.h"
#include "Clock.h"
#include "PaneResult.h"
#include "WindowLayout.h"

#include <QtCore/QMap>

#include <functional>
#include <qcorotask.h>

namespace corvane {

/// Makes a layout of the windows on screen, and puts windows back into a layout. Lives as long as
/// any apply that it began.
class LayoutEngine final
{
public:
    explicit LayoutEngine(double points) : gap(points) { }

    double gap; ///< between windows, in points
    /// A window was placed; before, it had the frame `previous`.
    std::function<void(const AXWindow &, const Rect &previous)> onPlaced;
    std::function<void(const QString &)> onDiagnostic;

    /// The windows on screen as they stand now; those mostly hidden by others are left out.
    [[nodiscard]] WindowLayout capture(const QString &name) const;
    /// Moves the windows of running apps into their panes and opens the apps that are not running,
    /// which have `launchWait` to show a window before anything is moved. Panes that find no window
    /// keep looking for `retryFor`. One result per pane, in the layout's order. A newer apply ends
    /// one that still waits: its panes without a window stay so.
    [[nodiscard]] QCoro::Task<QList<PaneResult>> apply(
        WindowLayout layout, Clock::Duration launchWait, Clock::Duration retryFor);

    /// Which of the connected displays stands for which of the layout's; both by index. A display
    /// of the layout that is absent from it is not connected.
    [[nodiscard]] static QMap<int, int> displayMapping(
        const QList<DisplayKey> &layout, const QList<DisplayKey> &current);
    /// How much of `rect` none of the others covers, by as many samples on each axis.
    [[nodiscard]] static double visibleFraction(
        const UnitRect &rect, const QList<UnitRect> &under, int samples);

private:
    quint64 m_latestRun = 0;
};

} // namespace corvane
