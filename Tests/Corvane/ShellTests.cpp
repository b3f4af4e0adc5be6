#include "CompetitorWatch.h"
#include "FlightRecorder.h"
#include "InstanceService.h"
#include "LegacyIdentity.h"
#include "LoginItemSwitch.h"
#include "ModelDesk.h"
#include "ShortcutRegistrar.h"
#include "StatusItem.h"
#include "TrayServices.h"
#include "TrustWatch.h"
#include "UserDefaults.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr quint64 controlOption = KeyCombo::control | KeyCombo::option;

class ShellTests : public testing::Test
{
protected:
    SimulatedSession &session() { return desk.platform.session(); }

    /// What hears a notice may be done in the next turn.
    void settle()
    {
        desk.settle();
        desk.settle();
    }

    pid_t startApplication(const QString &identifier, const QString &name)
    {
        const pid_t pid = desk.platform.desktop().start(identifier, name);
        desk.platform.desktop().openWindow(pid, {.title = name});
        settle();
        return pid;
    }

    void setLaunchAtLogin(bool opens)
    {
        Settings settings = model.settings();
        settings.launchAtLogin = opens;
        model.setSettings(settings);
    }

    void press(quint16 keyCode, quint32 modifiers)
    {
        desk.platform.hotKeys().press(keyCode, modifiers);
        desk.settle();
    }

    ModelDesk desk;
    AppModel model = desk.model();
};

void useHome(const QString &path)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path + u"/.config"_s);
    UserDefaults::prepare();
}

/// What adopting the earlier identity records.
QStringList eventsOfAdopting()
{
    const qsizetype before = FlightRecorder::shared().ledger().size();
    LegacyIdentity::adopt(LegacyIdentity::earlier);
    QStringList events;
    for (const auto &event : FlightRecorder::shared().ledger().mid(before))
        events << event.kind + u": "_s + event.detail;
    return events;
}

} // namespace

TEST_F(ShellTests, eachCompetitorThatStartsIsToldOnce)
{
    CompetitorWatch watch(model);
    startApplication(u"com.manytricks.Moom"_s, u"Moom"_s);
    model.refreshCompetitors();
    watch.start();
    EXPECT_EQ(session().notifications.first().title, u"Moom is also running");
    const pid_t rival = startApplication(u"com.irradiatedsoftware.SizeUp"_s, u"SizeUp"_s);
    const auto told = session().notifications;

    ASSERT_THAT(told, SizeIs(1));
    EXPECT_EQ(told.first().title, u"SizeUp and Moom are also running");
    EXPECT_THAT(told.first().body.toStdString(), HasSubstr("Quit SizeUp and Moom from Corvane's"));
    desk.platform.desktop().quit(rival);
    settle();
    EXPECT_THAT(model.competitors.value(), SizeIs(1));
    EXPECT_EQ(session().notifications, told);
}

TEST_F(ShellTests, theLoginItemFollowsTheSettingsAndTheyFollowWhatTheUserDoesToItElsewhere)
{
    LoginItemSwitch loginItem{model};
    model.onLaunchAtLoginChanged = [&](bool opens) { loginItem.set(opens); };
    loginItem.start();
    session().loginItemError = u"It is full."_s;
    setLaunchAtLogin(true);
    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_EQ(
        model.notices().first().text, u"macOS would not add Corvane to Login Items: It is full.");
    session().loginItemError.clear();
    setLaunchAtLogin(false);
    EXPECT_THAT(model.notices(), IsEmpty());

    setLaunchAtLogin(true);
    EXPECT_EQ(session().loginItem(), LoginItem::present);
    for (const LoginItem removed : {LoginItem::absent, LoginItem::awaitsApproval}) {
        session().item = removed;
        model.pendingPane = model.pendingPane.value() + u'x';
        EXPECT_FALSE(model.settings().launchAtLogin);
        EXPECT_EQ(session().item, removed) << "it is not written back";
        EXPECT_FALSE(model.loginItemNote.value());
        session().item = LoginItem::present;
        loginItem.follow();
        EXPECT_TRUE(model.settings().launchAtLogin);
    }
    setLaunchAtLogin(false);
    EXPECT_EQ(session().loginItem(), LoginItem::absent);
    session().itemOnceSet = LoginItem::awaitsApproval;
    setLaunchAtLogin(true);
    loginItem.follow();
    ASSERT_TRUE(model.loginItemNote.value());
    EXPECT_THAT(model.loginItemNote.value()->toStdString(), HasSubstr("to allow Corvane"));
    LoginItemSwitch{model}.start();
    EXPECT_FALSE(model.settings().launchAtLogin) << "it was switched off before the start";
}

