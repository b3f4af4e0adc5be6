#include "Address.h"
#include "Commands.h"
#include "ModelDesk.h"
#include "Mover.h"
#include "OutcomeReport.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class CommandsTests : public testing::Test
{
protected:
    CommandResult run(const QString &arguments)
    {
        const auto line = CommandLine::parse(arguments.split(u' ', Qt::SkipEmptyParts));
        return line ? QCoro::waitFor(commands.run(*line))
                    : failure(CommandResult::misused, line.error());
    }

    ModelDesk desk;
    AppModel model = desk.model();
    Mover mover{model};
    Commands commands{model, [this](Placement placement) { return mover.perform(placement); }};
};

} // namespace

TEST(CommandLineTests, flagsAreReadInAnyOrder)
{
    const std::pair<const char *, CommandLine> lines[]{
        {"--place topHalf --capture --json --place center --capture Desk",
            {.commands = {{Command::Place{Placement::topHalf}}, {Command::Capture{u"Layout"_s}},
                 {Command::Place{Placement::center}}, {Command::Capture{u"Desk"_s}}},
                .json = true}},
        {"--history", {.commands = {{Command::ShowHistory{20}}}}},
        {"--history --json 3", {.commands = {{Command::ShowHistory{3}}}, .json = true}},
    };
    for (const auto &[arguments, expected] : lines)
        EXPECT_EQ(CommandLine::parse(QString::fromLatin1(arguments).split(u' ')), expected);
    EXPECT_EQ(CommandLine::withAbsolutePaths({u"--render-status-icon"_s, u"a.png"_s, u"a.png"_s}),
        (QStringList{u"--render-status-icon"_s, QDir::current().filePath(u"a.png"_s), u"a.png"_s}));
    for (const Placement placement : allPlacements())
        EXPECT_TRUE(CommandLine::helpText().contains(rawValue(placement)));
}

TEST(CommandLineTests, aMistakeIsAnsweredWithWhatExists)
{
    const std::tuple<const char *, const char *, const char *> mistakes[]{
        {"--place LeftHalf", "\"LeftHalf\"", "leftHalf, rightHalf"},
        {"--place", "--place needs", "snapBack, original."},
        {"--plaec leftHalf", "\"--plaec\"", "--place, --capture"},
        {"--history 0", "\"0\"", "start at 1"},
        {"--apply-layout", "--apply-layout needs", "corvane --layouts"},
        {"--pane tremor", "\"tremor\"", "general, shortcuts, layouts, tremorLog, about."},
        {"--select-pane -1", "\"-1\"", "from 0"},
        {"--preview-update-window new", "\"new\"", "1.2.3"},
        {"corvane://place/leftHalf", "corvane://place/leftHalf", "corvane://settings/shortcuts"},
    };
    for (const auto &[arguments, named, offered] : mistakes) {
        const auto line = CommandLine::parse(QString::fromLatin1(arguments).split(u' '));

        ASSERT_FALSE(line) << arguments;
        EXPECT_THAT(line.error().toStdString(), HasSubstr(named));
        EXPECT_THAT(line.error().toStdString(), HasSubstr(offered));
    }
}

TEST(AddressTests, anAddressShowsAPaneOrNothing)
{
    EXPECT_EQ(Address::pane(u"CORVANE://Settings/"_s), SettingsPane::general);
    EXPECT_EQ(Address::pane(u"corvane://settings/tremorLog"_s), SettingsPane::tremorLog);
    for (const char *hostile : {"", "corvane:", "corvane:settings", "corvane:///settings",
             "corvane://settings/shortcuts/", "corvane://settings/../about",
             "corvane://settings/about?apply-layout=Work", "corvane://settings/about#x",
             "corvane://me@settings/about", "corvane://settings:80/about",
             "corvane://settings/--capture", "corvane://settings/about%00", "--open-settings",
             "https://settings/about", "corvane://settings/%61bout%20"})
        EXPECT_FALSE(Address::pane(QString::fromLatin1(hostile))) << hostile;
    const auto noisy = Address::pane(u"corvane://\x1b[31m\u202e"_s + QString(9999, u'x'));
    EXPECT_TRUE(noisy.error().size() < 400 && !noisy.error().contains(u'\x1b'));
}

