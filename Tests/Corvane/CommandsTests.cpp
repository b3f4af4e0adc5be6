#include "Commands.h"

#include "Mover.h"
#include "SimulatedPlatform.h"

#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class CommandsTests : public testing::Test
{
protected:
    CommandsTests()
    {
        platform.desktop().plug({{0, 0, 1440, 900}, u"Laptop"_s});
        platform.deliver();
    }

    CommandResult run(const QString &arguments)
    {
        const auto line = CommandLine::parse(arguments.split(u' ', Qt::SkipEmptyParts));
        return line ? QCoro::waitFor(commands.run(*line))
                    : failure(CommandResult::misused, line.error());
    }

    QTemporaryDir folder;
    SimulatedPlatform platform;
    AppModel model{
        SettingsStore(folder.path()), LayoutStore(folder.path()), ActivityLog(folder.path())};
    Mover mover{model};
    Commands commands{model, [this](Placement placement) { return mover.perform(placement); }};
};

} // namespace

TEST_F(CommandsTests, flagsOfTheSettingsBecomeRequestsOfTheModel)
{
    const std::tuple<const char *, QString, const char *> requests[]{
        {"", u"general"_s, "settings window"},
        {"--verbose", u"general"_s, "settings window"},
        {"--open-settings --pane about", u"about"_s, "settings window"},
        {"corvane://settings/tremorLog", u"tremorLog"_s, "settings window"},
        {"--preview-steal", u"shortcuts"_s, "settings window"},
        {"--preview-layout-edit", u"layouts"_s, "layout editor"},
        {"--tour-page 2", QString(), "tour"},
        {"--pop-menu", QString(), "menu"},
        {"--check-for-updates", QString(), "update check"},
        {"--preview-update-available 9.0", QString(), "update sheet"},
    };
    for (const auto &[arguments, pane, window] : requests) {
        model.pendingPane = QString();

        const CommandResult result = run(QString::fromLatin1(arguments));

        EXPECT_EQ(result.status, 0) << arguments;
        EXPECT_EQ(model.pendingPane.value(), pane) << arguments;
        EXPECT_THAT(result.error.toStdString(), HasSubstr(window)) << arguments;
    }
    ASSERT_TRUE(model.pendingSteal.value());
    EXPECT_EQ(model.owner(model.pendingSteal.value()->combo), model.pendingSteal.value()->from);
    EXPECT_EQ(model.pendingTourPage.value(), 2);
    const ShortcutMap shortcuts = model.settings().shortcuts;
    model.confirmSteal();
    EXPECT_FALSE(model.pendingSteal.value());
    EXPECT_EQ(model.settings().shortcuts, shortcuts) << "it was only a sample";
}

TEST_F(CommandsTests, aWindowIsAskedForTogetherWithTheTokenThatBringsItToTheFront)
{
    for (const QString &token : {u"launcher_TIME7"_s, QString()}) {
        CommandLine line;
        line.activation = token;

        QCoro::waitFor(commands.run(line));

        EXPECT_EQ(model.pendingActivation.value(), token) << "none is left of an earlier start";
    }
}

TEST_F(CommandsTests, aLayoutIsOpenedAtOneOfItsPanes)
{
    const WindowLayout layout = model.newEmptyLayout();

    run(u"--layout %1 --select-pane 0 --open-app-picker"_s.arg(layout.id.toString()));

    EXPECT_EQ(model.pendingPane.value(), u"layouts"_s);
    EXPECT_EQ(model.pendingLayout.value(), layout.id);
    EXPECT_EQ(model.pendingPaneIndex.value(), 0);
    EXPECT_TRUE(model.pendingAppPicker.value());

    model.pendingPane = QString();
    const CommandResult unknown = run(u"--layout Nowhere"_s);
    const CommandResult beyond = run(u"--select-pane 1 --layout "_s + layout.id.toString());

    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.error.toStdString(), HasSubstr(layout.name.toStdString()));
    EXPECT_EQ(beyond.status, 2);
    EXPECT_EQ(model.pendingPane.value(), QString());
}

TEST_F(CommandsTests, whatTheShellDoesIsHandedToIt)
{
    QStringList done;
    EXPECT_THAT(run(u"--render-status-icon a.png"_s).error.toStdString(), HasSubstr("later"));
    commands.onPopMenu = [&done] { done << u"menu"_s; };
    model.onCheckForUpdatesNow = [&done] { done << u"check"_s; };
    commands.onRenderStatusIcon = [&done](const QString &path) {
        done << path;
        return expected<void, QString>(tl::unexpect, u"The disk is full."_s);
    };

    EXPECT_EQ(run(u"--pop-menu --check-for-updates --appearance dark"_s), CommandResult{});
    EXPECT_EQ(run(u"--render-status-icon /tmp/a.png"_s),
        failure(CommandResult::refused, u"The disk is full."_s));

    EXPECT_EQ(done, (QStringList{u"check"_s, u"menu"_s, u"/tmp/a.png"_s}));
    EXPECT_TRUE(model.look.value().isDark);
}

TEST_F(CommandsTests, everyCommandOfALineIsCarriedOutInItsPlace)
{
    platform.desktop().openWindow(platform.desktop().start(u"org.example.Editor"_s, u"Editor"_s),
        {.title = u"Letter"_s, .frame = {0, 0, 300, 200}});
    platform.deliver();

    const CommandResult result =
        run(u"--place topHalf --capture Both --apply-layout No\x1bwhere --print-settings"_s);

    EXPECT_EQ(result.status, CommandResult::misused) << "the worst of them";
    EXPECT_TRUE(result.error.contains(u"no layout \"Nowhere\""_s)) << qPrintable(result.error);
    ASSERT_TRUE(model.layout(u"Both"_s));
    EXPECT_EQ(model.layout(u"Both"_s)->panes.value(0).rect, (UnitRect{0, 0, 1, 0.5}));
    const qsizetype placed = result.output.indexOf(u"topHalf: Editor"_s);
    const qsizetype captured = result.output.indexOf(u"Captured 1 window"_s);
    EXPECT_TRUE(placed == 0 && captured > placed);
    EXPECT_GT(result.output.indexOf(u"\"gap\""_s), captured);
}

TEST_F(CommandsTests, everyRunningCompetitorIsAskedToQuit)
{
    EXPECT_EQ(run(u"--quit-competitors"_s).output, u"No other window manager is running.\n"_s);
    for (const QString &id : {u"com.manytricks.Moom"_s, u"com.irradiatedsoftware.SizeUp"_s})
        platform.desktop().openWindow(
            platform.desktop().start(id, {}), {.title = {}, .frame = {0, 0, 300, 200}});
    platform.deliver();

    const CommandResult asked = run(u"--quit-competitors"_s);
    platform.deliver();

    EXPECT_EQ(asked.output, u"Asked SizeUp to quit.\nAsked Moom to quit.\n"_s);
    EXPECT_TRUE(Competitor::running().isEmpty());
}

} // namespace corvane
