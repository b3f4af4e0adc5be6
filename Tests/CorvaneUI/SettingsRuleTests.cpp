#include "FlightRecorder.h"
#include "ModelDesk.h"

#include <gmock/gmock.h>

#include <QtCore/QDir>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class SettingsRuleTests : public testing::Test
{
protected:
    SettingsRuleTests()
    {
        model.onShortcutsChanged = [this] { told << u"shortcuts"_s; };
        model.onMenuChanged = [this] { told << u"menu"_s; };
        model.onLaunchAtLoginChanged = [this](bool on) { told << u"login %1"_s.arg(on); };
        model.onDockVisibilityChanged = [this](bool on) { told << u"dock %1"_s.arg(on); };
        QObject::connect(&model, &AppModel::lookChanged, &model, [this] { told << u"look"_s; });
        QObject::connect(
            &model, &AppModel::settingsChanged, &model, [this] { told << u"settings"_s; });
    }

    [[nodiscard]] QString settingsPath() const { return desk.folder.filePath(u"settings.json"_s); }

    ModelDesk desk;
    AppModel model = desk.model();
    QStringList told;
};

} // namespace

TEST_F(SettingsRuleTests, everyChangeIsSavedAndToldToThoseWhoDependOnIt)
{
    Settings settings = model.settings();
    settings.shortcuts.remove(Placement::leftHalf);
    settings.launchAtLogin = true;
    settings.showMenuBarIcon = false;
    settings.showInDock = false;
    settings.appearance = Appearance::dark;

    model.setSettings(settings);

    EXPECT_THAT(told,
        ElementsAre(
            u"settings"_s, u"shortcuts"_s, u"login 1"_s, u"menu"_s, u"dock 0"_s, u"look"_s));
    EXPECT_EQ(SettingsStore(desk.folder.path()).load(), settings);
    EXPECT_EQ(model.savedFlash.value(), desk.platform.clock().date());
    EXPECT_TRUE(model.look.value().isDark);
}

TEST_F(SettingsRuleTests, anEqualValueSavesNothingAndTellsNobody)
{
    model.setSettings(Settings(model.settings()));

    EXPECT_THAT(told, IsEmpty());
    EXPECT_FALSE(QFileInfo::exists(settingsPath()));
}

TEST_F(SettingsRuleTests, failedSavesLeaveOneNoticeAndAGoodOneLeavesNone)
{
    ASSERT_TRUE(QDir().mkdir(settingsPath()));
    const auto setGap = [this](double gap) {
        Settings settings = model.settings();
        settings.gap = gap;
        model.setSettings(settings);
    };

    setGap(4);
    setGap(8);

    EXPECT_EQ(model.settings().gap, 8) << "works for this run";
    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_EQ(model.notices().first().id, u"save-failed");
    EXPECT_EQ(model.notices().first().reveal, QUrl::fromLocalFile(settingsPath()));
    EXPECT_FALSE(model.savedFlash.value());
    ASSERT_TRUE(QDir().rmdir(settingsPath()));
    setGap(12);
    EXPECT_THAT(model.notices(), IsEmpty());
}

TEST_F(SettingsRuleTests, unreadableFilesBecomeNoticesThatNameWhatWasLost)
{
    for (const QString &name : {u"settings.json"_s, u"layouts.json"_s}) {
        QFile file(desk.folder.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write("\"no\"") > 0);
    }

    const AppModel read{SettingsStore(desk.folder.path()), LayoutStore(desk.folder.path()),
        ActivityLog(desk.folder.path())};

    ASSERT_THAT(read.notices(), SizeIs(2));
    EXPECT_EQ(read.notices()[0].id, u"unreadable-settings.json");
    EXPECT_THAT(read.notices()[0].text.toStdString(), HasSubstr("some of your settings"));
    EXPECT_THAT(read.notices()[1].text.toStdString(), HasSubstr("some of your layouts"));
    ASSERT_TRUE(read.notices()[1].reveal);
    EXPECT_TRUE(QFileInfo::exists(read.notices()[1].reveal->toLocalFile()));
}

TEST_F(SettingsRuleTests, theForcedAppearanceWinsOverTheSettingsAndThoseOverTheDesktop)
{
    desk.platform.session().changeLook({.isDark = true});
    EXPECT_TRUE(model.look.value().isDark);
    Settings settings = model.settings();
    settings.appearance = Appearance::light;
    model.setSettings(settings);
    EXPECT_FALSE(model.look.value().isDark);
    model.forcedAppearance = Appearance::dark;
    model.applyAppearance();

    EXPECT_TRUE(model.look.value().isDark);
}

TEST_F(SettingsRuleTests, aCompetitorIsAskedToQuitAndLookedForASecondLater)
{
    const pid_t rival =
        desk.platform.desktop().start(u"com.irradiatedsoftware.SizeUp"_s, u"SizeUp"_s);
    desk.platform.desktop().openWindow(rival, {.title = u"SizeUp"_s});
    desk.settle();
    model.refreshCompetitors();
    ASSERT_THAT(model.competitors.value(), SizeIs(1));

    model.quit(model.competitors.value().first().application);
    EXPECT_THAT(model.competitors.value(), SizeIs(1)) << "it may ask its user first";
    desk.settle(1s);

    EXPECT_THAT(model.competitors.value(), IsEmpty());
}

TEST_F(SettingsRuleTests, undoAndRedoWalkThroughTheLayoutsAndTheirFile)
{
    const WindowLayout layout = model.newEmptyLayout();
    model.renameLayout(layout.id, u" Work "_s);
    const auto copy = model.duplicateLayout(layout.id);
    model.deleteLayout(layout.id);
    const auto names = [this] {
        QStringList result;
        for (const WindowLayout &each : LayoutStore(desk.folder.path()).load())
            result << each.name;
        return result;
    };

    ASSERT_TRUE(copy);
    EXPECT_THAT(names(), ElementsAre(u"Work 2"_s));
    EXPECT_EQ(model.undoTitle(), u"Delete Layout");
    model.undo();
    EXPECT_THAT(names(), ElementsAre(u"Work"_s, u"Work 2"_s));
    model.undo();
    model.undo();
    EXPECT_THAT(names(), ElementsAre(u"Layout"_s));
    model.redo();
    EXPECT_THAT(names(), ElementsAre(u"Work"_s));
    model.revertLayout(layout.id);
    EXPECT_THAT(names(), ElementsAre(u"Layout"_s));
    EXPECT_EQ(model.undoTitle(), u"Revert Work");
}

} // namespace corvane
