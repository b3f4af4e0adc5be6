#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long a start takes until the hot keys are live.
[[nodiscard]] Measurements measureStart(desktop::VirtualDesktop &desktop, int starts);

} // namespace corvane::bench
