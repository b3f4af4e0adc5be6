#pragma once

#include "Measurement.h"

namespace corvane::bench {

/// How long computing a placement's frame takes.
[[nodiscard]] Measurements measureGeometry();

} // namespace corvane::bench
