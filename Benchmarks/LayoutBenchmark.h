#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long a layout's key takes to bring many open windows to their places and forward: Corvane, the
/// least that a program can do, and a shell script, taking turns on two layouts. And how long it takes
/// to capture as many. Opens windows that stay until the clients on the desktop end.
[[nodiscard]] Measurements measureLayouts(desktop::VirtualDesktop &desktop, int rounds);

} // namespace corvane::bench
