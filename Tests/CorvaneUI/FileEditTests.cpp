#include "ModelDesk.h"

#include <gmock/gmock.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>

namespace corvane {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// What the program changes and what somebody changes in its files by hand.
class FileEditTests : public testing::Test
{
protected:
    FileEditTests()
    {
        const auto note = [this](const QString &what) { return [=, this] { told << what; }; };
        model.onShortcutsChanged = note(u"shortcuts"_s);
        model.onMenuChanged = note(u"menu"_s);
        model.onLaunchAtLoginChanged = [this](bool on) { told << u"login%1"_s.arg(on); };
        model.onDockVisibilityChanged = [this](bool on) { told << u"dock%1"_s.arg(on); };
        QObject::connect(&model, &AppModel::lookChanged, &model, note(u"look"_s));
        QObject::connect(&model, &AppModel::settingsChanged, &model, note(u"settings"_s));
    }

    [[nodiscard]] QString path(const QString &name) const { return desk.folder.path(name); }

    /// As an editor does that saves through another file.
    void replace(const QString &name, const QByteArray &content) const
    {
        desk.folder.write(name + u'~', content);
        ASSERT_EQ(std::rename(qPrintable(path(name + u'~')), qPrintable(path(name))), 0);
    }

    void edit(const QString &name, const QByteArray &content)
    {
        desk.folder.write(name, content);
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
    const SettingsStore store{desk.folder.path()};
    AppModel model = desk.model();
    QStringList told;
    const QString settingsFile = u"settings.json"_s;
};

} // namespace

TEST_F(FileEditTests, everyChangeIsToldToThoseWhoDependOnItWhoeverMadeIt)
{
    const QByteArray text = R"({"shortcuts": [], "launchAtLogin": true, "showMenuBarIcon": false,
        "showInDock": false, "appearance": "dark", "gap": 8})";
    model.setSettings(Settings(model.settings()));
    EXPECT_THAT(told, IsEmpty()) << "nothing has changed";

    edit(settingsFile, text);
    model.refreshFiles();
    EXPECT_EQ(told.join(u' '), u"settings shortcuts login1 menu dock0 look"_s);
    EXPECT_EQ(model.settings().gap, 8);
    EXPECT_FALSE(model.savedFlash.value());
    EXPECT_EQ(desk.folder.read(settingsFile), text) << "not written back";
    told.clear();
    const Settings defaults;
    model.setSettings(defaults);

    EXPECT_EQ(told.join(u' '), u"settings shortcuts login0 menu dock1 look"_s);
    EXPECT_EQ(store.inspect().settings, defaults);
    EXPECT_EQ(model.savedFlash.value(), desk.platform.clock().date());
}

TEST_F(FileEditTests, whatCannotBeWrittenWorksForTheRunAndIsOneNoticeUntilItCan)
{
    const QString history = u"activity.jsonl"_s;
    const auto applyWithGap = [this](double gap) {
        Settings settings;
        settings.gap = gap;
        model.setSettings(settings);
        return model.apply(ModelDesk::leftHalfLayout(Screens::signature())).isReady();
    };
    ASSERT_TRUE(QDir().mkdir(path(settingsFile)) && QDir().mkdir(path(history)));

    EXPECT_TRUE(applyWithGap(4) && applyWithGap(8));
    EXPECT_EQ(model.settings().gap, 8);
    EXPECT_FALSE(model.savedFlash.value());
    ASSERT_THAT(model.notices(), SizeIs(2));
    EXPECT_THAT(model.notices()[0].text.toStdString(), HasSubstr("activity.jsonl: There is a"));
    EXPECT_EQ(model.notices()[1].reveal, QUrl::fromLocalFile(path(settingsFile)));
    ASSERT_TRUE(QDir().rmdir(path(settingsFile)) && QDir().rmdir(path(history)));
    EXPECT_TRUE(applyWithGap(12));
    EXPECT_THAT(model.notices(), IsEmpty());
    EXPECT_THAT(ActivityLog(desk.folder.path()).recent(9), SizeIs(3));
}

