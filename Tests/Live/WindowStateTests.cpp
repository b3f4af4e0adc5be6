#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;
using Change = Pager::Change;

constexpr auto vertically = "_NET_WM_STATE_MAXIMIZED_VERT";
constexpr auto horizontally = "_NET_WM_STATE_MAXIMIZED_HORZ";

class WindowStateTests : public LiveTests
{
protected:
    testing::AssertionResult landsOutOfState(xcb_window_t window, Placement placement)
    {
        const auto result = lands(window, placement);
        if (probe().hasState(window, vertically) || probe().hasState(window, horizontally))
            return testing::AssertionFailure() << "it is still maximised";
        return result;
    }

    /// Maximises the window, places it elsewhere, and undoes first the one and then the other.
    void expectStateBack(
        xcb_window_t window, void (Pager::*change)(xcb_window_t, Change), Placement placement)
    {
        const Rect normal = frame(window);
        (pager().*change)(window, Change::add);
        Rect maximised;
        ASSERT_TRUE(waitUntil([&] {
            const auto shadow = desktop().connection().numbers(window, "_GTK_FRAME_EXTENTS");
            maximised = frame(window);
            return maximised.height > normal.height && shadow.count(0) == shadow.size();
        })) << testing::PrintToString(maximised);
        EXPECT_TRUE(landsOutOfState(window, placement));

        press(snapBack);

        EXPECT_TRUE(rests(window, maximised));
        EXPECT_TRUE(waitUntil([&] { return probe().hasState(window, vertically); }));
        (pager().*change)(window, Change::remove);
        EXPECT_TRUE(rests(window, normal));
    }
};

} // namespace

TEST_F(WindowStateTests, aMaximisedWindowLandsExactlyAndSnapBackGivesStateAndFrameBack)
{
    const xcb_window_t plain = showFocused();
    expectStateBack(plain, &Pager::setMaximized, topRight);
    expectStateBack(plain, &Pager::setMaximizedVertically, bottomRight);
    expectStateBack(plain, &Pager::setMaximized, maximize);
    client().close(plain);
    SCOPED_TRACE("GTK");
    const auto application = desktop().launch(u"gtk3-demo"_s);
    const xcb_window_t window = probe().waitForWindow(
        [&](xcb_window_t each) { return probe().hasProcess(each, application->pid()); },
        3 * patience);
    ASSERT_TRUE(focus(window));
    for (const Placement placement : {topRight, bottomRight, leftHalf})
        expectStateBack(window, &Pager::setMaximized, placement);
}

TEST_F(WindowStateTests, windowsThatTheWindowManagerTiledLandExactly)
{
    if (isManager({u"openbox"_s, u"icewm"_s, u"fluxbox"_s}))
        GTEST_SKIP() << "this window manager tiles no windows that float";
    const Rect tile = frameOf(leftHalf, standardDisplay);
    for (const Placement placement : {topRight, bottomRight}) {
        const xcb_window_t window = showFocused();
        keys().press({KeyStroke::super, Key::left});
        ASSERT_TRUE(rests(window, tile)) << "it was not tiled";

        // metacity tiles a window again whenever it leaves the maximised state, and ignores moves.
        if (isManager({u"metacity"_s})) {
            EXPECT_TRUE(place(placement).reason().contains(u"could not set position"_s));
            EXPECT_EQ(frame(window), tile);
        } else {
            EXPECT_TRUE(landsOutOfState(window, placement));
        }
        client().close(window);
    }
}

TEST_F(
    WindowStateTests, aWindowThatAMoveFilledTheDisplayWithCanBePlacedButFullScreenByHandIsRefused)
{
    const xcb_window_t window = showFocused({.decorated = false});
    ASSERT_TRUE(lands(window, maximize));
    const bool isFullScreen = probe().hasState(window, "_NET_WM_STATE_FULLSCREEN");
    EXPECT_TRUE(landsOutOfState(window, leftHalf));
    press(snapBack);
    EXPECT_TRUE(rests(window, standardDisplay));
    EXPECT_EQ(probe().hasState(window, "_NET_WM_STATE_FULLSCREEN"), isFullScreen);
    EXPECT_TRUE(landsOutOfState(window, rightHalf));

    ASSERT_TRUE(lands(window, maximize));
    // marco and metacity fill the display once more when it is left the first time.
    const auto fillsDisplay = [&] { return probe().hasState(window, "_NET_WM_STATE_FULLSCREEN"); };
    ASSERT_TRUE(waitUntil([&] {
        pager().setFullScreen(window, Change::remove);
        return !settled(fillsDisplay, Milliseconds{500});
    }));
    pager().setFullScreen(window, Change::add);
    ASSERT_TRUE(waitUntil(fillsDisplay));
    ASSERT_TRUE(rests(window, standardDisplay));

    EXPECT_TRUE(place(leftHalf).reason().contains(u"window is in native full screen"_s));
    EXPECT_TRUE(fillsDisplay());
    EXPECT_EQ(frame(window), standardDisplay);
}

TEST_F(WindowStateTests, aMinimisedWindowIsNoFocusedWindow)
{
    const xcb_window_t window = showFocused();
    pager().minimize(window);
    ASSERT_TRUE(waitUntil([&] { return probe().isMinimized(window); }));
    ASSERT_TRUE(waitUntil([&] { return probe().activeWindow() != window; }));

    EXPECT_TRUE(place(leftHalf).reason().contains(u"no focused window"_s));
    EXPECT_TRUE(probe().isMinimized(window));
}

} // namespace corvane::desktop
