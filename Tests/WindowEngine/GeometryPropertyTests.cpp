#include "Desk.h"
#include "Geometry.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <vector>

namespace corvane {

namespace {

/// Whole points, as displays have them; left of and above the primary display as well.
Rect anyArea()
{
    return {double(*rc::gen::inRange(-6000, 6000)), double(*rc::gen::inRange(-4000, 4000)),
        double(*rc::gen::inRange(320, 5121)), double(*rc::gen::inRange(240, 2881))};
}

/// In quarters of a point.
Rect anyFrame()
{
    const auto quarters = [](int from, int to) { return *rc::gen::inRange(from, to) * 0.25; };
    return {
        quarters(-40000, 40000), quarters(-40000, 40000), quarters(0, 30000), quarters(0, 30000)};
}

double anyGap()
{
    return *rc::gen::inRange(0, 65);
}

bool isInside(const Rect &frame, const Rect &area)
{
    constexpr double rounding = 1e-9;
    return frame.minX() >= area.minX() - rounding && frame.minY() >= area.minY() - rounding
        && frame.maxX() <= area.maxX() + rounding && frame.maxY() <= area.maxY() + rounding;
}

struct Edges {
    double end;
    double start;
};

/// Rounding is symmetric about the origin, so a seam across it may be a point wider than the gap.
void expectSeam(Edges edges, double gap)
{
    const bool acrossOrigin = edges.end <= 0 && edges.start >= 0;
    const double seam = edges.start - edges.end;
    RC_ASSERT(seam == gap || (acrossOrigin && seam == gap + 1));
}

bool overlap(double startA, double lengthA, double startB, double lengthB)
{
    constexpr double hair = 1e-6;
    return startA + hair < startB + lengthB && startB + hair < startA + lengthA;
}

bool meet(double end, double start)
{
    return std::abs(end - start) < 1e-6;
}

void expectMargins(const UnitRect &unit, const Rect &frame, const Rect &area, double gap)
{
    if (meet(unit.x, 0))
        RC_ASSERT(frame.minX() - area.minX() == gap);
    if (meet(unit.y, 0))
        RC_ASSERT(frame.minY() - area.minY() == gap);
    if (meet(unit.x + unit.w, 1))
        RC_ASSERT(area.maxX() - frame.maxX() == gap);
    if (meet(unit.y + unit.h, 1))
        RC_ASSERT(area.maxY() - frame.maxY() == gap);
}

void expectTiles(const std::vector<Placement> &family, const Rect &area, double gap)
{
    for (const Placement one : family) {
        const UnitRect a = *unitRect(one);
        const Rect frameA = Geometry::frame(a, area, gap);
        expectMargins(a, frameA, area, gap);
        for (const Placement other : family) {
            const UnitRect b = *unitRect(other);
            const Rect frameB = Geometry::frame(b, area, gap);
            if (meet(a.x + a.w, b.x) && overlap(a.y, a.h, b.y, b.h))
                expectSeam({frameA.maxX(), frameB.minX()}, gap);
            if (meet(a.y + a.h, b.y) && overlap(a.x, a.w, b.x, b.w))
                expectSeam({frameA.maxY(), frameB.minY()}, gap);
            RC_ASSERT(one == other || frameA.intersectionArea(frameB) == 0);
        }
    }
}

} // namespace

RC_GTEST_PROP(GeometryPropertyTests, aFamilyTilesAnyAreaWithoutSeamOrOverlap, ())
{
    using enum Placement;
    const std::vector<std::vector<Placement>> families{
        {leftHalf, rightHalf},
        {topHalf, bottomHalf},
        {topLeft, topRight, bottomLeft, bottomRight},
        {leftThird, centerThird, rightThird},
        {leftTwoThirds, rightThird},
        {leftThird, rightTwoThirds},
        {topLeftSixth, topCenterSixth, topRightSixth, bottomLeftSixth, bottomCenterSixth,
            bottomRightSixth},
        {maximize},
    };
    const Rect area = anyArea();
    const double gap = anyGap();

    for (const std::vector<Placement> &family : families)
        expectTiles(family, area, gap);
}

RC_GTEST_PROP(GeometryPropertyTests, clampStaysInsideAndLeavesAloneWhatIsInside, ())
{
    const Rect area = anyArea();
    const Rect frame = anyFrame();

    const Rect clamped = Geometry::clamp(frame, area);

    RC_ASSERT(isInside(clamped, area));
    RC_ASSERT(clamped == frame || !isInside(frame, area));
}

RC_GTEST_PROP(GeometryPropertyTests, whatIsCenteredResizedOrTranslatedStaysInside, ())
{
    const Rect area = anyArea();
    const Rect frame = anyFrame();
    const double step = *rc::gen::inRange(-400, 401);

    RC_ASSERT(isInside(Geometry::resized(frame, step, area), area));
    RC_ASSERT(isInside(Geometry::translated(frame, anyArea(), area), area));
    // The middle of an area with odd sides lies between two points.
    const Rect roomy{area.x - 1, area.y - 1, area.width + 2, area.height + 2};
    RC_ASSERT(isInside(Geometry::centered(frame, area), roomy));
}

RC_GTEST_PROP(GeometryPropertyTests, anchoredStaysInsideForAnySizeTaken, ())
{
    const Rect area = anyArea();
    const Rect target = anyFrame();
    const Size taken = anyFrame().size();

    const Rect anchored = Geometry::anchored(target, taken, area, anyGap() + 6);

    RC_ASSERT(isInside(anchored, area));
}

RC_GTEST_PROP(GeometryPropertyTests, growingThenShrinkingReturnsAWindowThatHadRoom, ())
{
    const Rect area = anyArea();
    const double step = 2 * *rc::gen::inRange(0, 20);
    const Rect frame{area.midX() - 110, area.midY() - 90, 220, 180};

    const Rect back = Geometry::resized(Geometry::resized(frame, step, area), -step, area);

    RC_ASSERT(Geometry::approximatelyEqual(back, frame, 1));
}

} // namespace corvane
