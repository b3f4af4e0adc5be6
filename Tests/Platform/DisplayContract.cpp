#include "PlatformContract.h"

#include <QtCore/QSet>

namespace corvane {

TEST_P(PlatformContract, displaysComeAndGoWithOneNoticeEach)
{
    CORVANE_NEEDS(displays);
    const QList<ScreenInfo> before = displays().all();
    ASSERT_EQ(before.size(), 1);

    world().plugDisplay();
    EXPECT_TRUE(world().waitUntil([&] { return displayChanges > 0; }));
    world().settle();

    const QList<ScreenInfo> both = displays().all();
    EXPECT_EQ(displayChanges, 1);
    ASSERT_EQ(both.size(), 2);
    EXPECT_EQ(both.first(), before.first());
    EXPECT_EQ(both[0].frame.intersectionArea(both[1].frame), 0);
    EXPECT_NE(both[0].displayID, both[1].displayID);

    world().unplugDisplay();
    EXPECT_TRUE(world().waitUntil([&] { return displayChanges > 1; }));
    world().settle();

    EXPECT_EQ(displayChanges, 2);
    EXPECT_EQ(displays().all(), before);
}

TEST_P(PlatformContract, thePrimaryDisplayHoldsTheOrigin)
{
    const ScreenInfo primary = displays().all().first();

    EXPECT_EQ(primary.frame.origin(), (Point{0, 0}));
    EXPECT_EQ(primary.visibleFrame, primary.frame);
    EXPECT_NE(primary.name, QString());
}

TEST_P(PlatformContract, panelsTakeTheirEdgesFromTheVisibleFrame)
{
    CORVANE_NEEDS(panels);
    using Edge = ContractWorld::Edge;
    struct Case {
        Edge edge;
        double thickness;
        Rect lost; ///< from the visible frame, by side
    };
    Rect expected = displays().all().first().frame;
    for (const Case &each :
        {Case{Edge::top, 25, {0, 25, 0, -25}}, Case{Edge::bottom, 40, {0, 0, 0, -40}},
            Case{Edge::left, 60, {60, 0, -60, 0}}, Case{Edge::right, 30, {0, 0, -30, 0}}}) {
        SCOPED_TRACE(int(each.edge));
        displayChanges = 0;
        expected = {expected.x + each.lost.x, expected.y + each.lost.y,
            expected.width + each.lost.width, expected.height + each.lost.height};

        world().addPanel(each.edge, each.thickness);

        EXPECT_TRUE(world().waitUntil([&] { return displayChanges > 0; }));
        world().settle();
        EXPECT_EQ(displays().all().first().visibleFrame, expected);
        EXPECT_EQ(displayChanges, 1);
    }
}

} // namespace corvane
