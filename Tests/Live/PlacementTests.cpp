#include "LiveDesk.h"
#include "WindowHints.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;
using Side = WindowRequest::Side;
using Kind = WindowRequest::Kind;

class PlacementTests : public LiveTests
{
protected:
    /// Panels and displays are known to everybody in their own time: the one of these areas that
    /// the window fills in the end.
    std::optional<Rect> filled(xcb_window_t window, const QList<Rect> &areas)
    {
        const bool fills = waitUntil([&] {
            press(maximize);
            return areas.contains(frame(window));
        });
        EXPECT_TRUE(fills) << testing::PrintToString(frame(window));
        return fills ? std::optional(frame(window)) : std::nullopt;
    }
};

x11::WindowHints asMeant(const WindowRequest::SizeHints &given)
{
    x11::WindowHints hints;
    hints.minimum = given.minimum == Size{} ? hints.minimum : given.minimum;
    hints.maximum = given.maximum == Size{} ? hints.maximum : given.maximum;
    hints.increment = given.increment == Size{} ? hints.increment : given.increment;
    hints.base = given.base;
    hints.leastAspect = given.minimumAspect;
    hints.mostAspect = given.maximumAspect;
    return hints;
}

Rect without(const Rect &display, Side side, double thickness)
{
    Rect rest = display;
    (side == Side::left || side == Side::right ? rest.width : rest.height) -= thickness;
    rest.x += side == Side::left ? thickness : 0;
    rest.y += side == Side::top ? thickness : 0;
    return rest;
}

} // namespace

TEST_F(PlacementTests, everyShortcutPutsTheFocusedWindowOnItsRegionToThePixel)
{
    const xcb_window_t window = showFocused();

    for (const auto &[placement, stroke] : shortcuts) {
        if (unitRect(placement)) {
            EXPECT_TRUE(lands(window, placement));
        }
    }
}

TEST_F(PlacementTests, everyKindOfWindowLandsWithItsVisibleFrame)
{
    const xcb_window_t parent = showFocused({.geometry = {100, 100, 800, 600}});
    const WindowRequest::Edges shadow{24, 28, 23, 29};
    const std::pair<const char *, WindowRequest> kinds[]{
        {"decorated", {}},
        {"undecorated", {.decorated = false}},
        {"drawing its own decoration", {.decorated = false, .shadow = shadow}},
        {"slow to adapt its shadow", {.decorated = false, .shadow = shadow, .shadowDelay = 110}},
        {"static gravity", {.hints = {.gravity = 10}}},
        {"south-east gravity", {.hints = {.gravity = 9}}},
        {"dialog", {.kind = Kind::dialog, .transientFor = parent}},
        {"utility", {.kind = Kind::utility, .transientFor = parent}},
    };
    for (const auto &[name, request] : kinds) {
        SCOPED_TRACE(name);
        const xcb_window_t window = showFocused(request);

        for (const Placement placement : {leftHalf, bottomRight, maximize, centerThird})
            EXPECT_TRUE(lands(window, placement));
        const Rect sixth = frameOf(topLeftSixth, standardDisplay);
        EXPECT_EQ(place(topLeftSixth).to(), sixth) << "the answer knows where it ended";
        EXPECT_TRUE(rests(window, sixth));
        client().close(window);
    }
}

TEST_F(PlacementTests, aWindowWithLimitsFillsItsTargetAsFarAsTheyAllowAndKeepsToItsEdges)
{
    struct Case {
        const char *name;
        WindowRequest::SizeHints hints;
        double within = 0;
    };
    const Case cases[]{
        {"a terminal", {.minimum = {14, 24}, .increment = {11, 23}, .base = {4, 6}}},
        {"fixed", {.minimum = {300, 200}, .maximum = {300, 200}}},
        {"with a largest size", {.maximum = {500, 400}}},
        {"insisting on being larger", {.minimum = {1200, 700}}},
        {"with a shape", {.minimumAspect = {2, 1}, .maximumAspect = {2, 1}}, 4},
    };
    for (const auto &[name, hints, within] : cases) {
        SCOPED_TRACE(name);
        const x11::WindowHints meant = asMeant(hints);
        const Size start = meant.constrained({450, 350});
        const xcb_window_t window =
            showFocused({.geometry = {50, 50, start.width, start.height}, .hints = hints});
        const Rect outer = frame(window);
        const Size edges{outer.width - start.width, outer.height - start.height};

        for (const Placement placement : {leftHalf, bottomRight, centerThird, topRight}) {
            const Rect target = frameOf(placement, standardDisplay);
            Size size =
                meant.constrained({target.width - edges.width, target.height - edges.height});
            size = {size.width + edges.width, size.height + edges.height};
            const bool isLarger = size.width > target.width || size.height > target.height;
            const Rect expected = isLarger
                ? Geometry::anchored(target, size, standardDisplay, Geometry::slackBeyondGap)
                : Rect{target.x, target.y, size.width, size.height};
            press(placement);

            EXPECT_TRUE(waitUntil([&] {
                return Geometry::approximatelyEqual(frame(window), expected, within);
            })) << rawValue(placement).data()
                << ": " << testing::PrintToString(frame(window)) << ", not "
                << testing::PrintToString(expected);
        }
        client().close(window);
    }
}

