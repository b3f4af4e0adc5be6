#include "PlatformContract.h"

namespace corvane {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Not;

namespace {

auto runs(pid_t pid)
{
    return Contains(Field(&RunningApplication::pid, pid));
}

QString owner(Applications &applications, const WindowElement &window)
{
    return applications.applicationOf(window).value_or(RunningApplication{}).bundleIdentifier;
}

} // namespace

TEST_P(PlatformContract, aProcessRunsFromItsFirstWindowToItsEndAndIsToldInTimeToObserveIt)
{
    QObject listener;
    QObject::connect(&applications(), &Applications::launched, &listener,
        [this](const RunningApplication &application) {
            EXPECT_EQ(windows().observe(application.pid), AXError::success);
        });
    const pid_t pid = world().startApplication();
    EXPECT_EQ(applications().application(pid), std::nullopt);

    const WindowElement first = world().openWindow(pid);
    EXPECT_TRUE(eventually([&] { return created.contains(first); }));
    const WindowElement second = world().openWindow(pid);
    EXPECT_TRUE(eventually([&] { return created.contains(second); }));
    EXPECT_THAT(applications().running(), runs(pid));
    const auto application = applications().application(pid).value_or(RunningApplication{});
    EXPECT_NE(application.bundleIdentifier, QString());
    EXPECT_NE(application.localizedName, QString());

    world().quitApplication(pid);
    EXPECT_TRUE(eventually([&] { return terminated.contains(pid); }));
    world().settle();
    EXPECT_THAT(launched, ElementsAre(pid));
    EXPECT_THAT(created, ElementsAre(first, second));
    EXPECT_THAT(terminated, ElementsAre(pid));
    EXPECT_THAT(applications().running(), Not(runs(pid)));
    EXPECT_EQ(applications().application(pid), std::nullopt);
    EXPECT_THAT(*windows().windows(pid), IsEmpty());
}

TEST_P(PlatformContract, onlyAMainWindowMakesAProcessRegular)
{
    const pid_t pid = world().startApplication();
    const WindowElement splash = world().openWindow(pid, {.kind = Kind::splash});
    world().openWindow(pid, {.kind = Kind::panel});
    world().settle();
    EXPECT_THAT(launched, IsEmpty());
    EXPECT_FALSE(applications().application(pid).value_or(RunningApplication{}).isRegular);

    world().openWindow(pid);
    world().closeWindow(splash);
    EXPECT_TRUE(eventually([&] { return !launched.isEmpty(); }));
    world().settle();

    EXPECT_TRUE(applications().application(pid).value_or(RunningApplication{}).isRegular);
    EXPECT_THAT(launched, ElementsAre(pid));
    EXPECT_THAT(terminated, IsEmpty());
}

TEST_P(PlatformContract, aProcessIsTheApplicationsThatItsWindowsNameThoughTheyRenameThem)
{
    const QString writer = u"contract-writer"_s;
    const QString sheets = u"contract-sheets"_s;
    const QString office = u"contract-office"_s;
    const pid_t pid = world().startApplication();
    const WindowElement letter = world().openWindow(pid, {.application = writer});
    const WindowElement sheet = world().openWindow(pid, {.application = sheets});
    const WindowElement other = world().openWindow(pid, {.application = writer});
    EXPECT_TRUE(eventually([&] { return launched.size() == 2; }));
    EXPECT_EQ(owner(applications(), letter), writer);
    EXPECT_EQ(owner(applications(), sheet), sheets);
    EXPECT_EQ(applications().frontmost()->bundleIdentifier, writer);

    for (const WindowElement &each : {letter, other}) {
        world().renameWindow(each, office);

        EXPECT_TRUE(eventually([&] { return owner(applications(), each) == office; }));
        EXPECT_THAT(applications().formerIdentifiers(each), Contains(writer));
    }
    world().closeWindow(sheet);
    EXPECT_TRUE(eventually([&] { return owner(applications(), sheet).isEmpty(); }));
    world().settle();

    QStringList identifiers;
    for (const RunningApplication &each : applications().running())
        identifiers << (each.pid == pid ? each.bundleIdentifier : QString());
    EXPECT_THAT(identifiers, ElementsAre(sheets, office));
    EXPECT_THAT(launched, ElementsAre(pid, pid, pid));
}

TEST_P(PlatformContract, aRivalWithoutAWindowIsFoundAndQuits)
{
    EXPECT_THAT(applications().rivals(), IsEmpty());
    const pid_t pid = world().startRival();
    const auto named = Field(&RunningApplication::localizedName, Not(QString()));
    EXPECT_THAT(applications().rivals(),
        ElementsAre(testing::AllOf(Field(&RunningApplication::pid, pid), named)));
    EXPECT_THAT(applications().running(), Not(runs(pid)));

    applications().quit(pid);

    EXPECT_TRUE(eventually([&] { return terminated.contains(pid); }));
    EXPECT_THAT(applications().rivals(), IsEmpty());
}

TEST_P(PlatformContract, anApplicationIsKnownWithoutRunningAndWhatCannotBeOpenedSaysWhy)
{
    using enum Installation::State;
    for (const auto state : {ready, hidden, broken, notInstalled}) {
        SCOPED_TRACE(int(state));
        const QString id = u"org.example.Installed"_s + QString::number(int(state));
        const QString name = state == notInstalled ? QString() : u"Installed"_s;
        if (state != notInstalled)
            world().install(id, name, state);
        EXPECT_EQ(applications().installation(id), (Installation{state, name}));
        if (state == ready || state == hidden)
            continue;

        for (const auto &opened : {applications().open(id), applications().openWindow(id)}) {
            ASSERT_FALSE(opened);
            EXPECT_TRUE(opened.error().endsWith(u'.'));
        }
    }
}

TEST_P(PlatformContract, anOpenedApplicationLeavesTheFocusWhereTheUserTypes)
{
    const QString id = u"org.example.Opened"_s;
    world().install(id, u"Opened"_s, Installation::State::hidden);
    const WindowElement users = open();
    EXPECT_TRUE(eventually([&] { return !launched.isEmpty(); }));

    EXPECT_TRUE(applications().open(id));
    EXPECT_TRUE(eventually([&] { return launched.size() == 2; }));
    EXPECT_TRUE(takesFocus(users));
    const auto opened = applications().application(launched.last());
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->bundleIdentifier, id);
    EXPECT_EQ(opened->localizedName, u"Opened"_s);

    EXPECT_TRUE(applications().openWindow(id));
    EXPECT_TRUE(eventually([&] { return windows().onScreenWindows().size() == 3; }));
    EXPECT_TRUE(takesFocus(users));
    world().settle();
    EXPECT_TRUE(takesFocus(users));
}

} // namespace corvane
