#include "ModelDesk.h"

#include <gmock/gmock.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
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
        const auto noteBool = [this](const QString &what) {
            return [=, this](bool on) { told << what + QString::number(on); };
        };
        model.onShortcutsChanged = note(u"shortcuts"_s);
        model.onMenuChanged = note(u"menu"_s);
        model.onLaunchAtLoginChanged = noteBool(u"login"_s);
        model.onDockVisibilityChanged = noteBool(u"dock"_s);
        QObject::connect(&model, &AppModel::lookChanged, &model, note(u"look"_s));
        QObject::connect(&model, &AppModel::settingsChanged, &model, note(u"settings"_s));
    }

    [[nodiscard]] QString path(const QString &name) const { return desk.folder.filePath(name); }
    [[nodiscard]] Settings stored() const
    {
        return SettingsStore(desk.folder.path()).inspect().settings;
    }

    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }

    void edit(const QString &name, const QByteArray &content)
    {
        write(path(name), content);
        model.refreshFiles();
    }

    void setGap(double gap)
    {
        Settings settings = model.settings();
        settings.gap = gap;
        model.setSettings(settings);
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
    const QString settingsFile = u"settings.json"_s;
};

} // namespace

TEST_F(FileEditTests, everyChangeIsToldToThoseWhoDependOnItWhoeverMadeIt)
{
    const QByteArray text = R"({"shortcuts": [], "launchAtLogin": true, "showMenuBarIcon": false,
        "showInDock": false, "appearance": "dark", "gap": 8})";
    const QStringList everything{
        u"settings"_s, u"shortcuts"_s, u"login1"_s, u"menu"_s, u"dock0"_s, u"look"_s};
    model.setSettings(Settings(model.settings()));
    EXPECT_THAT(told, IsEmpty());
    EXPECT_FALSE(QFile::exists(path(settingsFile))) << "nothing has changed";

    edit(settingsFile, text);
    model.refreshFiles();
    EXPECT_EQ(told, everything);
    EXPECT_EQ(model.settings().gap, 8);
    EXPECT_FALSE(model.savedFlash.value());
    QFile file(path(settingsFile));
    EXPECT_TRUE(file.open(QFile::ReadOnly) && file.readAll() == text) << "not written back";
    told.clear();
    Settings settings = model.settings();
    settings.shortcuts.clear();
    settings.launchAtLogin = false;
    settings.showMenuBarIcon = settings.showInDock = true;
    settings.appearance = Appearance::light;
    model.setSettings(settings);

    EXPECT_EQ(told,
        (QStringList{
            u"settings"_s, u"shortcuts"_s, u"login0"_s, u"menu"_s, u"dock1"_s, u"look"_s}));
    EXPECT_EQ(stored(), settings);
    EXPECT_EQ(model.savedFlash.value(), desk.platform.clock().date());
}

TEST_F(FileEditTests, whatCannotBeWrittenWorksForTheRunAndIsOneNoticeUntilItCan)
{
    const WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    for (const QString &name : {settingsFile, u"activity.jsonl"_s})
        ASSERT_TRUE(QDir().mkdir(path(name)));

    for (const double gap : {4, 8}) {
        setGap(gap);
        EXPECT_TRUE(model.apply(layout).isReady());
    }
    EXPECT_EQ(model.settings().gap, 8);
    EXPECT_FALSE(model.savedFlash.value());
    ASSERT_THAT(model.notices(), SizeIs(2));
    const AppModel::Notice &history = model.notices()[0];
    const AppModel::Notice &saving = model.notices()[1];
    EXPECT_THAT(history.text.toStdString(),
        HasSubstr(
            "activity.jsonl: There is a folder in its place. Windows are moved all the same."));
    EXPECT_EQ(saving.reveal, QUrl::fromLocalFile(path(settingsFile)));
    for (const QString &name : {settingsFile, u"activity.jsonl"_s})
        ASSERT_TRUE(QDir().rmdir(path(name)));
    setGap(12);
    EXPECT_TRUE(model.apply(layout).isReady());

    EXPECT_THAT(model.notices(), IsEmpty());
    EXPECT_THAT(ActivityLog(desk.folder.path()).recent(9), SizeIs(3));
}