TEST_F(PlacementTests, windowsOfRealToolkitsLand)
{
    for (const auto &program : {u"gtk3-demo"_s, QStringLiteral(CORVANE_QT_TEST_CLIENT)}) {
        SCOPED_TRACE(qPrintable(program));
        const auto application = desktop().launch(program);
        const xcb_window_t window = windowOf(*application);
        ASSERT_TRUE(focus(window));
        static_cast<void>(frame(window));

        for (const Placement placement : {leftHalf, bottomRight, maximize, rightHalf})
            EXPECT_TRUE(lands(window, placement));
    }
}

TEST_F(PlacementTests, panelsTakeRoomFromTheirOwnDisplayUntilTheyCloseAndWindowsGoRoundAllDisplays)
{
    struct Case {
        QList<Rect> displays; ///< the primary one first
        int display; ///< of the panels
        QList<Side> sides;
    };
    const QList<Rect> beside{standardDisplay, {1920, 0, 1600, 900}};
    const QList<Rect> stacked{standardDisplay, {0, 1080, 1600, 900}};
    const QList<Rect> primaryOnTheRight{{1280, 0, 1920, 1080}, {0, 56, 1280, 1024}};
    const Case cases[]{{beside, 1, {Side::left}}, {beside, 0, {Side::right, Side::bottom}},
        {primaryOnTheRight, 1, {Side::top, Side::right}}, {stacked, 1, {Side::top, Side::left}},
        {stacked, 0, {Side::left, Side::right, Side::top, Side::bottom}}};
    for (const auto &[displays, index, sides] : cases) {
        const Rect display = displays[index];
        const Rect other = displays[1 - index];
        SCOPED_TRACE(testing::PrintToString(display));
        ASSERT_TRUE(desktop().displays().arrange(displays));
        // i3 opens windows where the focus was.
        const xcb_window_t window = showFocused();
        pager().moveResize(window, {display.x + 200, display.y + 200, 500, 400});
        ASSERT_TRUE(waitUntil([&] { return frame(window).intersectionArea(display) > 0; }));
        const Rect desk{
            0, 0, std::max(display.maxX(), other.maxX()), std::max(display.maxY(), other.maxY())};
        QList<xcb_window_t> panels;
        Rect area = display;
        for (const Side side : sides) {
            // i3 takes panels above and below only.
            if (isManager({u"i3"_s}) && (side == Side::left || side == Side::right))
                continue;
            panels << client().show(WindowRequest::panel(display, side, 45, desk));
            area = without(area, side, 45);
        }
        ASSERT_TRUE(focus(window));
        ASSERT_TRUE(filled(window, {area}));
        EXPECT_TRUE(lands(window, leftHalf, area));
        EXPECT_TRUE(lands(window, bottomRight, area));

        for (const xcb_window_t panel : std::as_const(panels))
            client().close(panel);
        ASSERT_TRUE(filled(window, {display}));
        EXPECT_TRUE(lands(window, leftHalf, display));
        press(nextDisplay);
        EXPECT_TRUE(rests(window, frameOf(leftHalf, other)));
        press(previousDisplay);
        EXPECT_TRUE(rests(window, frameOf(leftHalf, display)));
        client().close(window);
    }
}

TEST_F(PlacementTests, displaysThatComeGoAndChangeAreUsedAsTheyAreWithoutARestart)
{
    const QList<Rect> both{standardDisplay, {1920, 0, 1280, 1024}};
    const xcb_window_t window = showFocused();
    for (const auto &displays :
        {both, {standardDisplay}, {{0, 0, 1280, 720}}, {{0, 0, 2560, 1440}}, both}) {
        SCOPED_TRACE(testing::PrintToString(displays));
        ASSERT_TRUE(desktop().displays().arrange(displays));
        ASSERT_TRUE(focus(window));

        // Some window managers move a window back to the display that returned.
        const auto display = filled(window, displays);
        ASSERT_TRUE(display);
        EXPECT_TRUE(lands(window, bottomRight, *display));
        if (displays.size() == 2) {
            press(nextDisplay);
            EXPECT_TRUE(
                rests(window, frameOf(bottomRight, *display == both[0] ? both[1] : both[0])));
        }
    }
}

} // namespace corvane::desktop
