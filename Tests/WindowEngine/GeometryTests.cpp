#include "Desk.h"
#include "Geometry.h"

#include <cmath>

namespace corvane {

using namespace Geometry;

namespace {

Rect frameOf(Placement placement, const Rect &area, double gap)
{
    return frame(*unitRect(placement), area, gap);
}

/// Whole points, left of or above the primary display as well, though not across its origin: there
/// rounding, which is symmetric, may leave a seam one point wider.
Rect anyArea()
{
    const double width = between(320, 5120);
    const double height = between(240, 2880);
    const double x = between(0, 6000);
    const double y = between(0, 4000);
    return {coin() ? x : -x - width, coin() ? y : -y - height, width, height};
}

} // namespace

/// With half a gap around each frame, the frames of a family are a partition.
RC_GTEST_PROP(GeometryTests, aFamilyTilesAnyAreaOneGapApartAndOneGapFromTheEdges, ())
{
    using enum Placement;
    const QList<QList<Placement>> families{{leftHalf, rightHalf}, {topHalf, bottomHalf},
        {topLeft, topRight, bottomLeft, bottomRight}, {leftThird, centerThird, rightThird},
        {leftTwoThirds, rightThird}, {leftThird, rightTwoThirds},
        {topLeftSixth, topCenterSixth, topRightSixth, bottomLeftSixth, bottomCenterSixth,
            bottomRightSixth},
        {maximize}};
    const Rect area = anyArea();
    const double gap = between(0, 64);
    const Rect whole = Geometry::inset(area, gap / 2);

    for (const QList<Placement> &family : families) {
        QList<Rect> cells;
        double covered = 0;
        for (const Placement placement : family) {
            const Rect cell = Geometry::inset(frameOf(placement, area, gap), -gap / 2);
            RC_ASSERT(cell.intersectionArea(whole) == cell.width * cell.height);
            for (const Rect &other : std::as_const(cells))
                RC_ASSERT(cell.intersectionArea(other) == 0);
            cells << cell;
            covered += cell.width * cell.height;
        }
        RC_ASSERT(covered == whole.width * whole.height);
    }
}

TEST(GeometryTests, eachCallGivesTheFrameBesideIt)
{
    constexpr Rect area = Desk::laptopArea;
    constexpr Rect narrow{0, 0, 120, 600};
    const std::pair<Rect, Rect> examples[]{
        {frameOf(Placement::almostMaximize, area, 0), {72, 69, 1296, 787}},
        {frameOf(Placement::maximize, area, 5000), {720, 463, 0, 0}},
        // No further than into the area, and not rounded.
        {clamp({-7.5, 900, 100.25, 50}, area), {0, 850, 100.25, 50}},
        {clamp({1400, 0.5, 2000, 30.5}, area), {0, 25, 1440, 30.5}},
        {snapped({-0.5, 0.5, 3, 2}), {-1, 1, 4, 2}},
        // Two thirds of the area for a window that nearly fills it, from nine tenths on.
        {centered({0, 0, 1296, 787.5}, area), {240, 171, 960, 583}},
        {centered({0, 0, 1295, 875}, area), {73, 25, 1295, 875}},
        {centered({0, 0, 500, 2000}, area), {470, 25, 500, 875}},
        // About the middle, from the minimum to the whole area, and inside it.
        {resized({100, 100, 220, 170}, -50, area), {110, 110, 200, 150}},
        {resized({0, 25, 300, 300}, 100, area), {0, 25, 400, 400}},
        {resized({0, 0, 100, 400}, 50, narrow), {0, 0, 120, 450}},
        // An empty area has no shares.
        {translated({2000, 30, 300, 200}, {}, area), {1140, 30, 300, 200}},
        // At the right within the slack, at neither edge, at both, at the bottom.
        {anchored({954, 31, 480, 863}, {600, 863}, area, 6), {834, 31, 600, 863}},
        {anchored({480, 25, 480, 875}, {600, 875}, area, 6), {420, 25, 600, 875}},
        {anchored({0, 25, 720, 875}, {720, 900}, area, 6), {0, 25, 720, 875}},
        {anchored({0, 463, 720, 437}, {720, 500}, area, 6), {0, 400, 720, 500}},
    };

    for (const auto &[computed, expected] : examples)
        EXPECT_EQ(computed, expected);
    EXPECT_FALSE(std::signbit(snapped({-0.3, 0, 1, 1}).x));
}

TEST(GeometryTests, comparisonsAllowTheirToleranceAndNoMoreOnEveryField)
{
    const Rect frame{10, 20, 1000, 500};

    EXPECT_TRUE(fallsShort({0, 0, 899, 500}, frame) && fallsShort({0, 0, 1000, 449}, frame));
    EXPECT_FALSE(fallsShort({0, 0, 900, 450}, frame));
    EXPECT_TRUE(approximatelyEqual(frame, {14, 16, 1004, 496}, 4));
    for (double Rect::*field : {&Rect::x, &Rect::y, &Rect::width, &Rect::height}) {
        Rect other = frame;
        other.*field += 4.5;
        EXPECT_FALSE(approximatelyEqual(frame, other, 4) || approximatelyEqual(other, frame, 4));
    }
}

} // namespace corvane