TEST_F(FileEditTests, aDamagedEditLeavesInForceWhatItDamagesUntilAGoodOne)
{
    const std::tuple<const char *, double, double, qsizetype> edits[]{
        {R"({"gap": 8, "sizeStep": 20, "shortcuts": []})", 8, 20, 0},
        {"{", 8, 20, 1},
        {"", 8, 20, 1},
        {"[]", 8, 20, 1},
        {R"({"gap": NaN, "sizeStep": 30, "shortcuts": ["leftHalf", 5]})", 8, 30, 1},
        {R"({"gap": 9, "shortcuts": []})", 9, 60, 0},
    };
    for (const auto &[text, gap, sizeStep, notices] : edits) {
        SCOPED_TRACE(text);
        edit(settingsFile, text);

        EXPECT_EQ(model.settings().gap, gap);
        EXPECT_EQ(model.settings().sizeStep, sizeStep);
        EXPECT_FALSE(model.settings().shortcuts.contains(Placement::leftHalf));
        ASSERT_THAT(model.notices(), SizeIs(notices));
        EXPECT_TRUE(notices == 0 || QFile::exists(model.notices()[0].reveal->toLocalFile()));
    }
    ASSERT_TRUE(QFile::remove(path(settingsFile)));
    model.refreshFiles();
    EXPECT_EQ(model.settings().gap, 9) << "no file is no edit";

    const WindowLayout layout = model.newEmptyLayout();
    edit(u"layouts.json"_s, R"([5, {"name": "By hand"}])");
    ASSERT_THAT(model.layouts(), SizeIs(2));
    EXPECT_EQ(model.layouts()[1], layout);
    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_THAT(model.notices()[0].text.toStdString(), HasSubstr("those it had stay"));
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
    ASSERT_TRUE(SettingsStore(desk.folder.path()).save(edited));
    model.setSettings(changed);
    edited.cycling = false;
    edited.shortcuts.remove(Placement::rightHalf);
    EXPECT_EQ(model.settings(), edited);
    EXPECT_EQ(stored(), edited);

    WindowLayout byHand = model.newEmptyLayout();
    const KeyCombo combo(50, KeyCombo::option);
    const std::function<void()> changes[]{
        [&] { model.renameLayout(byHand.id, u"Renamed"_s); },
        [&] { model.assign(combo, {byHand.id}); },
        [&] { std::ignore = model.captureCurrentWindows(u"Renamed"_s); },
        [&] { model.undo(); },
        [&] { model.refreshLayouts(); },
    };
    for (double gap = 0; const auto &change : changes) {
        byHand = *model.layout(byHand.id);
        byHand.panes = {Pane{.rect = {0, 0, 1, ++gap / 10}}};
        desk.save({byHand});
        change();
        ASSERT_TRUE(model.layout(byHand.id)) << gap;
        EXPECT_EQ(model.layout(byHand.id)->panes == byHand.panes, gap != 4) << gap;
        EXPECT_EQ(desk.saved(), model.layouts()) << gap;
    }
    model.renameLayout(byHand.id, u"Touched"_s);
    QFile touched(path(u"layouts.json"_s));
    ASSERT_TRUE(touched.open(QFile::ReadWrite));
    ASSERT_TRUE(touched.setFileTime(
        QDateTime::currentDateTime().addDays(1), QFileDevice::FileModificationTime));
    model.refreshLayouts();
    EXPECT_EQ(model.undoTitle(), u"Rename Layout"_s) << "touching it is no step";
}

TEST_F(FileEditTests, anEditIsSeenHoweverItComesAbout)
{
    const QString file = path(settingsFile);
    const QString real = path(u"dotfiles/settings.json"_s);
    const auto replace = [](const QString &target, const QByteArray &text) {
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

} // namespace corvane
