#include "PlatformContract.h"

#include <algorithm>

namespace corvane {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

QList<pid_t> pids(Applications &applications)
{
    QList<pid_t> pids;
    for (const RunningApplication &each : applications.running())
        pids << each.pid;
    return pids;
}

} // namespace

TEST_P(PlatformContract, aProcessRunsOnceItHasShownAWindow)
{
    const pid_t pid = world().startApplication();
    EXPECT_THAT(pids(applications()), Not(Contains(pid)));
    EXPECT_EQ(applications().application(pid), std::nullopt);

    world().openWindow(pid);

    EXPECT_TRUE(world().waitUntil([&] { return pids(applications()).contains(pid); }));
    const auto application = applications().application(pid);
    ASSERT_TRUE(application);
    EXPECT_TRUE(application->isRegular);
    EXPECT_NE(application->bundleIdentifier, QString());
    EXPECT_NE(application->localizedName, QString());
}

TEST_P(PlatformContract, aProcessWithoutListedWindowsIsNotRegular)
{
    CORVANE_NEEDS(panels);
    const pid_t pid = world().startApplication();

    world().openWindow(pid, {.kind = Kind::panel});
    world().settle();

    EXPECT_THAT(launched, IsEmpty());
    EXPECT_FALSE(applications().application(pid).value_or(RunningApplication{}).isRegular);
}

TEST_P(PlatformContract, aLaunchIsToldOnceAndInTimeToObserveTheFirstWindow)
{
    QObject listener;
    QObject::connect(&applications(), &Applications::launched, &listener,
        [this](const RunningApplication &application) {
            EXPECT_EQ(windows().observe(application.pid), AXError::success);
        });
    const pid_t pid = world().startApplication();

    const WindowElement first = world().openWindow(pid);
    EXPECT_TRUE(world().waitUntil([&] { return created.contains(first); }));
    const WindowElement second = world().openWindow(pid);
    EXPECT_TRUE(world().waitUntil([&] { return created.contains(second); }));
    world().settle();

    EXPECT_THAT(launched, ElementsAre(pid));
    EXPECT_THAT(created, ElementsAre(first, second));
}

TEST_P(PlatformContract, theEndOfAProcessIsToldOnce)
{
    const pid_t pid = world().startApplication();
    world().openWindow(pid);
    world().openWindow(pid);
    EXPECT_TRUE(world().waitUntil([&] { return launched.contains(pid); }));

    world().quitApplication(pid);
    EXPECT_TRUE(world().waitUntil([&] { return terminated.contains(pid); }));
    world().settle();

    EXPECT_THAT(terminated, ElementsAre(pid));
    EXPECT_THAT(pids(applications()), Not(Contains(pid)));
    EXPECT_THAT(*windows().windows(pid), IsEmpty());
}

} // namespace corvane
