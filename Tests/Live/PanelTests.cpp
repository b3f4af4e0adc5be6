#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using Side = WindowRequest::Side;

class PanelTests : public LiveTests
{
protected:
    static bool takesPanelsOn(Side side)
    {
        return !isManager({"i3"}) || side == Side::top || side == Side::bottom;
    }

    // The window manager's word for where panels are not.
    Rect maximisedByTheWindowManager(xcb_window_t window)
    {
        pager().setMaximized(window, Pager::Change::add);
        static_cast<void>(
            waitUntil([&] { return probe().hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"); },
                Milliseconds{2000}));
        const Rect result = frame(window);
        pager().setMaximized(window, Pager::Change::remove);
        static_cast<void>(frame(window));
        return result;
    }
};

Rect without(const Rect &display, Side side, double thickness)
{
    Rect rest = display;
    (side == Side::left || side == Side::right ? rest.width : rest.height) -= thickness;
    rest.x += side == Side::left ? thickness : 0;
    rest.y += side == Side::top ? thickness : 0;
    return rest;
}

constexpr std::array sides{Side::left, Side::right, Side::top, Side::bottom};

} // namespace

TEST_F(PanelTests, placementsStayClearOfAPanelOnEachEdge)
{
    const xcb_window_t window = showFocused({.decorated = false});
    for (const Side side : sides) {
        if (!takesPanelsOn(side))
            continue;
        SCOPED_TRACE(static_cast<int>(side));
        const xcb_window_t panel =
            client().show(WindowRequest::panel(standardDisplay, side, 47, standardDisplay));
        const Rect area = without(standardDisplay, side, 47);
        ASSERT_TRUE(focus(window));
        if (!isManager({"i3"})) {
            EXPECT_EQ(maximisedByTheWindowManager(window), area);
        }

        for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s}) {
            const Rect expected = frameOf(region(placement), area);
            press(region(placement).stroke);
            EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
        }
        client().close(panel);
    }

    // The window manager hears of a closed panel in its own time.
    const Rect free = frameOf(region(u"topHalf"), standardDisplay);
    EXPECT_TRUE(waitUntil([&] {
        press(region(u"topHalf").stroke);
        return frame(window) == free;
    })) << testing::PrintToString(frame(window));
}

TEST_F(PanelTests, panelsOnSeveralEdgesAllCount)
{
    Rect area = standardDisplay;
    for (const Side side : sides) {
        if (!takesPanelsOn(side))
            continue;
        ASSERT_TRUE(
            client().show(WindowRequest::panel(standardDisplay, side, 33, standardDisplay)));
        area = without(area, side, 33);
    }
    const xcb_window_t window = showFocused();

    for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s}) {
        const Rect expected = frameOf(region(placement), area);
        press(region(placement).stroke);
        EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
    }
}

TEST_F(PanelTests, panelsBetweenDisplaysTakeRoomOnlyFromTheirOwnDisplay)
{
    struct Case {
        const char *name;
        QList<Rect> displays;
        int panelDisplay;
        Side side;
    };
    const Rect below{0, 1080, 1600, 900};
    const Rect right{1920, 0, 1600, 900};
    const Case cases[]{
        {"left edge of the right display", {standardDisplay, right}, 1, Side::left},
        {"right edge of the left display", {standardDisplay, right}, 0, Side::right},
        {"top edge of the lower display", {standardDisplay, below}, 1, Side::top},
        {"bottom edge of the upper display", {standardDisplay, below}, 0, Side::bottom},
    };
    for (const auto &[name, displays, panelDisplay, side] : cases) {
        if (!takesPanelsOn(side))
            continue;
        SCOPED_TRACE(name);
        ASSERT_TRUE(desktop().displays().arrange(displays));
        const Rect desk{0, 0, std::max(displays[0].maxX(), displays[1].maxX()),
            std::max(displays[0].maxY(), displays[1].maxY())};
        const Rect display = displays[panelDisplay];
        const Rect area = without(display, side, 45);
        const xcb_window_t window = showFocusedOn(display);
        const xcb_window_t panel = client().show(WindowRequest::panel(display, side, 45, desk));
        ASSERT_TRUE(focus(window));

        for (const auto &placement : {u"maximize"_s, u"leftHalf"_s, u"bottomRight"_s}) {
            const Rect expected = frameOf(region(placement), area);
            press(region(placement).stroke);
            EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
        }
        client().close(panel);
        client().close(window);
    }
}

} // namespace corvane::desktop
