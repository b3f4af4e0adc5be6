#include "VisibleFrame.h"

#include "ClientProperties.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane::x11 {

namespace {

using Edge = Strut::Edge;

constexpr Size desk{3520, 1080};
constexpr Rect left{0, 0, 1920, 1080};
constexpr Rect right{1920, 0, 1600, 1000};

struct Example {
    const char *what;
    Strut strut;
    Rect onLeft;
    Rect onRight;
};

} // namespace

void PrintTo(const Rect &rect, std::ostream *stream)
{
    *stream << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
}

TEST(VisibleFrameTests, aPanelIsTakenOffItsOwnDisplayOnly)
{
    const Example examples[]{
        {"top of the left", {Edge::top, 30, 0, 1919}, {0, 30, 1920, 1050}, right},
        {"bottom of the shorter right, measured from the desk's edge",
            {Edge::bottom, 120, 1920, 3519}, left, {1920, 0, 1600, 960}},
        {"left edge of the right display, inside the desk", {Edge::left, 1960, 0, 999}, left,
            {1960, 0, 1560, 1000}},
        {"right edge of the left display, inside the desk", {Edge::right, 1640, 0, 1079},
            {0, 0, 1880, 1080}, right},
        {"along the whole top", {Edge::top, 24, 0, 65535}, {0, 24, 1920, 1056},
            {1920, 24, 1600, 976}},
        {"a reservation that would swallow a display", {Edge::left, 1920, 0, 1079}, left, right},
        {"below the end of the shorter display", {Edge::right, 40, 1000, 1079}, left, right},
    };
    for (const Example &example : examples) {
        EXPECT_EQ(withoutStruts(left, {example.strut}, desk), example.onLeft) << example.what;
        EXPECT_EQ(withoutStruts(right, {example.strut}, desk), example.onRight) << example.what;
    }
}

TEST(VisibleFrameTests, panelsThatLeaveNothingAreNotBelieved)
{
    const QList<Strut> struts{{Edge::left, 1000, 0, 1079}, {Edge::right, 2600, 0, 1079}};

    EXPECT_EQ(withoutStruts(left, struts, desk), left);
}

TEST(VisibleFrameTests, aPanelOfTheWindowManagerIsTakenOffTheEdgeThatItStandsAt)
{
    EXPECT_EQ(withoutPanel(left, left, {0, 1054, 1920, 26}), (Rect{0, 0, 1920, 1054}));
    EXPECT_EQ(withoutPanel(left, left, {1880, 0, 40, 1080}), (Rect{0, 0, 1880, 1080}));
    EXPECT_EQ(withoutPanel(right, right, {0, 1054, 1920, 26}), right);
}

TEST(VisibleFrameTests, reservationsAreReadFromBothProperties)
{
    const std::array<quint32, 4> whole{0, 0, 24, 0};
    const std::array<quint32, 12> partial{40, 0, 0, 0, 100, 900, 0, 0, 0, 0, 0, 0};
    const std::array<quint32, 4> absurd{0xFFFFFFFF, 0, 0, 70000};

    EXPECT_EQ(strutsFromProperty(whole), (QList<Strut>{{Edge::top, 24, 0, 65535}}));
    EXPECT_EQ(strutsFromProperty(partial), (QList<Strut>{{Edge::left, 40, 100, 900}}));
    EXPECT_TRUE(strutsFromProperty(absurd).isEmpty());
}

} // namespace corvane::x11
