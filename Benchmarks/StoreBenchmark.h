#pragma once

#include "Measurement.h"

namespace corvane::bench {

/// How long the program's files take: a history of 100,000 moves, and 500 layouts.
[[nodiscard]] Measurements measureStores();

} // namespace corvane::bench
