#include "Desk.h"
#include "Geometry.h"

#include <algorithm>
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
    Rect any{double(between(0, 6000)), double(between(0, 4000)), double(between(320, 5120)),
        double(between(240, 2880))};
    if (coin())
        any.x = -any.maxX();
    if (coin())
        any.y = -any.maxY();
    return any;
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
        double covered = 0;
        for (const Placement one : family) {
            const Rect cell = Geometry::inset(frameOf(one, area, gap), -gap / 2);
            RC_ASSERT(cell.intersectionArea(whole) == cell.width * cell.height);
            covered += cell.width * cell.height;
            for (const Placement other : family) {
                const Rect neighbour = Geometry::inset(frameOf(other, area, gap), -gap / 2);
                RC_ASSERT(one == other || cell.intersectionArea(neighbour) == 0);
            }
        }
        RC_ASSERT(covered == whole.width * whole.height);
    }
}

RC_GTEST_PROP(GeometryTests, clampMovesNoFurtherThanIntoTheAreaAndDoesNotRound, ())
{
    const Rect area = anyArea();
    const Rect frame{between(-40000, 40000) * 0.25, between(-40000, 40000) * 0.25,
        between(0, 30000) * 0.25, between(0, 30000) * 0.25};

    const double width = std::min(frame.width, area.width);
    const double height = std::min(frame.height, area.height);
    RC_ASSERT(clamp(frame, area)
        == (Rect{std::clamp(frame.x, area.x, area.maxX() - width),
            std::clamp(frame.y, area.y, area.maxY() - height), width, height}));
}

TEST(GeometryTests, eachCallGivesTheFrameBesideIt)
{
    constexpr Rect area = Desk::laptopArea;
    constexpr Rect wide = Desk::monitor;
    constexpr Rect narrow{0, 0, 120, 600};
    const std::pair<Rect, Rect> examples[]{
        {frameOf(Placement::almostMaximize, area, 0), {72, 69, 1296, 787}},
        {frameOf(Placement::maximize, area, 5000), {720, 463, 0, 0}},
        {snapped({-0.5, 0.5, 3, 2}), {-1, 1, 4, 2}},
        // Two thirds of the area for a window that nearly fills it, from nine tenths on.
        {centered({5, 30, 1400, 850}, area), {240, 171, 960, 583}},
        {centered({0, 0, 1296, 787.5}, area), {240, 171, 960, 583}},
        {centered({0, 0, 1295, 875}, area), {73, 25, 1295, 875}},
        {centered({0, 0, 2000, 500}, area), {0, 213, 1440, 500}},
        {centered({0, 0, 500, 2000}, area), {470, 25, 500, 875}},
        // About the middle, from the minimum to the whole area, and inside it.
        {resized({100, 100, 600, 400}, 60, area), {70, 70, 660, 460}},
        {resized({100, 100, 220, 170}, -50, area), {110, 110, 200, 150}},
        {resized(area, 50, area), area},
        {resized({0, 25, 300, 300}, 100, area), {0, 25, 400, 400}},
        {resized({0, 0, 100, 400}, 50, narrow), {0, 0, 120, 450}},
        // The same share, inside the other area; an empty one has no shares.
        {translated({2400, 540, 480, 270}, wide, area), {720, 463, 360, 218}},
        {translated({3000, -90, 960, 108}, wide, area), {720, 25, 720, 88}},
        {translated({2000, 30, 300, 200}, {}, area), {1140, 30, 300, 200}},
        // At the left, at the right, within the slack, at neither edge, at both, at the bottom.
        {anchored({0, 25, 480, 875}, {600, 875}, area, 6), {0, 25, 600, 875}},
        {anchored({960, 25, 480, 875}, {600, 875}, area, 6), {840, 25, 600, 875}},
        {anchored({954, 31, 480, 863}, {600, 863}, area, 6), {834, 31, 600, 863}},
        {anchored({480, 25, 480, 875}, {600, 875}, area, 6), {420, 25, 600, 875}},
        {anchored({0, 25, 720, 875}, {720, 900}, area, 6), {0, 25, 720, 875}},
        {anchored({0, 463, 720, 437}, {720, 500}, area, 6), {0, 400, 720, 500}},
        // Two points over, three points over, smaller.
        {anchored({480, 25, 480, 875}, {482, 875}, area, 6), {480, 25, 482, 875}},
        {anchored({480, 25, 480, 875}, {483, 875}, area, 6), {479, 25, 483, 875}},
        {anchored({960, 25, 480, 875}, {400, 300}, area, 6), {960, 25, 400, 300}},
    };

    for (const auto &[computed, expected] : examples)
        EXPECT_EQ(computed, expected);
    EXPECT_FALSE(std::signbit(snapped({-0.3, 0, 1, 1}).x));
}

TEST(GeometryTests, comparisonsAllowTheirToleranceAndNoMoreOnEveryField)
{
    const Rect frame{10, 20, 1000, 500};

    EXPECT_FALSE(fallsShort({0, 0, 900, 450}, frame));
    EXPECT_TRUE(fallsShort({0, 0, 899, 500}, frame) && fallsShort({0, 0, 1000, 449}, frame));
    EXPECT_TRUE(approximatelyEqual(frame, {14, 16, 1004, 496}, 4));
    for (const Rect &other : {Rect{14.5, 20, 1000, 500}, {10, 15.5, 1000, 500},
             {10, 20, 1004.5, 500}, {10, 20, 1000, 495.5}})
        EXPECT_FALSE(approximatelyEqual(frame, other, 4)) << other;
}

} // namespace corvane
