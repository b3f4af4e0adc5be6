#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long a key press takes to bring the window to its new frame: Corvane, the least that a program
/// can do, and a key daemon that runs a command, taking turns on one window.
[[nodiscard]] Measurements measureKeys(
    desktop::VirtualDesktop &desktop, xcb_window_t window, int rounds);

} // namespace corvane::bench