TEST_F(ShellTests, everyCallOverTheBusBringsItsActivationTokenAlong)
{
    QObject object;
    QStringList tokens;
    const InstanceService::Runner run = [&tokens](const QStringList &, const QString &activation) {
        tokens << activation;
        return []() -> QCoro::Task<CommandResult> { co_return CommandResult{}; }();
    };
    InstanceService instance(&object, run);
    ApplicationService application(&object, run, {});
    QString text;

    application.Activate({{u"activation-token"_s, u"a"_s}, {u"desktop-startup-id"_s, u"x"_s}});
    application.Open({u"corvane://settings/about"_s}, {{u"desktop-startup-id"_s, u"b"_s}}, {});
    instance.RunWith({}, {{u"activation-token"_s, u"d"_s}}, {}, text, text);
    instance.Run({}, {}, text, text);

    EXPECT_EQ(tokens, (QStringList{u"a"_s, u"b"_s, u"d"_s, QString()}));
}

TEST_F(ShellTests, trustIsLookedForOnlyWhileItIsMissing)
{
    TrustWatch watch(model);
    watch.start();
    EXPECT_FALSE(watch.isPolling());

    desk.platform.desktop().loseTrust();
    desk.settle();
    EXPECT_TRUE(watch.isPolling() && !model.accessibilityTrusted);
    desk.platform.desktop().regainTrust();
    desk.settle();
    EXPECT_TRUE(!watch.isPolling() && model.accessibilityTrusted);
}

TEST_F(ShellTests, refusedShortcutsAreNamedAndTheOthersWorkUnlessOneIsRecorded)
{
    const WindowLayout layout = model.newEmptyLayout();
    const KeyCombo taken{0, controlOption};
    const KeyCombo bare{122, 0};
    model.assign(taken, {layout.id});
    model.assign(bare, {Placement::rightHalf});
    desk.platform.hotKeys().takeByRival(taken.keyCode, HotKeys::controlKey | HotKeys::optionKey);
    desk.platform.hotKeys().removeKey(model.settings().shortcuts[Placement::maximize].keyCode);
    ShortcutRegistrar shortcuts(model);
    QStringList pressed;
    shortcuts.onPlacement = [&](Placement placement) {
        pressed << title(placement);
        shortcuts.registerAll(); // in the middle of the key's own press
    };

    testing::internal::CaptureStderr();
    shortcuts.registerAll();
    EXPECT_EQ(shortcuts.registerAll(),
        u"20 of 22 hot keys registered; refused by macOS or another app: maximize, layout Layout");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "Corvane: Ctrl+Alt+Super+M (Maximize) needs a key that this keyboard lacks.\n"
        "Corvane: Ctrl+Alt+A (the “Layout” layout) is held by another program.\n");
    EXPECT_EQ(
        model.unregistered.value(), (QSet<ShortcutOwner>{{layout.id}, {Placement::maximize}}));
    press(123, HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey);
    press(122, HotKeys::shiftKey);
    press(122, 0);
    EXPECT_EQ(pressed, (QStringList{u"Left Half"_s, u"Right Half"_s}));

    model.recording = Placement::center;
    shortcuts.registerAll(); // whoever asks for it
    press(122, 0);
    EXPECT_THAT(pressed, SizeIs(2)) << "keys that are being recorded do nothing else";
    EXPECT_THAT(model.unregistered.value(), SizeIs(2));
}

