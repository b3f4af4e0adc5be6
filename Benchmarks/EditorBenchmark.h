#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long the layouts pane takes for each frame of an edge that is dragged, and to keep a change.
[[nodiscard]] Measurements measureEditor(desktop::VirtualDesktop &desktop, int rounds);

} // namespace corvane::bench
