#include "PlatformContract.h"

namespace corvane {

TEST_P(PlatformContract, theFocusedWindowComesWithItsProcess)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    const WindowElement second = world().openWindow(world().startApplication());

    EXPECT_TRUE(takesFocus(second));
    world().focus(first);

    EXPECT_TRUE(takesFocus(first));
    const auto focused = windows().focusedWindow();
    EXPECT_EQ(focused.pid, pid);
    EXPECT_EQ(focused.status, AXError::success);
    EXPECT_EQ(applications().frontmost().value_or(RunningApplication{}).pid, pid);
}

TEST_P(PlatformContract, aFocusedPanelOrDesktopIsNoWindow)
{
    CORVANE_NEEDS(panels);
    for (const Kind kind : {Kind::panel, Kind::desktop}) {
        SCOPED_TRACE(int(kind));
        const WindowElement ordinary = world().openWindow(world().startApplication());
        EXPECT_TRUE(takesFocus(ordinary));

        world().focus(world().openWindow(world().startApplication(), {.kind = kind}));

        EXPECT_TRUE(world().waitUntil([&] { return !windows().focusedWindow().window; }));
    }
}

TEST_P(PlatformContract, windowsOfAProcessAreListedFrontToBack)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    const WindowElement second = world().openWindow(pid);
    world().openWindow(world().startApplication());
    const WindowElement third = world().openWindow(pid);
    EXPECT_TRUE(world().waitUntil([&] {
        return windows().windows(pid) == QList{third, second, first};
    }));

    windows().raise(first);

    EXPECT_TRUE(world().waitUntil([&] {
        return windows().windows(pid) == QList{first, third, second};
    }));
}

TEST_P(PlatformContract, windowsElsewhereAreNotListed)
{
    CORVANE_NEEDS(otherWorkspaces);
    const pid_t pid = world().startApplication();
    const WindowElement here = world().openWindow(pid);

    world().openWindow(pid, {.onOtherWorkspace = true});
    world().settle();

    EXPECT_EQ(windows().windows(pid), QList{here});
}

TEST_P(PlatformContract, anApplicationComesForwardWithItsMainWindow)
{
    const pid_t pid = world().startApplication();
    const WindowElement wanted = world().openWindow(pid);
    world().openWindow(pid);
    const WindowElement covering = world().openWindow(world().startApplication());
    EXPECT_TRUE(takesFocus(covering));

    windows().raise(wanted);
    windows().bringForward(pid);
    windows().makeMain(wanted);

    EXPECT_TRUE(takesFocus(wanted));
    EXPECT_EQ(windows().windows(pid)->first(), wanted);
}

TEST_P(PlatformContract, oneWindowComesForwardAloneWhereTheDesktopCan)
{
    const pid_t pid = world().startApplication();
    const WindowElement wanted = world().openWindow(pid);
    const WindowElement sibling = world().openWindow(pid);
    const WindowElement covering = world().openWindow(world().startApplication());
    EXPECT_TRUE(takesFocus(covering));

    if (!windows().bringToFrontAlone(wanted)) {
        world().settle();
        EXPECT_EQ(windows().focusedWindow().window, covering);
        return;
    }

    EXPECT_TRUE(takesFocus(wanted));
    EXPECT_EQ(windows().windows(pid), (QList{wanted, sibling}));
}

TEST_P(PlatformContract, windowsComeForwardInTheirTurnInsideAnOperation)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    const WindowElement second = world().openWindow(pid);
    const WindowElement third = world().openWindow(pid);
    EXPECT_TRUE(takesFocus(third));

    bool comesForwardAlone = true;
    {
        const WindowOperation operation(windows());
        for (const WindowElement &window : {third, first, second})
            comesForwardAlone = windows().bringToFrontAlone(window) && comesForwardAlone;
    }

    if (!comesForwardAlone)
        GTEST_SKIP() << "no window comes forward alone";
    EXPECT_TRUE(takesFocus(second));
    EXPECT_EQ(windows().windows(pid), (QList{second, first, third}));
}

TEST_P(PlatformContract, aButtonOfThePointerIsDownWhileItIsHeld)
{
    for (const bool isDown : {true, false}) {
        world().holdPointerButton(isDown);
        EXPECT_TRUE(world().waitUntil(
            [&] { return world().platform().session().isPointerButtonDown() == isDown; }));
    }
}

TEST_P(PlatformContract, whatIsOnScreenIsListedFrontToBack)
{
    const pid_t first = world().startApplication();
    const pid_t second = world().startApplication();
    const Rect back{120, 110, 500, 400};
    const Rect middle{300, 200, 600, 500};
    world().openWindow(first, {.frame = back});
    world().openWindow(second, {.frame = middle});
    const WindowElement front = world().openWindow(first, {.kind = Kind::dialog});

    const Rect frame = windows().frame(front).value_or(Rect{});

    EXPECT_TRUE(world().waitUntil([&] {
        return windows().onScreenWindows()
            == QList{OnScreenWindow{first, frame}, {second, middle}, {first, back}};
    }));
}

TEST_P(PlatformContract, whatCannotBeSeenIsNotOnScreen)
{
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid);
    world().openWindow(pid, {.minimised = true});
    if (world().can(Ability::otherWorkspaces))
        world().openWindow(pid, {.onOtherWorkspace = true});
    if (world().can(Ability::panels))
        world().openWindow(pid, {.kind = Kind::desktop});
    world().settle();

    EXPECT_EQ(windows().onScreenWindows(),
        QList{(OnScreenWindow{pid, windows().frame(window).value_or(Rect{})})});
}

TEST_P(PlatformContract, panelsAreOnScreen)
{
    CORVANE_NEEDS(panels);
    const pid_t pid = world().startApplication();
    const Rect frame{0, 0, 300, 24};

    world().openWindow(pid, {.kind = Kind::panel, .frame = frame});

    EXPECT_TRUE(world().waitUntil([&] {
        return windows().onScreenWindows() == QList{OnScreenWindow{pid, frame}};
    }));
}

} // namespace corvane