TEST_F(CommandsTests, flagsOfTheSettingsBecomeRequestsOfTheModel)
{
    const WindowLayout layout = model.newEmptyLayout();
    const QString ofLayout = u" --layout "_s + layout.id.toString();
    const std::tuple<QString, QString, const char *, int> requests[]{
        {u""_s, u"general"_s, "settings window", 0},
        {u"--appearance aqua --pane Tremor-Log"_s, u"tremorLog"_s, "settings window", 0},
        {u"corvane://settings/about"_s, u"about"_s, "settings window", 0},
        {u"--preview-steal"_s, u"shortcuts"_s, "settings window", 0},
        {u"--preview-layout-edit"_s, u"layouts"_s, "layout editor", 0},
        {u"--select-pane 0 --open-app-picker"_s + ofLayout, u"layouts"_s, "settings window", 0},
        {u"--select-pane 1"_s + ofLayout, {}, "There is no pane 1", 2},
        {u"--layout Nowhere"_s, {}, "Layout", 2},
        {u"--tour-page 2"_s, {}, "tour", 0},
        {u"--pop-menu"_s, {}, "menu", 0},
        {u"--check-for-updates"_s, {}, "update check", 0},
        {u"--preview-update-available 9.0"_s, {}, "update sheet", 0},
    };
    for (const auto &[arguments, pane, said, status] : requests) {
        model.pendingPane = QString();

        const CommandResult result = run(arguments);

        EXPECT_EQ(result.status, status) << arguments.toStdString();
        EXPECT_EQ(model.pendingPane.value(), pane) << arguments.toStdString();
        EXPECT_THAT(result.error.toStdString(), HasSubstr(said));
    }
    EXPECT_EQ(model.pendingTourPage.value(), 2);
    EXPECT_EQ(model.pendingLayout.value(), layout.id);
    EXPECT_EQ(model.pendingPaneIndex.value(), 0);
    EXPECT_TRUE(model.pendingAppPicker.value());
    ASSERT_TRUE(model.pendingSteal.value());
    const ShortcutMap shortcuts = model.settings().shortcuts;
    model.confirmSteal();
    EXPECT_FALSE(model.pendingSteal.value());
    EXPECT_EQ(model.settings().shortcuts, shortcuts) << "it was only a sample";
    for (const QString &token : {u"launcher_TIME7"_s, QString()}) {
        QCoro::waitFor(commands.run({.activation = token}));
        EXPECT_EQ(model.pendingActivation.value(), token) << "none is left of an earlier start";
    }
}

TEST_F(CommandsTests, whatTheShellDoesIsHandedToIt)
{
    QStringList done;
    EXPECT_THAT(run(u"--render-status-icon a.png"_s).error.toStdString(), HasSubstr("later"));
    commands.onPopMenu = [&done] { done << u"menu"_s; };
    model.onCheckForUpdatesNow = [&done] { done << u"check"_s; };
    commands.onRenderStatusIcon = [](const QString &path) {
        return expected<void, QString>(tl::unexpect, path + u" is full."_s);
    };

    EXPECT_EQ(run(u"--pop-menu --check-for-updates --appearance dark"_s), CommandResult{});
    EXPECT_EQ(run(u"--render-status-icon /a.png"_s),
        failure(CommandResult::refused, u"/a.png is full."_s));
    EXPECT_EQ(done, (QStringList{u"check"_s, u"menu"_s}));
    EXPECT_TRUE(model.look.value().isDark);
}

