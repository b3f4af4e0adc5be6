#pragma once

#include "Rect.h"
#include "UnitRect.h"

#include <QtCore/QList>

/// Rectangle arithmetic of the placements. Every rectangle is in accessibility coordinates; an area
/// is the usable part of a display.
namespace corvane::Geometry {

/// How much further than the gap from an edge a target may be and still count as touching it.
inline constexpr double slackBeyondGap = 6;

/// Smaller by `distance` on every side, larger for a negative one. A rectangle narrower than that
/// collapses to its middle instead of turning inside out.
[[nodiscard]] Rect inset(const Rect &rect, double distance);
/// Rounds the four edges, half away from zero. Origin and size are never rounded by themselves, so
/// that windows which share an edge go on sharing it.
[[nodiscard]] Rect snapped(const Rect &rect);
/// The cell of `area`, one gap away from its neighbours and from the edges of the area.
[[nodiscard]] Rect frame(const UnitRect &unit, const Rect &area, double gap);
/// The middle of `area`; a window that nearly fills the area takes two thirds of it.
[[nodiscard]] Rect centered(const Rect &frame, const Rect &area);
/// Grown or, with a negative `step`, shrunk about the middle by as many points on both axes.
[[nodiscard]] Rect resized(const Rect &frame, double step, const Rect &area);
/// Moved, and where need be shrunk, into `area`. Not rounded.
[[nodiscard]] Rect clamp(const Rect &frame, const Rect &area);
/// The same share of the area `to` as `frame` has of the area `from`.
[[nodiscard]] Rect translated(const Rect &frame, const Rect &from, const Rect &to);
/// Where a window that took `size` instead of the target's goes: it keeps to the edges of `area`
/// that the target touches within `slack`.
[[nodiscard]] Rect anchored(const Rect &target, const Size &size, const Rect &area, double slack);
/// Whether the window stayed clearly smaller than asked.
[[nodiscard]] bool fallsShort(const Rect &actual, const Rect &target);
/// Origin and size each within `tolerance`, inclusive.
[[nodiscard]] bool approximatelyEqual(const Rect &a, const Rect &b, double tolerance);

/// How much of `rect` none of the others covers, by as many samples on each axis.
[[nodiscard]] double visibleFraction(
    const UnitRect &rect, const QList<UnitRect> &others, int samples);

} // namespace corvane::Geometry
