#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// How long the sheet of a problem report, and what goes with the report, take to show.
[[nodiscard]] Measurements measureReportSheet(desktop::VirtualDesktop &desktop, int openings);

} // namespace corvane::bench
