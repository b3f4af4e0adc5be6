#pragma once

#include "Measurement.h"

namespace corvane::bench {

/// How long a report of 20,000 diagnostics takes, beside a history of 100,000 moves.
[[nodiscard]] Measurements measureReport();

} // namespace corvane::bench
