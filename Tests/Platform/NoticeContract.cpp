#include "PlatformContract.h"

namespace corvane {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_P(PlatformContract, newWindowsOfObservedProcessesAreToldOnce)
{
    const pid_t observed = world().startApplication();
    const pid_t other = world().startApplication();
    world().openWindow(observed);
    world().openWindow(other);
    world().settle();
    EXPECT_EQ(windows().observe(observed), AXError::success);

    world().openWindow(other);
    const WindowElement window = world().openWindow(observed);
    EXPECT_TRUE(world().waitUntil([&] { return !created.isEmpty(); }));
    (void)windows().setPosition(window, {150, 150});
    windows().raise(window);
    world().settle();

    EXPECT_THAT(created, ElementsAre(window));
}

TEST_P(PlatformContract, aProcessNoLongerObservedIsQuiet)
{
    const pid_t pid = world().startApplication();
    world().openWindow(pid);
    world().settle();
    EXPECT_EQ(windows().observe(pid), AXError::success);

    windows().stopObserving(pid);
    world().openWindow(pid);
    world().settle();

    EXPECT_THAT(created, IsEmpty());
}

TEST_P(PlatformContract, aClosedWindowIsToldOnce)
{
    const pid_t pid = world().startApplication();
    const WindowElement stays = world().openWindow(pid);
    const WindowElement goes = world().openWindow(pid);
    EXPECT_EQ(windows().observe(pid), AXError::success);

    world().closeWindow(goes);
    EXPECT_TRUE(world().waitUntil([&] { return !closed.isEmpty(); }));
    world().settle();

    EXPECT_THAT(closed, ElementsAre(goes));
    EXPECT_TRUE(windows().frame(stays));
}

TEST_P(PlatformContract, nothingIsToldFromInsideACall)
{
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid);
    const WindowElement closing = world().openWindow(pid);
    world().settle();
    EXPECT_EQ(windows().observe(pid), AXError::success);
    EXPECT_EQ(hotKeys().registerHotKey(5, 38, HotKeys::controlKey), HotKeys::noErr);
    const WindowElement opened = world().openWindow(pid);
    world().closeWindow(closing);
    world().pressKey(38, HotKeys::controlKey);

    const int before = noticeCount();
    {
        const WindowOperation operation(windows());
        (void)windows().frame(window);
        (void)windows().setSize(window, {500, 400});
        (void)windows().setPosition(window, {160, 120});
        (void)windows().frame(closing);
        windows().raise(window);
    }
    (void)windows().windows(pid);
    (void)windows().focusedWindow();
    hotKeys().unregisterHotKey(6);
    (void)applications().running();
    (void)displays().all();

    EXPECT_EQ(noticeCount(), before);
    EXPECT_TRUE(world().waitUntil([&] { return created.contains(opened); }));
    EXPECT_TRUE(world().waitUntil([&] { return closed.contains(closing); }));
    EXPECT_TRUE(world().waitUntil([&] { return pressed.contains(5u); }));
}

TEST_P(PlatformContract, withoutTrustEveryCallIsDisabled)
{
    CORVANE_NEEDS(trust);
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid);
    EXPECT_TRUE(windows().isTrusted());
    EXPECT_EQ(windows().distrustReason(), QString());

    world().loseTrust();
    EXPECT_TRUE(world().waitUntil([&] { return !trust.isEmpty(); }));

    const auto disabled = AXError::apiDisabled;
    EXPECT_FALSE(windows().isTrusted());
    EXPECT_NE(windows().distrustReason(), QString());
    EXPECT_EQ(windows().focusedWindow().status, disabled);
    EXPECT_EQ(windows().focusedWindow().window, std::nullopt);
    EXPECT_THAT(*windows().windows(pid), IsEmpty());
    EXPECT_EQ(windows().frame(window), unexpected(disabled));
    EXPECT_EQ(windows().setPosition(window, {10, 10}), disabled);
    EXPECT_EQ(windows().setSize(window, {300, 300}), disabled);
    EXPECT_EQ(windows().observe(pid), disabled);
    EXPECT_THAT(trust, ElementsAre(false));
}

TEST_P(PlatformContract, trustComesBackWithItsWindows)
{
    CORVANE_NEEDS(trust);
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid);
    world().loseTrust();
    EXPECT_TRUE(world().waitUntil([&] { return !trust.isEmpty(); }));

    world().regainTrust();
    EXPECT_TRUE(world().waitUntil([&] { return trust.size() == 2; }));

    EXPECT_THAT(trust, ElementsAre(false, true));
    EXPECT_TRUE(windows().isTrusted());
    EXPECT_EQ(windows().distrustReason(), QString());
    EXPECT_TRUE(world().waitUntil([&] { return windows().windows(pid) == QList{window}; }));
    EXPECT_EQ(windows().setPosition(window, {170, 130}), AXError::success);
    EXPECT_EQ(windows().observe(pid), AXError::success);
}

} // namespace corvane
