#include "FlightRecorder.h"
#include "ModelDesk.h"

#include <gmock/gmock.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
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

    [[nodiscard]] QString path(const QString &name) const { return desk.folder.filePath(name); }
    [[nodiscard]] QString settingsPath() const { return path(u"settings.json"_s); }

    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }

    void edit(const QByteArray &content)
    {
        write(settingsPath(), content);
        model.refreshFiles();
    }

    bool waitFor(const std::function<bool()> &condition)
    {
        const QDeadlineTimer deadline(30s);
        while (!condition() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            desk.settle(1s);
        }
        return condition();
    }

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
    EXPECT_EQ(SettingsStore(desk.folder.path()).loadKeepingUnreadable().layouts, settings);
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
    for (const QString &name : {u"settings.json"_s, u"layouts.json"_s})
        write(path(name), "\"no\"");

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
        for (const WindowLayout &each :
            LayoutStore(desk.folder.path()).loadKeepingUnreadable().layouts)
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

TEST_F(SettingsRuleTests, anEditTakesEffectThroughTheRuleOfChangesAndIsNotWrittenBack)
{
    const QByteArray text = R"({"shortcuts": [], "launchAtLogin": true, "showMenuBarIcon": false,
        "showInDock": false, "appearance": "dark", "gap": 8})";

    edit(text);
    model.refreshFiles();

    EXPECT_THAT(told,
        ElementsAre(
            u"settings"_s, u"shortcuts"_s, u"login 1"_s, u"menu"_s, u"dock 0"_s, u"look"_s));
    EXPECT_EQ(model.settings().gap, 8);
    EXPECT_FALSE(model.savedFlash.value());
    QFile file(settingsPath());
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_EQ(file.readAll(), text);
}

TEST_F(SettingsRuleTests, aDamagedEditLeavesInForceWhatItDamagesUntilAGoodOne)
{
    const struct {
        const char *text;
        double gap;
        double sizeStep;
        qsizetype notices;
    } edits[]{
        {R"({"gap": 8, "sizeStep": 20, "shortcuts": []})", 8, 20, 0},
        {"{", 8, 20, 1},
        {"", 8, 20, 1},
        {"[]", 8, 20, 1},
        {R"({"gap": NaN, "sizeStep": 30, "shortcuts": ["leftHalf", 5]})", 8, 30, 1},
        {R"({"gap": 9, "shortcuts": []})", 9, 60, 0},
    };
    for (const auto &each : edits) {
        edit(each.text);

        EXPECT_EQ(model.settings().gap, each.gap) << each.text;
        EXPECT_EQ(model.settings().sizeStep, each.sizeStep) << each.text;
        EXPECT_FALSE(model.settings().shortcuts.contains(Placement::leftHalf)) << each.text;
        ASSERT_THAT(model.notices(), SizeIs(each.notices)) << each.text;
        EXPECT_TRUE(
            each.notices == 0 || QFileInfo::exists(model.notices().first().reveal->toLocalFile()));
    }
    ASSERT_TRUE(QFile::remove(settingsPath()));
    model.refreshFiles();
    EXPECT_EQ(model.settings().gap, 9) << "no file is no edit";
}

TEST_F(SettingsRuleTests, aChangeOfTheProgramsOwnLostTheEditThatItHadNotRead)
{
    Settings edited = model.settings();
    edited.gap = 8;
    edited.shortcuts.remove(Placement::leftHalf);
    Settings changed = model.settings();
    changed.cycling = false;
    changed.shortcuts.remove(Placement::rightHalf);
    ASSERT_TRUE(SettingsStore(desk.folder.path()).save(edited));

    model.setSettings(changed);

    edited.cycling = false;
    edited.shortcuts.remove(Placement::rightHalf);
    EXPECT_EQ(model.settings(), edited);
    EXPECT_EQ(SettingsStore(desk.folder.path()).loadKeepingUnreadable().layouts, edited);
}

TEST_F(SettingsRuleTests, aDamagedListOfLayoutsCostsNoLayout)
{
    const WindowLayout layout = model.newEmptyLayout();
    write(path(u"layouts.json"_s), R"([5, {"name": "By hand"}])");
    model.refreshFiles();

    ASSERT_THAT(model.layouts(), SizeIs(2));
    EXPECT_EQ(model.layouts()[0].name, u"By hand");
    EXPECT_EQ(model.layouts()[1], layout);
    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_THAT(model.notices().first().text.toStdString(), HasSubstr("those it had stay"));
    write(path(u"layouts.json"_s), "[]");
    model.refreshFiles();
    EXPECT_THAT(model.layouts(), IsEmpty());
    EXPECT_THAT(model.notices(), IsEmpty());
}

TEST_F(SettingsRuleTests, anEditIsSeenHoweverItComesAbout)
{
    const QString file = settingsPath();
    const QString real = path(u"dotfiles/settings.json"_s);
    const auto replace = [this](const QString &target, const QByteArray &text) {
        write(target + u'~', text);
        ASSERT_EQ(std::rename(qPrintable(target + u'~'), qPrintable(target)), 0);
    };
    const std::function<void(const QByteArray &)> ways[]{
        [&](const QByteArray &text) { write(file, text); },
        [&](const QByteArray &text) { replace(file, text); },
        [&](const QByteArray &text) { write(file, text); },
        [&](const QByteArray &text) {
            QDir(desk.folder.path()).removeRecursively();
            waitFor([&] { return !QFile::exists(file); });
            QDir().mkpath(desk.folder.path());
            write(file, text);
        },
        [&](const QByteArray &text) {
            QDir(desk.folder.path()).mkdir(u"dotfiles"_s);
            write(real, text);
            QFile::remove(file);
            QFile::link(real, file);
        },
        [&](const QByteArray &text) { replace(real, text); },
    };
    QDir(desk.folder.path()).removeRecursively();
    model.followFiles();
    QDir().mkpath(desk.folder.path());

    for (double gap = 1; const auto &edit : ways) {
        edit("{\"gap\": " + QByteArray::number(gap) + "}");
        EXPECT_TRUE(waitFor([&] { return model.settings().gap == gap; })) << gap;
        ++gap;
    }
    write(path(u"layouts.json"_s), R"([{"name": "By hand"}])");
    EXPECT_TRUE(waitFor([&] { return model.layouts().size() == 1; }));
}

TEST_F(SettingsRuleTests, aHistoryThatCannotBeWrittenIsOneNoticeUntilItCan)
{
    ASSERT_TRUE(QDir().mkdir(path(u"activity.jsonl"_s)));
    const WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());

    EXPECT_TRUE(model.apply(layout).isReady());
    EXPECT_TRUE(model.apply(layout).isReady());

    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_THAT(model.notices().first().text.toStdString(),
        HasSubstr(
            "activity.jsonl: There is a folder in its place. Windows are moved all the same."));
    EXPECT_THAT(told, ElementsAre(u"menu"_s));
    ASSERT_TRUE(QDir().rmdir(path(u"activity.jsonl"_s)));
    EXPECT_TRUE(model.apply(layout).isReady());
    EXPECT_THAT(model.notices(), IsEmpty());
    EXPECT_THAT(ActivityLog(desk.folder.path()).recent(9), SizeIs(3));
}

} // namespace corvane
