#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long the settings window takes to open and to show another pane, what it costs while it is
/// open, and what of it stays when it is closed.
[[nodiscard]] Measurements measureSettings(
    desktop::VirtualDesktop &desktop, int openings, std::chrono::seconds idle);

} // namespace corvane::bench
