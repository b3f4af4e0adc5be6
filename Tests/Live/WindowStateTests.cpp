#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class WindowStateTests : public LiveTests
{
protected:
    bool waitForState(xcb_window_t window, const char *state)
    {
        return waitUntil([&] { return probe().hasState(window, state); }, Milliseconds{2000});
    }

    /// By the window manager's own shortcut. KWin's keys come late, through a service of their own,
    /// so it is asked for the action behind the key.
    void tileLeft()
    {
        if (!isManager({"kwin_x11"})) {
            press({KeyStroke::super, Key::left});
            return;
        }
        EXPECT_TRUE(desktop().run(u"dbus-send"_s,
            {u"--session"_s, u"--print-reply"_s, u"--dest=org.kde.kglobalaccel"_s,
                u"/component/kwin"_s, u"org.kde.kglobalaccel.Component.invokeShortcut"_s,
                u"string:Window Quick Tile Left"_s}));
    }

    void expectToLandAfter(xcb_window_t window, const QString &placement)
    {
        const Rect expected = frameOf(region(placement), standardDisplay);
        press(region(placement).stroke);

        EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
        EXPECT_FALSE(probe().hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"));
        EXPECT_FALSE(probe().hasState(window, "_NET_WM_STATE_MAXIMIZED_HORZ"));
    }

    /// However often it moves before: a client that draws its shadow late lets it stand wrong for
    /// a moment in between.
    bool restsAt(xcb_window_t window, const Rect &expected)
    {
        return waitUntil([&] { return frame(window) == expected; });
    }

    /// Maximises the window, places it elsewhere, and undoes first the one and then the other.
    void expectStateBack(xcb_window_t window, void (Pager::*change)(xcb_window_t, Pager::Change))
    {
        const Rect normal = frame(window);
        (pager().*change)(window, Pager::Change::add);
        // With a border beyond the edges on icewm, but without the shadow that is soon gone.
        constexpr double border = 10;
        Rect maximised;
        ASSERT_TRUE(waitUntil([&] {
            maximised = frame(window);
            return maximised.height > normal.height
                && maximised.height <= standardDisplay.height + border;
        })) << testing::PrintToString(maximised);
        expectToLandAfter(window, u"topRight"_s);

        press(strokes::snapBack);

        EXPECT_TRUE(restsAt(window, maximised)) << testing::PrintToString(frame(window));
        EXPECT_TRUE(waitForState(window, "_NET_WM_STATE_MAXIMIZED_VERT"));
        (pager().*change)(window, Pager::Change::remove);
        EXPECT_TRUE(restsAt(window, normal)) << testing::PrintToString(frame(window));
    }
};

const WindowRequest shadowed{
    .geometry = {200, 150, 700, 500}, .decorated = false, .shadow = {26, 26, 23, 29}};
const WindowRequest slowShadowed{.geometry = {200, 150, 700, 500},
    .decorated = false,
    .shadow = {26, 26, 23, 29},
    .shadowDelay = 110};

} // namespace

TEST_F(WindowStateTests, maximisedWindowsLeaveThatStateAndLandExactly)
{
    if (isManager({"i3"}))
        GTEST_SKIP() << "i3 has no maximised windows";
    for (const WindowRequest &request : {WindowRequest{}, shadowed, slowShadowed}) {
        const xcb_window_t window = showFocused(request);
        for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s}) {
            pager().setMaximized(window, Pager::Change::add);
            ASSERT_TRUE(waitForState(window, "_NET_WM_STATE_MAXIMIZED_VERT"));
            static_cast<void>(frame(window));

            expectToLandAfter(window, placement);
        }
        client().close(window);
    }
}

TEST_F(WindowStateTests, snapBackGivesTheStateBackWithTheFrameBehindIt)
{
    if (isManager({"i3"}))
        GTEST_SKIP() << "i3 has no maximised windows";
    for (const WindowRequest &request : {WindowRequest{}, shadowed, slowShadowed}) {
        for (const auto state : {&Pager::setMaximized, &Pager::setMaximizedVertically}) {
            const xcb_window_t window = showFocused(request);
            expectStateBack(window, state);
            client().close(window);
        }
    }
}

TEST_F(WindowStateTests, maximisedGtkWindowsLandExactlyAndGoBack)
{
    if (isManager({"i3"}))
        GTEST_SKIP() << "i3 has no maximised windows";
    const auto application = desktop().launch(u"gtk3-demo"_s);
    const xcb_window_t window = probe().waitForWindow(
        [&](xcb_window_t each) { return probe().hasClass(each, "Gtk3-demo"); });
    ASSERT_TRUE(focus(window));
    for (int round = 0; round < 3; ++round)
        expectStateBack(window, &Pager::setMaximized);
}

