#include "PlatformContract.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;
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

/// The bundle identifiers of the process, one for each of its applications.
QStringList identifiers(Applications &applications, pid_t pid)
{
    QStringList identifiers;
    for (const RunningApplication &each : applications.running()) {
        if (each.pid == pid)
            identifiers << each.bundleIdentifier;
    }
    return identifiers;
}

QString owner(Applications &applications, const WindowElement &window)
{
    return applications.applicationOf(window).value_or(RunningApplication{}).bundleIdentifier;
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

TEST_P(PlatformContract, aProcessMayBeSeveralApplicationsToldApartByTheirWindows)
{
    const QString writer = u"contract-writer"_s;
    const QString sheets = u"contract-sheets"_s;
    const pid_t pid = world().startApplication();

    const WindowElement letter = world().openWindow(pid, {.application = writer});
    const WindowElement sheet = world().openWindow(pid, {.application = sheets});
    const WindowElement second = world().openWindow(pid, {.application = writer});
    world().settle();

    EXPECT_THAT(identifiers(applications(), pid), ElementsAre(writer, sheets));
    EXPECT_EQ(owner(applications(), letter), writer);
    EXPECT_EQ(owner(applications(), sheet), sheets);
    EXPECT_EQ(owner(applications(), second), writer);
    EXPECT_EQ(applications().frontmost()->bundleIdentifier, writer);
    EXPECT_THAT(launched, ElementsAre(pid, pid));

    world().closeWindow(sheet);
    world().settle();
    EXPECT_THAT(identifiers(applications(), pid), ElementsAre(writer, sheets));
    EXPECT_EQ(owner(applications(), sheet), QString());
}

TEST_P(PlatformContract, anApplicationThatIsRenamedAfterItsWindowIsShownIsFollowed)
{
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid, {.application = u"contract-office"_s});
    const WindowElement other = world().openWindow(pid, {.application = u"contract-office"_s});

    for (const WindowElement &each : {window, other}) {
        world().renameWindow(each, u"contract-writer"_s);

        EXPECT_TRUE(
            world().waitUntil([&] { return owner(applications(), each) == u"contract-writer"_s; }));
        EXPECT_THAT(applications().formerIdentifiers(each), Contains(u"contract-office"_s));
    }
    world().settle();

    EXPECT_THAT(identifiers(applications(), pid), ElementsAre(u"contract-writer"_s));
    EXPECT_THAT(launched, ElementsAre(pid, pid));
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

TEST_P(PlatformContract, anApplicationRunsRegularlyOnlyWithItsMainWindow)
{
    const pid_t pid = world().startApplication();
    const WindowElement splash = world().openWindow(pid, {.kind = Kind::splash});
    world().settle();
    EXPECT_THAT(launched, IsEmpty());

    world().openWindow(pid);
    world().closeWindow(splash);
    EXPECT_TRUE(world().waitUntil([&] { return launched.contains(pid); }));
    world().settle();

    EXPECT_THAT(launched, ElementsAre(pid));
    EXPECT_THAT(terminated, IsEmpty());
}

TEST_P(PlatformContract, aProcessThatEndsAtOnceLeavesNothingBehind)
{
    const pid_t pid = world().startApplication();
    world().openWindow(pid);

    world().quitApplication(pid);
    world().settle();

    EXPECT_THAT(pids(applications()), Not(Contains(pid)));
    EXPECT_THAT(terminated, ElementsAre(pid));
    EXPECT_EQ(applications().application(pid), std::nullopt);
    EXPECT_THAT(windows().onScreenWindows(), IsEmpty());
}

TEST_P(PlatformContract, aRivalWithoutAWindowIsFoundAndQuits)
{
    EXPECT_THAT(applications().rivals(), IsEmpty());
    const pid_t pid = world().startRival();
    const QList<RunningApplication> rivals = applications().rivals();
    ASSERT_EQ(rivals.size(), 1);
    EXPECT_EQ(rivals[0].pid, pid);
    EXPECT_NE(rivals[0].localizedName, QString());
    EXPECT_THAT(pids(applications()), Not(Contains(pid)));

    applications().quit(pid);

    EXPECT_TRUE(world().waitUntil([&] { return terminated.contains(pid); }));
    EXPECT_THAT(applications().rivals(), IsEmpty());
}

TEST_P(PlatformContract, whatIsKnownOfAnApplicationDoesNotDependOnItsRunning)
{
    using enum Installation::State;
    const QString id = QStringLiteral("org.example.Installed");
    EXPECT_EQ(applications().installation(id), Installation{});

    for (const auto state : {ready, hidden, broken}) {
        const QString stateId = id + QString::number(int(state));
        world().install(stateId, QStringLiteral("Installed"), state);

        EXPECT_EQ(applications().installation(stateId),
            (Installation{state, QStringLiteral("Installed")}));
    }
}

TEST_P(PlatformContract, anOpenedApplicationRunsUnderItsBundleIdentifier)
{
    const QString id = QStringLiteral("org.example.Opened");
    world().install(id, QStringLiteral("Opened"), Installation::State::hidden);

    EXPECT_TRUE(applications().open(id));
    EXPECT_TRUE(world().waitUntil([&] { return !launched.isEmpty(); }));

    const auto opened = applications().application(launched.value(0));
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->bundleIdentifier, id);
    EXPECT_EQ(opened->localizedName, QStringLiteral("Opened"));
    EXPECT_EQ(windows().windows(opened->pid)->size(), 1);

    EXPECT_TRUE(applications().openWindow(id));
    EXPECT_TRUE(world().waitUntil([&] {
        qsizetype count = 0;
        for (const RunningApplication &each : applications().running())
            count += each.bundleIdentifier == id ? windows().windows(each.pid)->size() : 0;
        return count == 2;
    }));
}

TEST_P(PlatformContract, anOpenedApplicationLeavesTheFocusWhereTheUserTypes)
{
    const QString id = u"org.example.Opened"_s;
    world().install(id, u"Opened"_s, Installation::State::ready);
    const WindowElement users = world().openWindow(world().startApplication());

    EXPECT_TRUE(applications().open(id));
    EXPECT_TRUE(world().waitUntil([&] { return windows().onScreenWindows().size() == 2; }));
    EXPECT_TRUE(world().waitUntil([&] { return windows().focusedWindow().window == users; }));
    world().settle();

    EXPECT_EQ(windows().focusedWindow().window, users);
}

TEST_P(PlatformContract, whatCannotBeOpenedSaysWhy)
{
    const QString broken = QStringLiteral("org.example.Broken");
    world().install(broken, QStringLiteral("Broken"), Installation::State::broken);

    for (const QString &id : {broken, QStringLiteral("org.example.Missing")}) {
        for (const auto &opened : {applications().open(id), applications().openWindow(id)}) {
            ASSERT_FALSE(opened);
            EXPECT_TRUE(opened.error().endsWith(u'.'));
        }
    }
    world().settle();

    EXPECT_THAT(launched, IsEmpty());
}

} // namespace corvane
