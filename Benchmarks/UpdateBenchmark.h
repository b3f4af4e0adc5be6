#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// Releases of this build are published on this computer, found and installed.
[[nodiscard]] Measurements measureUpdates(
    desktop::VirtualDesktop &desktop, int updates, int checks);

} // namespace corvane::bench
