#pragma once

#include "Measurement.h"

#include <chrono>

/// On a Wayland desktop of its own, whose compositor is "sway" or "kwin_wayland".
namespace corvane::bench {

/// How long a key press takes until the window has been told its new size: Corvane, and the least that a
/// program can do, taking turns on one window.
[[nodiscard]] Measurements measureWaylandKeys(const QString &compositor, int rounds);
/// The same of a layout of fifty windows, until the last one of them has been told.
[[nodiscard]] Measurements measureWaylandLayouts(const QString &compositor, int rounds);
/// What the program costs while nobody presses a key.
[[nodiscard]] Measurements measureWaylandIdle(
    const QString &compositor, std::chrono::seconds duration);

} // namespace corvane::bench
