#include "LiveDesk.h"
#include "WindowHints.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;
using Side = WindowRequest::Side;
using Kind = WindowRequest::Kind;

using KeyboardTests = LiveTests;

class PlacementTests : public LiveTests
{
protected:
    /// Panels and displays are known to everybody in their own time.
    testing::AssertionResult fills(quint32 window, const Rect &area)
    {
        static_cast<void>(waitUntil([&] {
            press(maximize);
            return frame(window) == area;
        }));
        return rests(window, area);
    }
    /// What the window accepts, as the desktop is told.
    x11::WindowHints limitsOf(quint32 window, const WindowRequest::SizeHints &hints)
    {
        if (!isWayland())
            return x11::WindowHints::fromProperty(
                desktop().connection().numbers(window, "WM_NORMAL_HINTS"));
        x11::WindowHints limits;
        limits.base = hints.base;
        for (const auto &[limit, hint] : {std::pair(&limits.minimum, hints.minimum),
                 {&limits.maximum, hints.maximum}, {&limits.increment, hints.increment}})
            *limit = hint == Size{} ? *limit : hint;
        return limits;
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

} // namespace

TEST_F(PlacementTests, everyKindOfWindowLandsWithItsVisibleFrame)
{
    const quint32 parent = showFocused({.geometry = {100, 100, 800, 600}});
    const WindowRequest::Edges shadow{24, 28, 23, 29};
    QList<std::pair<const char *, WindowRequest>> kinds{
        {"decorated", {}},
        {"undecorated", {.decorated = false}},
        {"drawing its own decoration", {.decorated = false, .shadow = shadow}},
        {"dialog", {.kind = Kind::dialog, .transientFor = parent}},
    };
    if (!isWayland())
        kinds << QList<std::pair<const char *, WindowRequest>>{
            {"slow to adapt its shadow",
                {.decorated = false, .shadow = shadow, .shadowDelay = 110}},
            {"static gravity", {.hints = {.gravity = 10}}},
            {"south-east gravity", {.hints = {.gravity = 9}}},
            {"utility", {.kind = Kind::utility, .transientFor = parent}},
        };
    for (const auto &[name, request] : std::as_const(kinds)) {
        SCOPED_TRACE(name);
        const quint32 window = showFocused(request);

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
    if (isSway())
        GTEST_SKIP() << "sway takes a window for as large as it was asked to be";
    struct Case {
        const char *name;
        Size start; ///< of the client
        WindowRequest::SizeHints hints;
        double within = 0;
    };
    const Case cases[]{
        {"a terminal", {444, 328}, {.minimum = {14, 24}, .increment = {11, 23}, .base = {4, 6}}},
        {"fixed", {300, 200}, {.minimum = {300, 200}, .maximum = {300, 200}}},
        {"with a largest size", {450, 350}, {.maximum = {500, 400}}},
        {"insisting on being larger", {1200, 700}, {.minimum = {1200, 700}}},
        {"with a shape", {450, 225}, {.minimumAspect = {2, 1}, .maximumAspect = {2, 1}}, 4},
    };
    for (const auto &[name, start, hints, within] : cases) {
        SCOPED_TRACE(name);
        if (isWayland() && hints.minimumAspect != Size{})
            continue; // no window there has a shape to keep
        const quint32 window =
            showFocused({.geometry = {50, 50, start.width, start.height}, .hints = hints});
        const auto meant = limitsOf(window, hints);
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

TEST_F(PlacementTests, panelsTakeRoomFromTheirOwnDisplayUntilTheyCloseAndWindowsGoRoundAllDisplays)
{
    struct Case {
        QList<Rect> displays; ///< the primary one first
        int display; ///< of the panels
        QList<Side> sides;
    };
    // KWin's virtual displays are of one size.
    const bool areEqual = isManager({u"kwin_wayland"_s});
    const auto [width, height] = areEqual ? standardDisplay.size() : Size{1600, 900};
    const QList<Rect> beside{standardDisplay, {1920, 0, width, height}};
    const QList<Rect> stacked{standardDisplay, {0, 1080, width, height}};
    const QList<Rect> primaryOnTheRight{{width, 0, 1920, 1080}, {0, 56, width, height}};
    const Case cases[]{{beside, 1, {Side::left}}, {beside, 0, {Side::right, Side::bottom}},
        {primaryOnTheRight, 1, {Side::top, Side::right}}, {stacked, 1, {Side::top, Side::left}},
        {stacked, 0, {Side::left, Side::right, Side::top, Side::bottom}}};
    for (const auto &[displays, index, sides] : cases) {
        const Rect display = displays[index];
        const Rect other = displays[1 - index];
        SCOPED_TRACE(testing::PrintToString(display));
        ASSERT_TRUE(hand().arrange(displays));
        // i3 opens windows where the focus was.
        const quint32 window = showFocused();
        hand().place(window, {display.x + 200, display.y + 200, 500, 400});
        ASSERT_TRUE(waitUntil([&] { return frame(window).intersectionArea(display) > 0; }));
        const Rect desk{
            0, 0, std::max(display.maxX(), other.maxX()), std::max(display.maxY(), other.maxY())};
        auto panels = startClient();
        Rect area = display;
        for (const Side side : sides) {
            // i3 takes panels above and below only.
            if (isManager({u"i3"_s}) && (side == Side::left || side == Side::right))
                continue;
            EXPECT_NE(panels->showPanel(WindowRequest::panel(display, side, 45, desk)), 0U);
            area = without(area, side, 45);
        }
        ASSERT_TRUE(focus(window));
        ASSERT_TRUE(fills(window, area));
        EXPECT_TRUE(lands(window, leftHalf, area));
        EXPECT_TRUE(lands(window, bottomRight, area));

        panels.reset();
        ASSERT_TRUE(fills(window, display));
        EXPECT_TRUE(lands(window, leftHalf, display));
        press(nextDisplay);
        EXPECT_TRUE(rests(window, frameOf(leftHalf, other)));
        press(previousDisplay);
        EXPECT_TRUE(rests(window, frameOf(leftHalf, display)));
        client().close(window);
    }
}

TEST_F(KeyboardTests, shortcutsStayOnTheirPhysicalKeysWhateverTheLayoutAndTheLocks)
{
    const xcb_window_t window = showFocused();
    // By keys that every other layout puts something else on.
    const auto expectShortcutsToWork = [&] {
        for (const Placement placement : {maximize, leftThird, rightHalf})
            EXPECT_TRUE(lands(window, placement));
        press(snapBack);
        EXPECT_TRUE(rests(window, frameOf(leftThird, standardDisplay)));
    };
    for (const Key lock : {Key::numLock, Key::capsLock, Key::numLock, Key::capsLock}) {
        SCOPED_TRACE(testing::Message() << "after lock " << int(lock));
        ASSERT_TRUE(desktop().keys().toggle(lock));
        expectShortcutsToWork();
    }
    for (const auto &layout : {u"fr"_s, u"us(dvorak)"_s, u"de(neo)"_s, u"us,ru"_s}) {
        SCOPED_TRACE(qPrintable(layout));
        ASSERT_TRUE(desktop().setKeyboardLayouts(layout));
        expectShortcutsToWork();
    }
    ASSERT_TRUE(desktop().keys().toggle(Key::menu));
    expectShortcutsToWork();

    ASSERT_TRUE(desktop().setKeyboardLayouts(u"fr"_s));
    corvane().stop();
    ASSERT_TRUE(corvane().start());
    EXPECT_TRUE(corvane().readyLine().startsWith(u"ready: 21 of 21")) << "started under another";
    expectShortcutsToWork();
    EXPECT_TRUE(desktop().setKeyboardLayouts(u"us"_s));
}

} // namespace corvane::desktop
