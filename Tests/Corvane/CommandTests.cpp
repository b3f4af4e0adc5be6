#include "Address.h"
#include "Commands.h"
#include "ModelDesk.h"
#include "Mover.h"
#include "OutcomeReport.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

#include <gmock/gmock.h>

namespace corvane {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

class CommandsTests : public testing::Test
{
protected:
    CommandResult run(const QString &arguments)
    {
        auto line = CommandLine::parse(arguments.split(u' ', Qt::SkipEmptyParts));
        line->activation = u"token"_s;
        return QCoro::waitFor(commands.run(*line));
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
        {"--save - --report gap", {.commands = {{Command::SaveReport{u"gap"_s, u"-"_s}}}}},
        {"--report", {.screens = {.report = u""_s}}},
        {"--history --json 3", {.commands = {{Command::ShowHistory{3}}}, .json = true}},
    };
    for (const auto &[arguments, expected] : lines)
        EXPECT_EQ(CommandLine::parse(QString::fromLatin1(arguments).split(u' ')), expected);
    EXPECT_EQ(CommandLine::withAbsolutePaths({u"--render-status-icon"_s, u"a.png"_s, u"a.png"_s}),
        (QStringList{u"--render-status-icon"_s, QDir::current().filePath(u"a.png"_s), u"a.png"_s}));
    EXPECT_EQ(
        CommandLine::withAbsolutePaths({u"--save"_s, u"-"_s}), (QStringList{u"--save"_s, u"-"_s}));
}

TEST(CommandLineTests, aMistakeIsAnsweredWithWhatExists)
{
    const std::tuple<const char *, const char *, const char *> mistakes[]{
        {"--place LeftHalf", "\"LeftHalf\"", "leftHalf, rightHalf"},
        {"--place", "--place needs", "snapBack, original."},
        {"--plaec leftHalf", "\"--plaec\"", "--place, --capture"},
        {"--history 0", "\"0\"", "start at 1"},
        {"--apply-layout", "--apply-layout needs", "corvane --layouts"},
        {"--save a", "--save", "needs --report"},
        {"--select-pane -1", "\"-1\"", "from 0"},
        {"corvane://place/leftHalf", "corvane://place/leftHalf", "corvane://settings/shortcuts"},
    };
    for (const auto &[arguments, named, offered] : mistakes) {
        const auto line = CommandLine::parse(QString::fromLatin1(arguments).split(u' '));

        ASSERT_FALSE(line) << arguments;
        EXPECT_THAT(line.error().toStdString(), AllOf(HasSubstr(named), HasSubstr(offered)));
    }
}

TEST(AddressTests, anAddressShowsAPaneOrNothing)
{
    EXPECT_EQ(Address::pane(u"CORVANE://Settings/"_s), SettingsPane::general);
    EXPECT_EQ(Address::pane(u"corvane://settings/tremorLog"_s), SettingsPane::tremorLog);
    for (const char *hostile :
        {"", "corvane:settings", "corvane://settings/shortcuts/", "corvane://settings/../about",
            "corvane://settings/about?apply-layout=Work", "corvane://me@settings/about",
            "corvane://settings/about%00", "--open-settings", "https://settings/about"})
        EXPECT_FALSE(Address::pane(QString::fromLatin1(hostile))) << hostile;
    const auto noisy = Address::pane(u"corvane://\x1b[31m\u202e"_s + QString(9999, u'x'));
    EXPECT_TRUE(noisy.error().size() < 400 && !noisy.error().contains(u'\x1b'));
}

TEST_F(CommandsTests, flagsOfTheSettingsBecomeRequestsOfTheModel)
{
    const WindowLayout layout = model.newEmptyLayout();
    const QString ofLayout = u" --layout "_s + layout.id.toString();
    const std::tuple<QString, QString, const char *, int> requests[]{
        {u""_s, u"general"_s, "", 0},
        {u"corvane://settings/about"_s, u"about"_s, "", 0},
        {u"--preview-layout-edit --select-pane 3"_s, u"layouts"_s, "", 0},
        {u"--preview-layout-edit --select-pane 4"_s, {}, "There is no pane 4", 2},
        {u"--select-pane 0 --open-app-picker"_s + ofLayout, u"layouts"_s, "", 0},
        {u"--select-pane 1"_s + ofLayout, {}, "There is no pane 1", 2},
        {u"--layout Nowhere"_s, {}, "Layout", 2},
        {u"--tour-page 2"_s, {}, "", 0},
        {u"--tour-page 6"_s, {}, "has 5, counted from 1", 2},
        {u"--report gap"_s, {}, "", 0},
        {u"--pop-menu"_s, {}, "menu", 0},
        {u"--check-for-updates"_s, {}, "built from source", 1},
        {u"--preview-update-window 1.3 --preview-notes /none"_s, {}, "/none", 2},
        {u"--preview-update-window 1.3"_s, {}, "", 0},
        {u"--preview-update-available 1.3 --preview-newer 1.4"_s, {}, "", 0},
    };
    for (const auto &[arguments, pane, said, status] : requests) {
        model.pendingPane = QString();

        const CommandResult result = run(arguments);

        EXPECT_EQ(result.status, status) << arguments.toStdString();
        EXPECT_EQ(model.pendingPane.value(), pane) << arguments.toStdString();
        EXPECT_THAT(result.error.toStdString(), HasSubstr(said));
    }
    EXPECT_EQ(model.pendingTourPage.value(), 2);
    EXPECT_EQ(model.pendingReport.value(), u"gap"_s);
    EXPECT_EQ(model.pendingLayout.value(), layout.id);
    EXPECT_EQ(model.pendingPaneIndex.value(), 0);
    EXPECT_TRUE(model.pendingAppPicker.value());
    EXPECT_EQ(model.pendingActivation, u"token");
    EXPECT_EQ(model.pendingUpdatePreview.value(), ViewState::UpdatePreview{u"1.3"_s});
    EXPECT_EQ(model.updateStatus.value().statusLine(), u"v1.3 is available."_s);
    desk.settle(std::chrono::seconds(3));
    EXPECT_EQ(model.updateStatus.value().statusLine(), u"v1.4 is available."_s);
}

TEST_F(CommandsTests, theSampleOfAnEditIsSeenButNeverWritten)
{
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(run(u"--preview-layout-edit"_s), CommandResult{});
    ASSERT_EQ(model.layouts().size(), 1) << "the sample comes once";
    EXPECT_EQ(model.layouts().first().panes.size(), 4);
    EXPECT_EQ(model.savedVersion(model.pendingLayout)->panes.size(), 3);
    EXPECT_FALSE(QFile::exists(desk.folder.path(u"layouts.json"_s)));

    const WindowLayout layout = model.newEmptyLayout();
    WindowLayout byHand = desk.saved().first();
    byHand.name = u"By hand"_s;
    desk.save({byHand});
    model.refreshLayouts();
    for (const auto &[index, name] : {std::pair(0, u"By hand"), {1, u"Sample"}})
        EXPECT_EQ(model.layouts()[index].name, name);
    while (model.undoTitle()) {
        model.undo();
        EXPECT_LE(desk.saved().size(), 1);
    }
    EXPECT_NE(desk.saved(), model.layouts());
}

TEST_F(CommandsTests, whatTheShellDoesIsHandedToItAndWhatFailsIsRefused)
{
    QDir(desk.folder.path()).mkdir(u"layouts.json"_s);
    EXPECT_EQ(run(u"--capture Lost"_s).status, CommandResult::refused);
    desk.platform.session().changeLook({.isDark = true});
    EXPECT_TRUE(model.look.value().isDark);
    Settings settings;
    settings.appearance = Appearance::light;
    model.setSettings(settings);
    EXPECT_FALSE(model.look.value().isDark) << "whatever the desktop says";
    QStringList done;
    commands.onPopMenu = [&done] { done << u"menu"_s; };
    model.onCheckForUpdatesNow = [&done] { done << u"check"_s; };
    commands.onRenderStatusIcon = [](const QString &path) {
        return expected<void, QString>(tl::unexpect, path + u" is full."_s);
    };

    EXPECT_EQ(run(u"--pop-menu --check-for-updates --appearance dark"_s), CommandResult{});
    EXPECT_EQ(run(u"--render-status-icon /a.png"_s),
        failure(CommandResult::refused, u"/a.png is full."_s));
    EXPECT_EQ(done, (QStringList{u"check"_s, u"menu"_s}));
    EXPECT_TRUE(model.look.value().isDark) << "whatever the settings say";
}

TEST_F(CommandsTests, everyCommandOfALineIsCarriedOutInItsPlace)
{
    desk.platform.desktop().openWindow(
        desk.platform.desktop().start(u"com.manytricks.Moom"_s, {}), {.title = u"Moom"_s});
    desk.settle();

    const CommandResult result = run(u"--place topHalf --capture Both --apply-layout No\x1bwhere "
                                     "--print-settings --quit-competitors"_s);
    desk.settle(std::chrono::seconds(1));

    EXPECT_EQ(result.status, CommandResult::misused) << "the worst of them";
    EXPECT_TRUE(result.error.contains(u"no layout \"Nowhere\""_s)) << qPrintable(result.error);
    EXPECT_TRUE(model.layout(u"Both"_s));
    EXPECT_THAT(result.output.toStdString(),
        MatchesRegex(
            "topHalf: (.|\n)*Captured 2 windows(.|\n)*\"gap\"(.|\n)*Asked Moom to quit.\n"));
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
    const OutcomeReport noWindow{Placement::center, {MoveOutcome::NoWindow{}}, u"Files"_s, {}};

    const QString line = moved(u"a\nb\t%1 "_s + QString(5000, u'x')).line();
    EXPECT_LT(line.size(), 250);
    EXPECT_TRUE(line.contains(u"\"a b %1 xxx"_s)) << qUtf8Printable(line);
    EXPECT_EQ(moved(u"Letter"_s).line(Titles::hidden),
        u"leftHalf: Editor moved from 1,2 300×400 to 0,25 960×1055 on Studio (leftTwoThirds)");
    EXPECT_EQ(QJsonDocument(moved(u"Letter"_s).json()).toJson(QJsonDocument::Compact),
        R"({"appName":"Editor","date":"2026-01-02T03:04:05Z","displayName":"Studio",)"
        R"("from":[1,2,300,400],"outcome":"moved","placement":"leftTwoThirds",)"
        R"("to":[0,25,960,1055],"windowTitle":"Letter"})");
    EXPECT_EQ(noWindow.result(ReportForm::json).output,
        u"{\"outcome\":\"noWindow\",\"reason\":\"no focused window (Files)\"}\n"_s);
}

} // namespace corvane