TEST_F(CommandsTests, everyCommandOfALineIsCarriedOutInItsPlace)
{
    desk.platform.desktop().openWindow(
        desk.platform.desktop().start(u"com.manytricks.Moom"_s, {}), {.title = u"Moom"_s});
    desk.settle();

    const CommandResult result = run(u"--place topHalf --capture Both --apply-layout No\x1bwhere "
                                     "--print-settings --quit-competitors"_s);
    desk.settle();

    EXPECT_EQ(result.status, CommandResult::misused) << "the worst of them";
    EXPECT_TRUE(result.error.contains(u"no layout \"Nowhere\""_s)) << qPrintable(result.error);
    ASSERT_TRUE(model.layout(u"Both"_s));
    const qsizetype placed = result.output.indexOf(u"topHalf: "_s);
    const qsizetype captured = result.output.indexOf(u"Captured 2 windows"_s);
    const qsizetype printed = result.output.indexOf(u"\"gap\""_s);
    EXPECT_TRUE(placed == 0 && captured > placed && printed > captured);
    EXPECT_TRUE(result.output.endsWith(u"Asked Moom to quit.\n"_s));
    EXPECT_FALSE(model.competitors.value().isEmpty()) << "one may ask its user first";
    desk.settle(std::chrono::seconds(1));
    EXPECT_TRUE(model.competitors.value().isEmpty());
    EXPECT_EQ(run(u"--quit-competitors"_s).output, u"No other window manager is running.\n"_s);
}

TEST(OutcomeReportTests, anOutcomeIsOneLineOrOneObjectAndExitsWithOneUnlessItMoved)
{
    const auto moved = [](const QString &title) {
        const MoveRecord record{QDateTime::fromString(u"2026-01-02T03:04:05Z"_s, Qt::ISODate),
            Placement::leftTwoThirds, u"Editor"_s, title, {1, 2, 300, 400}, {0, 25, 960, 1055},
            u"Studio"_s};
        return OutcomeReport{Placement::leftHalf, {MoveOutcome::Moved{record}}, {}, {}};
    };
    const OutcomeReport refused{
        Placement::maximize, {MoveOutcome::Refused{u"Editor: busy"_s}}, {}, {}};
    const OutcomeReport noWindow{Placement::center, {MoveOutcome::NoWindow{}}, u"Files"_s, {}};
    const OutcomeReport notTrusted{Placement::center, {MoveOutcome::NotTrusted{}}, {}, u"Why."_s};

    const QString line = moved(u"a\nb\t%1 "_s + QString(5000, u'x')).line();
    EXPECT_LT(line.size(), 250);
    EXPECT_TRUE(line.contains(u"\"a b %1 xxx"_s)) << qUtf8Printable(line);
    EXPECT_EQ(moved(u"Letter"_s).line(Titles::hidden),
        u"leftHalf: Editor moved from 1,2 300×400 to 0,25 960×1055 on Studio (leftTwoThirds)");
    EXPECT_EQ(moved(u"Letter"_s).json(),
        (QJsonObject{{u"outcome"_s, u"moved"_s}, {u"date"_s, u"2026-01-02T03:04:05Z"_s},
            {u"placement"_s, u"leftTwoThirds"_s}, {u"appName"_s, u"Editor"_s},
            {u"windowTitle"_s, u"Letter"_s}, {u"from"_s, QJsonArray{1, 2, 300, 400}},
            {u"to"_s, QJsonArray{0, 25, 960, 1055}}, {u"displayName"_s, u"Studio"_s}}));
    EXPECT_EQ(
        refused.result(ReportForm::text), (CommandResult{1, u"maximize: Editor: busy\n"_s, {}}));
    EXPECT_EQ(noWindow.result(ReportForm::json).output,
        u"{\"outcome\":\"noWindow\",\"reason\":\"no focused window (Files)\"}\n"_s);
    EXPECT_EQ(
        notTrusted.result(ReportForm::text).output, u"center: accessibility not granted. Why.\n"_s);
}

} // namespace corvane
