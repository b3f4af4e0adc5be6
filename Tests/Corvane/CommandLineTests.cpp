#include "Address.h"
#include "CommandLine.h"

#include <gmock/gmock.h>

#include <QtCore/QDir>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

expected<CommandLine, QString> parse(const char *arguments)
{
    return CommandLine::parse(QString::fromLatin1(arguments).split(u' '));
}

} // namespace

TEST(CommandLineTests, flagsAreReadInAnyOrder)
{
    const std::pair<const char *, CommandLine> lines[]{
        {"--json --place topLeftSixth",
            {.commands = {{Command::Place{Placement::topLeftSixth}}}, .json = true}},
        {"--capture Desk", {.commands = {{Command::Capture{u"Desk"_s}}}}},
        {"--capture --json", {.commands = {{Command::Capture{u"Layout"_s}}}, .json = true}},
        {"--place topHalf --capture --place center",
            {.commands = {{Command::Place{Placement::topHalf}}, {Command::Capture{u"Layout"_s}},
                 {Command::Place{Placement::center}}}}},
        {"--history", {.commands = {{Command::ShowHistory{20}}}}},
        {"--history 3", {.commands = {{Command::ShowHistory{3}}}}},
        {"--history --json 3", {.commands = {{Command::ShowHistory{3}}}, .json = true}},
        {"--pane Tremor-Log", {.screens = {.pane = SettingsPane::tremorLog}}},
        {"corvane://settings/about", {.screens = {.pane = SettingsPane::about}}},
        {"--appearance dark", {.screens = {.appearance = Appearance::dark}}},
        {"--appearance aqua", {.screens = {.appearance = Appearance::light}}},
        {"--open-app-picker --select-pane 0 --layout Work",
            {.screens = {.layout = u"Work"_s, .selectPane = 0, .openAppPicker = true}}},
        {"--preview-update-available 2.0", {.screens = {.previewUpdateAvailable = u"2.0"_s}}},
        {"--quit-competitors --tour-page 2",
            {.commands = {{Command::QuitCompetitors{}}}, .screens = {.tourPage = 2}}},
    };
    for (const auto &[arguments, expected] : lines)
        EXPECT_EQ(parse(arguments), expected) << arguments;
}

TEST(CommandLineTests, aMistakeIsAnsweredWithWhatExists)
{
    const std::tuple<const char *, const char *, const char *> mistakes[]{
        {"--place LeftHalf", "\"LeftHalf\"", "leftHalf, rightHalf"},
        {"--place", "--place needs", "snapBack, original."},
        {"--plaec leftHalf", "\"--plaec\"", "--place, --capture"},
        {"leftHalf", "\"leftHalf\"", "--show-tour"},
        {"3", "\"3\"", "--history"},
        {"--history 0", "\"0\"", "start at 1"},
        {"--history 99999999999", "99999999999", "start at 1"},
        {"--apply-layout", "--apply-layout needs", "corvane --layouts"},
        {"--pane tremor", "\"tremor\"", "general, shortcuts, layouts, tremorLog, about."},
        {"--appearance", "--appearance needs", "dark, light"},
        {"--select-pane -1", "\"-1\"", "from 0"},
        {"--preview-update-window new", "\"new\"", "1.2.3"},
        {"--render-status-icon", "needs", "file"},
        {"corvane://place/leftHalf", "corvane://place/leftHalf", "corvane://settings/shortcuts"},
    };
    for (const auto &[arguments, named, offered] : mistakes) {
        const auto line = parse(arguments);

        ASSERT_FALSE(line) << arguments;
        EXPECT_THAT(line.error().toStdString(), HasSubstr(named));
        EXPECT_THAT(line.error().toStdString(), HasSubstr(offered));
    }
}

TEST(CommandLineTests, theHelpNamesEveryPlacementAndPane)
{
    const QString help = CommandLine::helpText();

    for (const Placement placement : allPlacements())
        EXPECT_TRUE(help.contains(rawValue(placement))) << rawValue(placement).data();
    EXPECT_TRUE(help.contains(u"layouts tremorLog about\n"_s));
}

TEST(CommandLineTests, filesAreThoseOfTheFolderThatTheyWereNamedIn)
{
    const QStringList arguments{u"--json"_s, u"--render-status-icon"_s, u"a.png"_s, u"a.png"_s};

    EXPECT_EQ(CommandLine::withAbsolutePaths(arguments),
        (QStringList{u"--json"_s, u"--render-status-icon"_s, QDir::current().filePath(u"a.png"_s),
            u"a.png"_s}));
    EXPECT_EQ(
        CommandLine::withAbsolutePaths({u"--preview-notes"_s}), QStringList{u"--preview-notes"_s});
}

TEST(AddressTests, anAddressShowsAPaneOrNothing)
{
    EXPECT_EQ(Address::pane(u"corvane://settings"_s), SettingsPane::general);
    EXPECT_EQ(Address::pane(u"CORVANE://Settings/"_s), SettingsPane::general);
    EXPECT_EQ(Address::pane(u"corvane://settings/tremorLog"_s), SettingsPane::tremorLog);
    for (const char *hostile : {"", "corvane:", "corvane://", "corvane:settings",
             "corvane:///settings", "corvane://settings/shortcuts/", "corvane://settings/../about",
             "corvane://settings//about", "corvane://settings/about?apply-layout=Work",
             "corvane://settings/about#x", "corvane://me@settings/about",
             "corvane://settings:80/about", "corvane://place/leftHalf",
             "corvane://settings/--capture", "corvane://settings/about%00", "--open-settings",
             "https://settings/about", "file:///settings", "corvane://settings/%61bout%20"})
        EXPECT_FALSE(Address::pane(QString::fromLatin1(hostile))) << hostile;
    const auto noisy = Address::pane(u"corvane://\x1b[31m\u202e"_s + QString(9999, u'x'));
    EXPECT_THAT(noisy.error().toStdString(), testing::Not(HasSubstr("\x1b")));
    EXPECT_LT(noisy.error().size(), 400);
}

} // namespace corvane
