#pragma once

#include "WindowLayout.h"

#include <cmath>

/// One direction of a pane at a time, so that each editing operation is written once for columns and
/// for rows. All in fractions of the display.
namespace corvane {

/// Edges closer than this are the same edge.
inline constexpr double edgeTolerance = 0.004;
/// What sums of fractions may be off by arithmetic alone.
inline constexpr double roundingError = 1e-9;

struct PaneSpan {
    double start = 0;
    double length = 0;

    constexpr double end() const { return start + length; }
};

constexpr CutLines crossing(CutLines cut)
{
    return cut == CutLines::vertical ? CutLines::horizontal : CutLines::vertical;
}

/// The extent that lines of this direction cut: from left to right for vertical ones.
constexpr PaneSpan spanOf(const UnitRect &rect, CutLines cut)
{
    return cut == CutLines::vertical ? PaneSpan{rect.x, rect.w} : PaneSpan{rect.y, rect.h};
}

constexpr void setSpan(UnitRect &rect, CutLines cut, PaneSpan span)
{
    (cut == CutLines::vertical ? rect.x : rect.y) = span.start;
    (cut == CutLines::vertical ? rect.w : rect.h) = span.length;
}

inline bool sameEdge(double a, double b)
{
    return std::abs(a - b) < edgeTolerance;
}

constexpr bool overlap(PaneSpan a, PaneSpan b)
{
    return a.start + edgeTolerance < b.end() && b.start + edgeTolerance < a.end();
}

constexpr bool overlap(const UnitRect &a, const UnitRect &b)
{
    return overlap(spanOf(a, CutLines::vertical), spanOf(b, CutLines::vertical))
        && overlap(spanOf(a, CutLines::horizontal), spanOf(b, CutLines::horizontal));
}

} // namespace corvane
