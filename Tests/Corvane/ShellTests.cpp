#include "CompetitorWatch.h"
#include "FlightRecorder.h"
#include "InstanceService.h"
#include "LoginItemSwitch.h"
#include "ModelDesk.h"
#include "ShortcutRegistrar.h"
#include "TrustWatch.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class ShellTests : public testing::Test
{
protected:
    SimulatedSession &session() { return desk.platform.session(); }

    pid_t startCompetitor(const QString &identifier, const QString &name)
    {
        const pid_t pid = desk.platform.desktop().start(identifier, name);
        desk.platform.desktop().openWindow(pid, {.title = name});
        settle();
        return pid;
    }

    /// What hears a notice may be done in the next turn.
    void settle()
    {
        desk.settle();
        desk.settle();
    }

    void setLaunchAtLogin(bool opens)
    {
        Settings settings = model.settings();
        settings.launchAtLogin = opens;
        model.setSettings(settings);
    }

    ModelDesk desk;
    AppModel model = desk.model();
};

class LoginItemSwitchTests : public ShellTests
{
protected:
    LoginItemSwitchTests()
    {
        model.onLaunchAtLoginChanged = [this](bool opens) { loginItem.set(opens); };
    }

    LoginItemSwitch loginItem{model};
};

} // namespace

TEST_F(ShellTests, eachCompetitorThatStartsIsToldOnce)
{
    CompetitorWatch watch(model);
    startCompetitor(u"com.manytricks.Moom"_s, u"Moom"_s);
    model.refreshCompetitors();
    watch.start();
    const QList<SimulatedSession::Notification> first = session().notifications;
    const pid_t rival = startCompetitor(u"com.irradiatedsoftware.SizeUp"_s, u"SizeUp"_s);
    const QList<SimulatedSession::Notification> both = session().notifications;
    desk.platform.desktop().quit(rival);
    settle();

    EXPECT_THAT(first,
        ElementsAre(SimulatedSession::Notification{u"rivals"_s, u"Moom is also running"_s,
            u"Two window managers answering the same keys will fight over one window. Quit it "
            "from Corvane's menu."_s}));
    EXPECT_THAT(both,
        ElementsAre(
            SimulatedSession::Notification{u"rivals"_s, u"SizeUp and Moom are also running"_s,
                u"Two window managers answering the same keys will fight over one window. Quit "
                "SizeUp and Moom from Corvane's menu."_s}));
    EXPECT_EQ(session().notifications, both);
    EXPECT_THAT(model.competitors.value(), SizeIs(1));
}

TEST_F(LoginItemSwitchTests, aFailureIsANoticeUntilItSucceeds)
{
    session().loginItemError = u"It is full."_s;
    setLaunchAtLogin(true);

    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_EQ(
        model.notices().first().text, u"macOS would not add Corvane to Login Items: It is full.");
    session().loginItemError.clear();
    setLaunchAtLogin(false);
    EXPECT_THAT(model.notices(), IsEmpty());
}

TEST_F(
    LoginItemSwitchTests, theLoginItemFollowsTheSettingsAndTheyFollowWhatTheUserDoesToItElsewhere)
{
    loginItem.start();
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
    setLaunchAtLogin(true);
    session().item = LoginItem::awaitsApproval;
    LoginItemSwitch{model}.start();
    EXPECT_FALSE(model.settings().launchAtLogin) << "it was switched off before the start";
}

TEST_F(LoginItemSwitchTests, whatTheUserHasToAllowIsNoted)
{
    session().itemOnceSet = LoginItem::awaitsApproval;
    setLaunchAtLogin(true);
    loginItem.follow();

    ASSERT_TRUE(model.loginItemNote.value());
    EXPECT_THAT(model.loginItemNote.value()->toStdString(), HasSubstr("to allow Corvane"));
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
    QString output;
    QString error;

    application.Activate({{u"activation-token"_s, u"a"_s}, {u"desktop-startup-id"_s, u"x"_s}});
    application.Open({u"corvane://settings/about"_s}, {{u"desktop-startup-id"_s, u"b"_s}}, {});
    instance.RunWith({}, {{u"activation-token"_s, u"d"_s}}, {}, output, error);
    instance.Run({}, {}, output, error);

    EXPECT_EQ(tokens, (QStringList{u"a"_s, u"b"_s, u"d"_s, QString()}));
}

TEST_F(ShellTests, trustIsLookedForOnlyWhileItIsMissing)
{
    TrustWatch watch(model);
    watch.start();
    EXPECT_FALSE(watch.isPolling());

    desk.platform.desktop().loseTrust();
    desk.settle();
    EXPECT_TRUE(watch.isPolling());
    EXPECT_FALSE(model.accessibilityTrusted);
    desk.platform.desktop().regainTrust();
    desk.settle();

    EXPECT_FALSE(watch.isPolling());
    EXPECT_TRUE(model.accessibilityTrusted);
}

TEST_F(ShellTests, refusedShortcutsAreNamedAndTheOthersWork)
{
    const WindowLayout layout = model.newEmptyLayout();
    const KeyCombo taken{0, KeyCombo::control | KeyCombo::option};
    model.assign(taken, {layout.id});
    desk.platform.hotKeys().takeByRival(taken.keyCode, HotKeys::controlKey | HotKeys::optionKey);
    desk.platform.hotKeys().removeKey(model.settings().shortcuts[Placement::maximize].keyCode);
    ShortcutRegistrar shortcuts(model);
    QList<Placement> pressed;
    shortcuts.onPlacement = [&](Placement placement) { pressed << placement; };

    testing::internal::CaptureStderr();
    shortcuts.registerAll();
    const QString line = shortcuts.registerAll(); // tells nothing twice
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "Corvane: Ctrl+Alt+Super+M (Maximize) needs a key that this keyboard lacks.\n"
        "Corvane: Ctrl+Alt+A (the “Layout” layout) is held by another program.\n");
    desk.platform.hotKeys().press(123, HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey);
    desk.settle();

    EXPECT_EQ(line,
        u"20 of 22 hot keys registered; refused by macOS or another app: maximize, layout Layout");
    EXPECT_EQ(
        model.unregistered.value(), (QSet<ShortcutOwner>{{layout.id}, {Placement::maximize}}));
    EXPECT_THAT(pressed, ElementsAre(Placement::leftHalf));
    model.recording = Placement::center;
    shortcuts.registerAll(); // whoever asks for it
    desk.platform.hotKeys().press(123, HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey);
    desk.settle();
    EXPECT_THAT(pressed, SizeIs(1)) << "keys that are being recorded do nothing else";
    EXPECT_THAT(model.unregistered.value(), SizeIs(2));
}

} // namespace corvane
