#include "WindowSnapshot.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane {

static void PrintTo(const Rect &rect, std::ostream *stream)
{
    *stream << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
}

} // namespace corvane

namespace corvane::x11 {

TEST(WindowSnapshotTests, theFrameIncludesDecorationsAndExcludesShadows)
{
    WindowSnapshot decorated;
    decorated.client = {105, 129, 500, 400};
    decorated.decoration = {5, 5, 29, 5};
    WindowSnapshot shadowed;
    shadowed.client = {74, 77, 552, 452};
    shadowed.shadow = {26, 26, 23, 29};

    EXPECT_EQ(decorated.frame(), (Rect{100, 100, 510, 434}));
    EXPECT_EQ(shadowed.frame(), (Rect{100, 100, 500, 400}));
}

TEST(WindowSnapshotTests, aRequestAsksForTheFrameBack)
{
    WindowSnapshot window;
    window.client = {74, 106, 552, 452};
    window.decoration = {5, 5, 29, 5};
    window.shadow = {26, 26, 23, 29};
    window.border = 1;

    // North-west gravity: the request names the corner of the decoration.
    EXPECT_EQ(window.requestFor(window.frame()), (Rect{69, 77, 552, 452}));

    // Without published extents it names the client's own rectangle, outside its border.
    window.publishesDecoration = false;
    EXPECT_EQ(window.requestFor(window.frame()), (Rect{73, 105, 554, 454}));
}

TEST(WindowSnapshotTests, absurdExtentsAreNone)
{
    EXPECT_EQ(Extents::fromProperty(std::array<quint32, 4>{5, 6, 29, 7}), (Extents{5, 6, 29, 7}));
    EXPECT_FALSE(Extents::fromProperty(std::array<quint32, 4>{5, 5, 0xFFFFFFFF, 5}));
    EXPECT_FALSE(Extents::fromProperty(std::array<quint32, 3>{5, 5, 5}));
}

} // namespace corvane::x11