TEST_F(WindowStateTests, windowsThatTheWindowManagerTiledLandExactly)
{
    if (isManager({"openbox", "icewm", "fluxbox", "i3"}))
        GTEST_SKIP() << "this window manager tiles no windows that float";
    const Rect tile = frameOf(region(u"leftHalf"), standardDisplay);
    for (const auto &placement : {u"topRight"_s, u"bottomRight"_s}) {
        const xcb_window_t window = showFocused();
        press({KeyStroke::super, Key::left});
        ASSERT_EQ(reached(window, tile), tile) << "it was not tiled";

        // metacity tiles a window again whenever it leaves the maximised state, and ignores moves.
        if (isManager({"metacity"})) {
            EXPECT_TRUE(refused(corvane().place(placement), u"could not set position"_s));
            EXPECT_EQ(frame(window), tile);
        } else {
            expectToLandAfter(window, placement);
        }
        client().close(window);
    }
}

TEST_F(WindowStateTests, fullScreenIsRefusedWithItsSentenceAndNothingIsWritten)
{
    const xcb_window_t window = showFocused();
    pager().setFullScreen(window, Pager::Change::add);
    ASSERT_TRUE(waitForState(window, "_NET_WM_STATE_FULLSCREEN"));
    const Rect before = frame(window);

    const auto answer = corvane().place(u"leftHalf"_s);

    EXPECT_TRUE(refused(answer, u"window is in native full screen"_s));
    EXPECT_TRUE(probe().hasState(window, "_NET_WM_STATE_FULLSCREEN"));
    EXPECT_EQ(frame(window), before);
    EXPECT_EQ(before, standardDisplay);
}

TEST_F(WindowStateTests, anUndecoratedWindowThatFillsTheDisplayCanBePlacedAgainAndAgain)
{
    const xcb_window_t window = showFocused({.decorated = false});
    press(strokes::maximize);
    ASSERT_EQ(reached(window, standardDisplay), standardDisplay);
    const bool isFullScreen = probe().hasState(window, "_NET_WM_STATE_FULLSCREEN");

    expectToLandAfter(window, u"leftHalf"_s);

    press(strokes::snapBack);
    EXPECT_EQ(reached(window, standardDisplay), standardDisplay);
    EXPECT_EQ(probe().hasState(window, "_NET_WM_STATE_FULLSCREEN"), isFullScreen);
    expectToLandAfter(window, u"rightHalf"_s);
}

TEST_F(WindowStateTests, fullScreenByHandIsRefusedThoughAMoveOnceFilledTheDisplay)
{
    const xcb_window_t window = showFocused({.decorated = false});
    ASSERT_TRUE(moved(corvane().place(u"maximize"_s)));
    ASSERT_EQ(reached(window, standardDisplay), standardDisplay);
    pager().setFullScreen(window, Pager::Change::remove);
    // marco and metacity fill the display once more when it is left the first time.
    ASSERT_TRUE(waitUntil([&] {
        pager().setFullScreen(window, Pager::Change::remove);
        return !probe().hasState(window, "_NET_WM_STATE_FULLSCREEN");
    }));
    static_cast<void>(frame(window));
    pager().setFullScreen(window, Pager::Change::add);
    ASSERT_TRUE(waitForState(window, "_NET_WM_STATE_FULLSCREEN"));

    EXPECT_TRUE(refused(corvane().place(u"leftHalf"_s), u"window is in native full screen"_s));
}

TEST_F(WindowStateTests, aMinimisedWindowIsNoFocusedWindow)
{
    if (isManager({"i3"}))
        GTEST_SKIP() << "i3 minimises no windows";
    const xcb_window_t window = showFocused();
    const Rect before = frame(window);
    pager().minimize(window);
    ASSERT_TRUE(waitUntil([&] { return probe().isMinimized(window); }));
    ASSERT_TRUE(waitUntil([&] { return probe().activeWindow() != window; }));

    const auto answer = corvane().place(u"leftHalf"_s);

    EXPECT_TRUE(refused(answer, u"no focused window"_s));
    EXPECT_TRUE(probe().isMinimized(window));
    pager().activate(window);
    ASSERT_TRUE(waitUntil([&] { return probe().isViewable(window); }));
    EXPECT_EQ(reached(window, before), before);
}

} // namespace corvane::desktop
