#include "PlatformContract.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace testing;

namespace {

auto runs(pid_t pid)
{
    return Contains(Field(&RunningApplication::pid, pid));
}

} // namespace

TEST_P(PlatformContract, aProcessRunsFromItsFirstMainWindowToItsEndAndIsToldInTimeToObserveIt)
{
    QObject listener;
    QObject::connect(&applications(), &Applications::launched, &listener,
        [this](const RunningApplication &application) {
            EXPECT_EQ(windows().observe(application.pid), AXError::success);
        });
    const pid_t pid = world().startApplication();
    EXPECT_EQ(applications().application(pid), std::nullopt);
    std::optional<WindowElement> splash;
    if (world().tells(Kind::splash))
        splash = world().openWindow(pid, {.kind = Kind::splash});
    world().openWindow(pid, {.kind = Kind::panel});
    world().settle();
    EXPECT_THAT(launched, IsEmpty());

    const WindowElement first = world().openWindow(pid);
    EXPECT_TRUE(eventually([&] { return created.contains(first); }));
    if (splash)
        world().closeWindow(*splash);
    const WindowElement second = world().openWindow(pid);
    EXPECT_TRUE(eventually([&] { return created.contains(second); }));
    EXPECT_THAT(applications().running(), runs(pid));
    const auto application = applications().application(pid).value_or(RunningApplication{});
    EXPECT_TRUE(application.isRegular);
    EXPECT_NE(application.bundleIdentifier, QString());
    EXPECT_NE(application.localizedName, QString());

    world().quitApplication(pid);
    EXPECT_TRUE(eventually([&] { return terminated.contains(pid); }));
    world().settle();
    EXPECT_THAT(launched, ElementsAre(pid));
    EXPECT_THAT(created, ElementsAre(first, second));
    EXPECT_THAT(terminated, ElementsAre(pid));
    EXPECT_THAT(applications().running(), Not(runs(pid)));
    EXPECT_THAT(*windows().windows(pid), IsEmpty());
}

TEST_P(PlatformContract, aProcessIsTheApplicationsThatItsWindowsNameThoughTheyRenameThem)
{
    const auto owner = [this](const WindowElement &window) {
        return applications().applicationOf(window).value_or(RunningApplication{}).bundleIdentifier;
    };
    const QString writer = u"contract-writer"_s;
    const QString sheets = u"contract-sheets"_s;
    const QString office = u"contract-office"_s;
    const pid_t pid = world().startApplication();
    const WindowElement letter = world().openWindow(pid, {.application = writer});
    const WindowElement sheet = world().openWindow(pid, {.application = sheets});
    const WindowElement other = world().openWindow(pid, {.application = writer});
    EXPECT_TRUE(eventually([&] { return launched.size() == 2; }));
    EXPECT_EQ(owner(letter), writer);
    EXPECT_EQ(owner(sheet), sheets);
    EXPECT_EQ(applications().frontmost()->bundleIdentifier, writer);

    for (const WindowElement &each : {letter, other}) {
        world().renameWindow(each, office);

        EXPECT_TRUE(eventually([&] { return owner(each) == office; }));
        EXPECT_THAT(applications().formerIdentifiers(each), Contains(writer));
    }
    world().closeWindow(sheet);
    EXPECT_TRUE(eventually([&] { return owner(sheet).isEmpty(); }));
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
    EXPECT_THAT(applications().rivals(), runs(pid));
    EXPECT_THAT(applications().running(), Not(runs(pid)));

    applications().quit(pid);

    EXPECT_TRUE(eventually([&] { return terminated.contains(pid); }));
    EXPECT_THAT(applications().rivals(), IsEmpty());
}

TEST_P(PlatformContract, anOpenedApplicationLeavesTheFocusToTheUserAndWhatCannotBeOpenedSaysWhy)
{
    using enum Installation::State;
    const QString id = u"org.example.Opened"_s;
    world().install(id, u"Opened"_s, hidden);
    world().install(u"broken"_s, u"Broken"_s, broken);
    for (const auto &[each, installation] : {std::pair(u"none"_s, Installation{notInstalled, {}}),
             {u"broken"_s, {broken, u"Broken"_s}}}) {
        EXPECT_EQ(applications().installation(each), installation);
        for (const auto &opened : {applications().open(each), applications().openWindow(each)})
            EXPECT_TRUE(!opened && opened.error().endsWith(u'.'));
    }
    EXPECT_EQ(applications().installation(id), (Installation{hidden, u"Opened"_s}));
    const InstalledApplication described{.id = id, .name = u"Opened"_s, .isHidden = true};
    EXPECT_EQ(applications().installed(id), described);
    EXPECT_THAT(applications().installed(), Contains(described));
    EXPECT_EQ(applications().installed(u"broken"_s), std::nullopt);
    const WindowElement users = open();
    EXPECT_TRUE(eventually([&] { return !launched.isEmpty(); }));

    EXPECT_TRUE(applications().open(id));
    EXPECT_TRUE(eventually([&] { return launched.size() == 2; }));
    EXPECT_TRUE(takesFocus(users));
    const auto opened = applications().application(launched.last()).value_or(RunningApplication{});
    EXPECT_EQ(opened.bundleIdentifier, id);
    EXPECT_EQ(opened.localizedName, u"Opened"_s);

    EXPECT_TRUE(applications().openWindow(id));
    EXPECT_TRUE(eventually([&] { return windows().onScreenWindows().size() == 3; }));
    EXPECT_TRUE(takesFocus(users));
    world().settle();
    EXPECT_TRUE(takesFocus(users));
}

} // namespace corvane