TEST_F(FileEditTests, aDamagedEditLeavesInForceWhatItDamagesUntilAGoodOne)
{
    const std::tuple<const char *, double, double, qsizetype> edits[]{
        {R"({"gap": 8, "sizeStep": 20, "shortcuts": []})", 8, 20, 0},
        {"{", 8, 20, 1},
        {"[]", 8, 20, 1},
        {R"({"gap": NaN, "sizeStep": 30, "shortcuts": ["leftHalf", 5]})", 8, 30, 1},
        {R"({"gap": 9, "shortcuts": []})", 9, 60, 0},
    };
    for (const auto &[text, gap, sizeStep, notices] : edits) {
        edit(settingsFile, text);

        EXPECT_EQ(model.settings().gap, gap) << text;
        EXPECT_EQ(model.settings().sizeStep, sizeStep) << text;
        EXPECT_FALSE(model.settings().shortcuts.contains(Placement::leftHalf)) << text;
        ASSERT_THAT(model.notices(), SizeIs(notices)) << text;
        EXPECT_TRUE(notices == 0 || QFile::exists(model.notices()[0].reveal->toLocalFile()));
    }
    ASSERT_TRUE(QFile::remove(path(settingsFile)));
    model.refreshFiles();
    EXPECT_EQ(model.settings().gap, 9) << "no file is no edit";

    const WindowLayout layout = model.newEmptyLayout();
    edit(u"layouts.json"_s, R"([5, {"name": "By hand"}])");
    ASSERT_THAT(model.layouts(), SizeIs(2));
    EXPECT_EQ(model.layouts()[1], layout);
    EXPECT_THAT(model.notices(), SizeIs(1));
    edit(u"layouts.json"_s, "[]");
    EXPECT_THAT(model.layouts(), IsEmpty());
    EXPECT_THAT(model.notices(), IsEmpty());
}

TEST_F(FileEditTests, aChangeOfTheProgramsOwnLostTheEditThatItHadNotRead)
{
    Settings edited = model.settings();
    edited.gap = 8;
    edited.shortcuts.remove(Placement::leftHalf);
    Settings changed = model.settings();
    changed.cycling = false;
    changed.shortcuts.remove(Placement::rightHalf);
    ASSERT_TRUE(store.save(edited));
    model.setSettings(changed);
    edited.cycling = false;
    edited.shortcuts.remove(Placement::rightHalf);
    EXPECT_EQ(model.settings(), edited);
    EXPECT_EQ(store.inspect().settings, edited);

    WindowLayout byHand = model.newEmptyLayout();
    const std::function<void()> changes[]{
        [&] { model.renameLayout(byHand.id, u"Renamed"_s); },
        [&] { model.assign(KeyCombo(50, KeyCombo::option), {byHand.id}); },
        [&] { std::ignore = model.captureCurrentWindows(u"Renamed"_s); },
        [&] { model.refreshLayouts(); },
    };
    for (double height = 0; const auto &change : changes) {
        byHand = *model.layout(byHand.id);
        byHand.panes = {Pane{.rect = {0, 0, 1, height += 0.1}}};
        desk.save({byHand});
        change();
        ASSERT_TRUE(model.layout(byHand.id)) << height;
        EXPECT_EQ(model.layout(byHand.id)->panes, byHand.panes) << height;
        EXPECT_EQ(desk.saved(), model.layouts()) << height;
    }
}

TEST_F(FileEditTests, anEditIsSeenHoweverItComesAbout)
{
    const QString real = u"dotfiles/settings.json"_s;
    const std::function<void(const QByteArray &)> ways[]{
        [&](const QByteArray &text) { desk.folder.write(settingsFile, text); },
        [&](const QByteArray &text) { replace(settingsFile, text); },
        [&](const QByteArray &text) { desk.folder.write(settingsFile, text); },
        [&](const QByteArray &text) {
            QDir(desk.folder.path()).removeRecursively();
            desk.folder.write(real, text);
            QFile::link(path(real), path(settingsFile));
        },
        [&](const QByteArray &text) { replace(real, text); },
    };
    model.followFiles();

    for (double gap = 1; const auto &way : ways) {
        way("{\"gap\": " + QByteArray::number(gap) + "}");
        EXPECT_TRUE(waitFor([&] { return model.settings().gap == gap; })) << gap;
        ++gap;
    }
    desk.folder.write(u"layouts.json"_s, R"([{"name": "By hand"}])");
    EXPECT_TRUE(waitFor([&] { return model.layouts().size() == 1; }));
}

} // namespace corvane
