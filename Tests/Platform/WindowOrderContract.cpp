#include "PlatformContract.h"

namespace corvane {

TEST_P(PlatformContract, theFocusedWindowComesWithItsProcessUnlessItIsAPanelOrDesktop)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    EXPECT_TRUE(takesFocus(open()));
    for (const Kind kind : {Kind::panel, Kind::desktop}) {
        SCOPED_TRACE(int(kind));
        world().focus(first);
        EXPECT_TRUE(takesFocus(first));
        EXPECT_EQ(windows().focusedWindow().pid, pid);
        EXPECT_EQ(applications().frontmost().value_or(RunningApplication{}).pid, pid);

        world().focus(open({.kind = kind}));

        EXPECT_TRUE(eventually([&] { return !windows().focusedWindow().window; }));
    }
}

TEST_P(PlatformContract, windowsAreListedFrontToBackAndOnScreenWhereTheyCanBeSeen)
{
    const pid_t pid = world().startApplication();
    const pid_t other = world().startApplication();
    const Rect back{120, 110, 500, 400};
    const Rect middle{300, 200, 600, 500};
    const Rect panel{0, 0, 300, 24};
    const WindowElement first = world().openWindow(pid, {.frame = back});
    world().openWindow(pid, {.onOtherWorkspace = true});
    world().openWindow(other, {.frame = middle});
    const WindowElement third = world().openWindow(pid, {.kind = Kind::dialog});
    const Rect front = windows().frame(third).value_or(Rect{});
    EXPECT_TRUE(eventually([&] { return windows().windows(pid) == QList{third, first}; }));

    world().openWindow(other, {.minimised = true});
    world().openWindow(other, {.kind = Kind::desktop});
    world().openWindow(other, {.kind = Kind::panel, .frame = panel});
    const QList<OnScreenWindow> seen{{other, panel}, {pid, front}, {other, middle}, {pid, back}};
    EXPECT_TRUE(eventually([&] { return windows().onScreenWindows() == seen; }));

    windows().raise(first);
    EXPECT_TRUE(eventually([&] { return windows().windows(pid) == QList{first, third}; }));
}

TEST_P(PlatformContract, aWindowComesForwardWithItsApplicationOrAlone)
{
    const pid_t pid = world().startApplication();
    const WindowElement wanted = world().openWindow(pid);
    const WindowElement sibling = world().openWindow(pid);
    const WindowElement covering = open();
    for (const bool isAlone : {false, true}) {
        SCOPED_TRACE(isAlone);
        world().focus(sibling);
        EXPECT_TRUE(takesFocus(sibling));
        windows().raise(sibling);
        world().focus(covering);
        EXPECT_TRUE(takesFocus(covering));

        if (isAlone) {
            EXPECT_TRUE(windows().bringToFrontAlone(wanted));
        } else {
            windows().raise(wanted);
            windows().bringForward(pid);
            windows().makeMain(wanted);
        }

        EXPECT_TRUE(takesFocus(wanted));
        EXPECT_TRUE(eventually([&] { return windows().windows(pid) == QList{wanted, sibling}; }));
    }
}

TEST_P(PlatformContract, windowsComeForwardInTheirTurnInsideAnOperation)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    const WindowElement second = world().openWindow(pid);
    const WindowElement third = world().openWindow(pid);
    EXPECT_TRUE(takesFocus(third));
    windows().beginOperation();
    for (const WindowElement &window : {third, first, second})
        EXPECT_TRUE(windows().bringToFrontAlone(window));
    windows().endOperation();

    EXPECT_TRUE(takesFocus(second));
    EXPECT_TRUE(eventually([&] { return windows().windows(pid) == QList{second, first, third}; }));
}

} // namespace corvane
