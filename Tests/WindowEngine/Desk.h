#pragma once

#include "AXWindow.h"
#include "Placement.h"
#include "SimulatedPlatform.h"
#include "WindowManager.h"
#include "WindowWatcher.h"

#include <ostream>

namespace corvane {

/// A simulated desk: one display with a menu bar, and one application without a window.
struct Desk {
    static constexpr Rect laptop{0, 0, 1440, 900};
    static constexpr Rect laptopArea{0, 25, 1440, 875};
    static constexpr Rect monitor{1440, 0, 1920, 1080};

    Desk();

    /// A second display, right of the first.
    quint32 plugMonitor();
    AXWindow open(const WindowSpec &wanted = {});
    AXWindow openFrom(pid_t pid, const WindowSpec &wanted = {});
    /// As a person drags it.
    void drag(const AXWindow &window, const Rect &frame);
    void advance(Clock::Duration duration) { platform.manualClock().advance(duration); }
    [[nodiscard]] Rect frameOf(const AXWindow &window);
    [[nodiscard]] SimulatedWindow &simulated(const AXWindow &window);

    SimulatedPlatform platform;
    SimulatedDesktop &desktop = platform.desktop();
    WindowWatcher watcher;
    WindowManager manager{{}, watcher};
    quint32 laptopID = 0;
    pid_t editor = 0;
};

std::ostream &operator<<(std::ostream &out, const Rect &rect);
std::ostream &operator<<(std::ostream &out, Placement placement);
std::ostream &operator<<(std::ostream &out, const MoveOutcome &outcome);

} // namespace corvane
