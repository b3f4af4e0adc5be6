#pragma once

#include "Desk.h"
#include "LayoutEngine.h"

namespace corvane {

/// A desk with a layout engine, whose applies run through at once.
struct LayoutDesk : Desk {
    LayoutDesk();

    [[nodiscard]] QList<PaneResult> apply(
        const WindowLayout &layout, Clock::Duration retryFor = std::chrono::seconds(20));
    /// Applies the panes on this desk's displays. The names of their statuses.
    [[nodiscard]] QString outcomes(
        const QList<Pane> &panes, Clock::Duration retryFor = std::chrono::seconds(20));

    LayoutEngine engine{0};
    QList<AXWindow> placed;
    QStringList diagnostics;
    Clock::Duration applied{}; ///< when the last apply was done
};

} // namespace corvane