TEST_F(ShellTests, theEarlierIdentityIsTakenOverOnceWhateverComesOfIt)
{
    const QString quit =
        u"legacy-system-settings: quit, so it reads the new identifier when it opens"_s;
    const std::pair<std::optional<int>, QString> outcomes[]{{0, u"cleared"_s},
        {std::nullopt, u"old copy not found; its rows stay for the person to remove"_s},
        {70, u"failed (exit status 70)"_s}};
    for (const auto &[status, outcome] : outcomes) {
        const QTemporaryDir home;
        useHome(home.path());
        QSettings(u"Corvane"_s, LegacyIdentity::earlier).setValue("column", 210);
        QSettings(u"Corvane"_s, LegacyIdentity::earlier).setValue("loginItemCarriedOver", true);
        session().clearingStatus = status;
        const pid_t settings = startApplication(u"com.apple.systempreferences"_s, {});

        EXPECT_EQ(eventsOfAdopting(), (QStringList{quit, u"legacy-permissions: "_s + outcome}));
        EXPECT_EQ(desk.platform.desktop().findApplication(settings), nullptr);
        QSettings defaults;
        EXPECT_EQ(defaults.value("column"), 210);
        EXPECT_FALSE(defaults.contains("loginItemCarriedOver"));
        defaults.setValue("column", 300);
        EXPECT_EQ(eventsOfAdopting(), QStringList());
        EXPECT_EQ(defaults.value("column"), 300);
        EXPECT_EQ(session().clearedRows.last(), LegacyIdentity::earlier);
        const QFileInfo file(defaults.fileName());
        EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
        EXPECT_EQ(QFileInfo(file.path()).permissions() & (QFile::ExeGroup | QFile::ExeOther), 0);
    }
    useHome(u"/dev/null"_s); // root may write to any folder
    const QStringList unwritten = eventsOfAdopting();
    ASSERT_THAT(unwritten, SizeIs(3));
    EXPECT_TRUE(unwritten.first().startsWith(u"save-failed"_s));
    EXPECT_TRUE(unwritten.last().startsWith(u"legacy-permissions"_s));
}

TEST(StatusItemTests, exportsAMenuWherePanelsDrawThemAndOpensItsOwnBesideTheIcon)
{
    const QString one = u":1.5"_s;
    const std::tuple<const char *, freedesktop::TrayServices, MenuForm> desktops[]{
        {"GNOME with its extension", {.watcher = one, .shell = one}, MenuForm::exported},
        {"beside GNOME", {.watcher = one, .shell = u":1.9"_s}, MenuForm::drawnOrExported},
        {"indicators", {.watcher = one, .hasIndicators = true}, MenuForm::exported},
        {"Plasma", {.watcher = one, .hasPlasma = true}, MenuForm::drawn},
        {"another panel", {.watcher = one}, MenuForm::drawnOrExported},
        {"GNOME without a tray", {}, MenuForm::drawnOrExported},
    };
    for (const auto &[desktop, services, form] : desktops)
        EXPECT_EQ(menuForm(services), form) << desktop;
    const std::tuple<const char *, QRect, QPoint> places[]{
        {"top, in the middle", {2500, 0, 24, 24}, {2500, 24}},
        {"top right", {3490, 0, 24, 24}, {3220, 24}},
        {"bottom right", {3490, 876, 24, 24}, {3220, 276}},
        {"no room on either side", {2500, 450, 24, 24}, {2500, 0}},
        {"partly off the display", {1910, 0, 24, 24}, {1920, 24}},
        {"the pointer in the corner", {3519, 899, 1, 1}, {3220, 299}},
    };
    for (const auto &[place, anchor, origin] : places)
        EXPECT_EQ(menuOrigin(anchor, {300, 600}, {1920, 0, 1600, 900}), origin) << place;
}

} // namespace corvane
