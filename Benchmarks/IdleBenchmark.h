#pragma once

#include "Measurement.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

inline constexpr double megabytesResident = 45;

/// What the program costs while nobody presses a key.
[[nodiscard]] Measurements measureIdle(
    desktop::VirtualDesktop &desktop, std::chrono::seconds duration);

} // namespace corvane::bench
