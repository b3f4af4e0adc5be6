#include "Desk.h"
#include "Geometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {

namespace {

constexpr Rect area{0, 25, 1440, 875};

Rect frameOf(Placement placement, const Rect &within, double gap)
{
    return Geometry::frame(*unitRect(placement), within, gap);
}

} // namespace

TEST(GeometryTests, halvesStandOneGapApartAndOneGapFromTheEdges)
{
    EXPECT_EQ(frameOf(Placement::leftHalf, area, 10), (Rect{10, 35, 705, 855}));
    EXPECT_EQ(frameOf(Placement::rightHalf, area, 10), (Rect{725, 35, 705, 855}));
}

TEST(GeometryTests, thirdsMeetOnAnAreaThatThreeDoesNotDivide)
{
    const Rect odd{0, 0, 1366, 768};

    EXPECT_EQ(frameOf(Placement::leftThird, odd, 0), (Rect{0, 0, 455, 768}));
    EXPECT_EQ(frameOf(Placement::centerThird, odd, 0), (Rect{455, 0, 456, 768}));
    EXPECT_EQ(frameOf(Placement::rightThird, odd, 0), (Rect{911, 0, 455, 768}));
}

TEST(GeometryTests, edgesRoundAwayFromZeroOnBothSidesOfTheOrigin)
{
    EXPECT_EQ(Geometry::snapped({-0.5, 0.5, 3, 2}), (Rect{-1, 1, 4, 2}));
    EXPECT_EQ(Geometry::snapped({0.4, 0.4, 10.2, 10}), (Rect{0, 0, 11, 10}));
    EXPECT_FALSE(std::signbit(Geometry::snapped({-0.3, 0, 1, 1}).x));
}

TEST(GeometryTests, gapsWiderThanTheAreaLeaveAnEmptyFrameInTheMiddle)
{
    EXPECT_EQ(frameOf(Placement::maximize, area, 5000), (Rect{720, 463, 0, 0}));
}

TEST(GeometryTests, centersKeepingTheSizeUnlessTheWindowNearlyFillsTheArea)
{
    struct Example {
        Rect frame;
        Rect centered;
    };
    const Example examples[]{
        {{5, 30, 1400, 850}, {240, 171, 960, 583}}, {{0, 0, 2000, 500}, {0, 213, 1440, 500}},
        {{7, 9, 400, 300}, {520, 313, 400, 300}},
        {{0, 0, 1296, 787.5}, {240, 171, 960, 583}}, // exactly nine tenths
        {{0, 0, 1295, 875}, {73, 25, 1295, 875}}, // only the height fills
    };

    for (const Example &example : examples)
        EXPECT_EQ(Geometry::centered(example.frame, area), example.centered) << example.frame;
}

TEST(GeometryTests, resizesAboutTheMiddleBetweenTheMinimumAndTheArea)
{
    struct Example {
        Rect frame;
        double step;
        Rect area;
        Rect resized;
    };
    const Example examples[]{
        {{100, 100, 600, 400}, 60, area, {70, 70, 660, 460}},
        {{100, 100, 220, 170}, -50, area, {110, 110, 200, 150}}, {area, 50, area, area},
        {{0, 25, 300, 300}, 100, area, {0, 25, 400, 400}}, // would stick out at the top left
        {{0, 0, 100, 400}, 50, {0, 0, 120, 600}, {0, 0, 120, 450}}, // narrower than the minimum
    };

    for (const Example &example : examples)
        EXPECT_EQ(Geometry::resized(example.frame, example.step, example.area), example.resized)
            << example.frame << " by " << example.step;
}

TEST(GeometryTests, clampsWithoutRounding)
{
    EXPECT_EQ(Geometry::clamp({-10.5, 0, 100.25, 50}, area), (Rect{0, 25, 100.25, 50}));
    EXPECT_EQ(Geometry::clamp({1400.5, 890, 100.25, 50}, area), (Rect{1339.75, 850, 100.25, 50}));
    EXPECT_EQ(Geometry::clamp({-5, -5, 5000, 5000}, area), area);
}

TEST(GeometryTests, aHalfStaysAHalfOnAnotherDisplay)
{
    const Rect wide{1440, 0, 1920, 1080};

    EXPECT_EQ(Geometry::translated({1440, 0, 960, 1080}, wide, area), (Rect{0, 25, 720, 875}));
}

TEST(GeometryTests, translatingFromAnEmptyAreaKeepsTheWindowInside)
{
    const Rect empty{0, 0, 0, 0};

    EXPECT_EQ(Geometry::translated({2000, 30, 300, 200}, empty, area), (Rect{1140, 30, 300, 200}));
}

TEST(GeometryTests, anchorsAnOversizedWindowToTheEdgesThatItsTargetTouches)
{
    struct Example {
        const char *name;
        Rect target;
        Size size;
        Rect anchored;
    };
    const Example examples[]{
        {"left", {0, 25, 480, 875}, {600, 875}, {0, 25, 600, 875}},
        {"right", {960, 25, 480, 875}, {600, 875}, {840, 25, 600, 875}},
        {"right within the slack", {954, 31, 480, 863}, {600, 863}, {834, 31, 600, 863}},
        {"neither", {480, 25, 480, 875}, {600, 875}, {420, 25, 600, 875}},
        {"top and bottom", {0, 25, 720, 875}, {720, 900}, {0, 25, 720, 875}},
        {"bottom", {0, 463, 720, 437}, {720, 500}, {0, 400, 720, 500}},
        {"two points over", {480, 25, 480, 875}, {482, 875}, {480, 25, 482, 875}},
        {"three points over", {480, 25, 480, 875}, {483, 875}, {479, 25, 483, 875}},
        {"smaller", {960, 25, 480, 875}, {400, 300}, {960, 25, 400, 300}},
    };

    for (const Example &example : examples)
        EXPECT_EQ(Geometry::anchored(example.target, example.size, area, 6), example.anchored)
            << example.name;
}

TEST(GeometryTests, fallsShortBelowNineTenthsOfEitherSide)
{
    const Rect target{0, 0, 1000, 500};

    EXPECT_FALSE(Geometry::fallsShort({0, 0, 900, 450}, target));
    EXPECT_TRUE(Geometry::fallsShort({0, 0, 899, 500}, target));
    EXPECT_TRUE(Geometry::fallsShort({0, 0, 1000, 449}, target));
}

TEST(GeometryTests, theToleranceOfAComparisonIsInclusiveOnEveryField)
{
    const Rect frame{10, 20, 300, 200};

    EXPECT_TRUE(Geometry::approximatelyEqual(frame, {14, 16, 304, 196}, 4));
    EXPECT_FALSE(Geometry::approximatelyEqual(frame, {14.5, 20, 300, 200}, 4));
    EXPECT_FALSE(Geometry::approximatelyEqual(frame, {10, 15.5, 300, 200}, 4));
    EXPECT_FALSE(Geometry::approximatelyEqual(frame, {10, 20, 304.5, 200}, 4));
    EXPECT_FALSE(Geometry::approximatelyEqual(frame, {10, 20, 300, 195.5}, 4));
}

} // namespace corvane
