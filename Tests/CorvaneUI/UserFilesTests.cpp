#include "ModelDesk.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// The program's files under the user's hands.
class UserFilesTests : public testing::Test
{
protected:
    UserFilesTests()
    {
        model.onShortcutsChanged = [this] { told << u"shortcuts"_s; };
        model.onMenuChanged = [this] { told << u"menu"_s; };
        model.onLaunchAtLoginChanged = [this](bool on) { told << u"login %1"_s.arg(on); };
        model.onDockVisibilityChanged = [this](bool on) { told << u"dock %1"_s.arg(on); };
        QObject::connect(&model, &AppModel::lookChanged, &model, [this] { told << u"look"_s; });
    }

    [[nodiscard]] QString path(const QString &name) const { return desk.folder.filePath(name); }

    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }

    void edit(const QByteArray &content)
    {
        write(path(u"settings.json"_s), content);
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
};

} // namespace

TEST_F(UserFilesTests, anEditTakesEffectThroughTheRuleOfChangesAndIsNotWrittenBack)
{
    const QByteArray text = R"({"shortcuts": [], "launchAtLogin": true, "showMenuBarIcon": false,
        "showInDock": false, "appearance": "dark", "gap": 8})";

    edit(text);
    model.refreshFiles();

    EXPECT_THAT(told, ElementsAre(u"shortcuts"_s, u"login 1"_s, u"menu"_s, u"dock 0"_s, u"look"_s));
    EXPECT_EQ(model.settings().gap, 8);
    EXPECT_FALSE(model.savedFlash.value());
    QFile file(path(u"settings.json"_s));
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_EQ(file.readAll(), text);
}

TEST_F(UserFilesTests, aDamagedEditLeavesInForceWhatItDamagesUntilAGoodOne)
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
    ASSERT_TRUE(QFile::remove(path(u"settings.json"_s)));
    model.refreshFiles();
    EXPECT_EQ(model.settings().gap, 9) << "no file is no edit";
}

TEST_F(UserFilesTests, aChangeOfTheProgramsOwnLostTheEditThatItHadNotRead)
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
    EXPECT_EQ(SettingsStore(desk.folder.path()).load(), edited);
}

TEST_F(UserFilesTests, aDamagedListOfLayoutsCostsNoLayout)
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

TEST_F(UserFilesTests, anEditIsSeenHoweverItComesAbout)
{
    const QString file = path(u"settings.json"_s);
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

TEST_F(UserFilesTests, aHistoryThatCannotBeWrittenIsOneNoticeUntilItCan)
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
