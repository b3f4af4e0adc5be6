#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;

constexpr auto vertically = "_NET_WM_STATE_MAXIMIZED_VERT";
constexpr auto horizontally = "_NET_WM_STATE_MAXIMIZED_HORZ";

class WindowStateTests : public LiveTests
{
protected:
    SeenWindow seen(quint32 window) { return hand().window(window).value_or(SeenWindow()); }
    bool hasState(quint32 window)
    {
        if (isWayland())
            return seen(window).isMaximized || seen(window).isTiled;
        return probe().hasState(window, vertically) || probe().hasState(window, horizontally);
    }
    bool hasShadow(quint32 window)
    {
        if (isWayland())
            return false; // known to nobody
        const auto shadow = desktop().connection().numbers(window, "_GTK_FRAME_EXTENTS");
        return shadow.count(0) != shadow.size();
    }
    testing::AssertionResult landsOutOfState(quint32 window, Placement placement)
    {
        const auto result = lands(window, placement);
        if (hasState(window))
            return testing::AssertionFailure() << "it is still maximised";
        return result;
    }

    /// Maximises the window, places it elsewhere, and undoes first the one and then the other.
    void expectStateBack(
        quint32 window, const std::function<void(bool)> &maximise, Placement placement)
    {
        const Rect normal = frame(window);
        maximise(true);
        Rect maximised;
        ASSERT_TRUE(waitUntil([&] {
            maximised = frame(window);
            return maximised.height > normal.height && !hasShadow(window);
        })) << testing::PrintToString(maximised);
        EXPECT_TRUE(landsOutOfState(window, placement));

        press(snapBack);

        EXPECT_TRUE(rests(window, maximised));
        EXPECT_TRUE(waitUntil([&] { return hasState(window); }));
        maximise(false);
        EXPECT_TRUE(rests(window, normal));
    }
};

} // namespace

TEST_F(WindowStateTests, aMaximisedWindowLandsExactlyAndSnapBackGivesStateAndFrameBack)
{
    if (isSway())
        GTEST_SKIP() << "sway maximises no windows";
    quint32 window = showFocused();
    const auto both = [&](bool isOn) { hand().setMaximized(window, isOn); };
    expectStateBack(window, both, topRight);
    if (!isWayland()) {
        const auto upwards = [&](bool isOn) {
            pager().setMaximizedVertically(window, Pager::Change(isOn));
        };
        expectStateBack(window, upwards, bottomRight);
        expectStateBack(window, both, maximize);
    }
    client().close(window);
    SCOPED_TRACE("GTK");
    const auto application = session().launch(u"gtk3-demo"_s);
    window = hand().waitForWindow(application->pid(), {}, 3 * patience);
    ASSERT_TRUE(focus(window));
    for (const Placement placement : {topRight, bottomRight, leftHalf})
        expectStateBack(window, both, placement);
}

TEST_F(WindowStateTests, windowsThatTheWindowManagerTiledLandExactly)
{
    if (isManager({u"openbox"_s, u"icewm"_s, u"fluxbox"_s}))
        GTEST_SKIP() << "this window manager tiles no windows that float";
    const Rect tile = frameOf(isSway() ? rightHalf : leftHalf, standardDisplay);
    if (isSway())
        hand().tile(showFocused()); // which is the left tile from then on
    for (const Placement placement : {topRight, bottomRight}) {
        const quint32 window = showFocused();
        if (isWayland())
            hand().tile(window);
        else
            keys().press({KeyStroke::super, Key::left});
        ASSERT_TRUE(rests(window, tile)) << "it was not tiled";

        // metacity tiles a window again whenever it leaves the maximised state, and ignores moves.
        if (isManager({u"metacity"_s})) {
            EXPECT_TRUE(place(placement).reason().contains(u"could not set position"_s));
            EXPECT_EQ(frame(window), tile);
        } else {
            EXPECT_TRUE(landsOutOfState(window, placement));
        }
        if (isWayland()) {
            press(snapBack);
            EXPECT_TRUE(rests(window, tile));
        }
        client().close(window);
    }
}

TEST_F(
    WindowStateTests, aWindowThatAMoveFilledTheDisplayWithCanBePlacedButFullScreenByHandIsRefused)
{
    const quint32 window = showFocused({.decorated = false});
    const auto fillsDisplay = [&] { return seen(window).isFullScreen; };
    ASSERT_TRUE(lands(window, maximize));
    const bool isFullScreen = fillsDisplay();
    EXPECT_TRUE(landsOutOfState(window, leftHalf));
    press(snapBack);
    EXPECT_TRUE(rests(window, standardDisplay));
    EXPECT_EQ(fillsDisplay(), isFullScreen);
    EXPECT_TRUE(landsOutOfState(window, rightHalf));

    ASSERT_TRUE(lands(window, maximize));
    // marco and metacity fill the display once more when it is left the first time.
    ASSERT_TRUE(waitUntil([&] {
        hand().setFullScreen(window, false);
        return !settled(fillsDisplay, Milliseconds{500});
    }));
    hand().setFullScreen(window, true);
    ASSERT_TRUE(waitUntil(fillsDisplay));
    ASSERT_TRUE(rests(window, standardDisplay));

    EXPECT_TRUE(place(leftHalf).reason().contains(u"window is in native full screen"_s));
    EXPECT_TRUE(fillsDisplay());
    EXPECT_EQ(frame(window), standardDisplay);
}

TEST_F(WindowStateTests, aMinimisedWindowIsNoFocusedWindow)
{
    const quint32 window = showFocused();
    hand().setMinimized(window, true);
    ASSERT_TRUE(waitUntil([&] { return seen(window).isMinimized; }));
    ASSERT_TRUE(waitUntil([&] { return hand().activeWindow() != window; }));

    EXPECT_TRUE(place(leftHalf).reason().contains(u"no focused window"_s));
    EXPECT_TRUE(seen(window).isMinimized);
}

} // namespace corvane::desktop
