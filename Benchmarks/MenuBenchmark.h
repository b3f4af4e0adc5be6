#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// From the request for the status item's menu to the moment when all of it is on the screen.
[[nodiscard]] Measurements measureMenu(desktop::VirtualDesktop &desktop, int openings);

} // namespace corvane::bench
