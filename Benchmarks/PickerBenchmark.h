#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long the sheet that asks for an application takes to open and to search, and for how long it
/// keeps the event loop.
[[nodiscard]] Measurements measurePicker(desktop::VirtualDesktop &desktop, int openings);

} // namespace corvane::bench
