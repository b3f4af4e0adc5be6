#include "Catalogues.h"
#include "CompetitorWatch.h"
#include "Instance.h"
#include "KeyCaps.h"
#include "LegacyIdentity.h"
#include "LoginItemSwitch.h"
#include "ModelDesk.h"
#include "ShortcutRegistrar.h"
#include "StatusItem.h"
#include "TrayServices.h"
#include "TremorLogModel.h"
#include "TrustWatch.h"
#include "UserDefaults.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>

#include <gmock/gmock.h>

namespace corvane {

using freedesktop::menuForm;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr quint64 controlOption = KeyCombo::control | KeyCombo::option;

class ShellTests : public testing::Test
{
protected:
    SimulatedSession &session() { return desk.platform.session(); }

    void setLaunchAtLogin(bool opens)
    {
        Settings settings = model.settings();
        settings.launchAtLogin = opens;
        model.setSettings(settings);
    }

    ModelDesk desk;
    AppModel model = desk.model();
};

/// Copies the catalogues, brings them up to date with the texts in the code, and returns their names,
/// the desktop's first.
QStringList updatedCatalogues(const StoreFolder &folder)
{
    const QDir catalogues(QStringLiteral(CORVANE_SOURCES "/translations"));
    QStringList names = catalogues.entryList({u"*.ts"_s});
    names.move(names.indexOf(u"corvane_linux.ts"_s), 0);
    QStringList copies;
    for (const QString &name : names) {
        copies << folder.path(name);
        QFile::copy(catalogues.filePath(name), copies.last());
    }
    EXPECT_EQ(QProcess::execute(QStringLiteral(CORVANE_SOURCES "/scripts/texts"), copies), 0);
    return names;
}

QSet<QString> found(const QRegularExpression &pattern, const QString &text)
{
    QSet<QString> found;
    for (const auto &match : pattern.globalMatch(text))
        found << match.captured();
    return found;
}

} // namespace

TEST_F(ShellTests, eachCompetitorThatStartsIsToldOnce)
{
    CompetitorWatch watch(model);
    SimulatedDesktop &desktop = desk.platform.desktop();
    const auto start = [&](const QString &identifier) {
        const pid_t rival = desktop.start(identifier, {});
        desktop.openWindow(rival, {});
        desk.settle();
        desk.settle(); // what hears a notice may be done in the next turn
        return rival;
    };
    start(u"com.manytricks.Moom"_s);
    model.refreshCompetitors();
    watch.start();
    EXPECT_EQ(session().notifications.first().title, u"Moom is also running");
    const pid_t rival = start(u"com.irradiatedsoftware.SizeUp"_s);
    const auto told = session().notifications;

    ASSERT_THAT(told, SizeIs(1));
    EXPECT_EQ(told.first().title, u"SizeUp and Moom are also running");
    desktop.quit(rival);
    desk.settle();
    desk.settle();
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
    EXPECT_THAT(model.notices(), SizeIs(1));
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
        session().item = LoginItem::present;
        loginItem.follow();
        EXPECT_TRUE(model.settings().launchAtLogin);
    }
    setLaunchAtLogin(false);
    EXPECT_EQ(session().loginItem(), LoginItem::absent);
    session().itemOnceSet = LoginItem::awaitsApproval;
    setLaunchAtLogin(true);
    loginItem.follow();
    EXPECT_TRUE(model.loginItemNote.value());
    LoginItemSwitch{model}.start();
    EXPECT_FALSE(model.settings().launchAtLogin) << "it was switched off before the start";
}

TEST(InstanceTests, aStartAndEveryCallOverTheBusBringTheirActivationTokenAlong)
{
    qputenv("XDG_ACTIVATION_TOKEN", "first");
    QObject object;
    QStringList tokens{Instance::takeActivation(), Instance::takeActivation()};
    const InstanceService::Runner run = [&tokens](const QStringList &, const QString &activation) {
        tokens << activation;
        return []() -> QCoro::Task<CommandResult> { co_return CommandResult{}; }();
    };
    ApplicationService application(&object, run, {});
    QString text;

    application.Activate({{u"activation-token"_s, u"a"_s}, {u"desktop-startup-id"_s, u"x"_s}});
    application.Open({u"corvane://settings/about"_s}, {{u"desktop-startup-id"_s, u"b"_s}}, {});
    InstanceService(&object, run).RunWith({}, {{u"activation-token"_s, u"d"_s}}, {}, text, text);

    EXPECT_EQ(tokens, (QStringList{u"first"_s, {}, u"a"_s, u"b"_s, u"d"_s}));
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
    const auto press = [this](quint16 keyCode, quint32 modifiers) {
        desk.platform.hotKeys().press(keyCode, modifiers);
        desk.settle();
    };
    QStringList pressed;
    shortcuts.onPlacement = [&](Placement placement) {
        pressed << title(placement);
        shortcuts.registerAll(); // in the middle of the key's own press
    };

    EXPECT_EQ(shortcuts.registerAll(),
        u"20 of 22 hot keys registered; refused by macOS or another app: maximize, layout "
        u"\"Layout\"");
    EXPECT_EQ(model.unregistered.value(),
        (UnregisteredShortcuts{{{layout.id}, {}}, {{Placement::maximize}, {}}}));
    press(123, HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey);
    press(122, HotKeys::shiftKey);
    press(122, 0);
    EXPECT_EQ(pressed, (QStringList{u"Left Half"_s, u"Right Half"_s}));

    // With Super it is as good as before; that of Maximize is not on this keyboard.
    model.assign(taken, {Placement::leftHalf});
    model.confirmSteal();
    EXPECT_EQ(
        shortcuts.freeCombos({Placement::leftHalf, Placement::maximize, Placement::topLeftSixth}),
        (ShortcutMap{{Placement::leftHalf, KeyCombo(0, controlOption | KeyCombo::command)}}));
    model.recording = Placement::center;
    shortcuts.registerAll(); // whoever asks for it
    press(122, 0);
    EXPECT_THAT(pressed, SizeIs(2)) << "keys that are being recorded do nothing else";
}

TEST_F(ShellTests, userDefaultsAreForTheUserAloneAndTakenOverOnceFromTheEarlierIdentity)
{
    UserDefaults::prepare();
    for (const int column : {210, 300}) {
        QSettings(u"Corvane"_s, LegacyIdentity::earlier).setValue("column", column);
        LegacyIdentity::adopt(LegacyIdentity::earlier);
    }

    EXPECT_EQ(QSettings().value("column"), 210);
    const QFileInfo file(QSettings().fileName());
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    EXPECT_EQ(QFileInfo(file.path()).permissions() & (QFile::ExeGroup | QFile::ExeOther), 0);
}

TEST(StatusItemTests, exportsAMenuWherePanelsDrawThemAndOpensItsOwnBesideTheIcon)
{
    const QString one = u":1.5"_s;
    EXPECT_EQ(menuForm({.watcher = one, .shell = one}), MenuForm::exported);
    EXPECT_EQ(menuForm({.watcher = one, .shell = u":1.9"_s}), MenuForm::drawnOrExported);
    EXPECT_EQ(menuForm({.watcher = one, .hasIndicators = true}), MenuForm::exported);
    EXPECT_EQ(menuForm({.watcher = one, .hasPlasma = true}), MenuForm::drawn);
    EXPECT_EQ(menuForm({}), MenuForm::drawnOrExported);

    const std::pair<QRect, QPoint> places[]{
        {{2500, 0, 24, 24}, {2500, 24}}, // top, in the middle
        {{3490, 876, 24, 24}, {3220, 276}}, // bottom right
        {{2500, 450, 24, 24}, {2500, 0}}, // no room on either side
        {{1910, 0, 24, 24}, {1920, 24}}, // partly off the display
    };
    for (const auto &[anchor, origin] : places)
        EXPECT_EQ(menuOrigin(anchor, {300, 600}, {1920, 0, 1600, 900}), origin);
}

TEST(CatalogueTests, everyTextIsSaidWithAllThatIsPutIntoItAndWithNoWordOfTheMac)
{
    const QRegularExpression mac(u"\\bMacs?\\b|macOS|Finder|\\bDock\\b|Login Items|System Settings"
                                 "|[Aa]ccessibility|menu bar|Applications folder|Privacy &"_s);
    const QRegularExpression message(
        u"<source>(.*?)</source>.*?<translation(| type=\"unfinished\")(>.*?</)translation>"_s,
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpression form(u"(?<=>)[^<\n]*(?=</)"_s);
    // Another text follows a space at the end.
    const QRegularExpression fixed(u"%L?(\\d+|n)|\\[\\[.*?\\]\\]|&amp;|^ | $"_s);
    const Catalogues english({u"en-GB"_s});
    const StoreFolder folder;

    QHash<QString, QString> wordsForLinux;
    for (const QString &name : updatedCatalogues(folder)) {
        const bool isLinux = wordsForLinux.isEmpty();
        const QString texts = QString::fromUtf8(*folder.read(name));
        EXPECT_TRUE(QFile::exists(u":/translations/"_s + name.chopped(3) + u".qm"_s));
        for (const auto &match : message.globalMatch(texts)) {
            const QString source = match.captured(1);
            SCOPED_TRACE((name + u": "_s + source).toStdString());
            const QSet<QString> forms =
                match.capturedLength(2) == 0 ? found(form, match.captured(3)) : QSet<QString>();
            if (isLinux)
                wordsForLinux[source] = forms.isEmpty() ? source : *forms.begin();
            EXPECT_FALSE(
                forms.isEmpty() && (!isLinux || source.contains(mac) || source.contains(u"(s)")));
            for (const QString &said : forms) {
                EXPECT_FALSE(said.isEmpty() || said.contains(mac));
                EXPECT_EQ(found(fixed, said), found(fixed, wordsForLinux[source]));
            }
        }
    }
    EXPECT_GT(wordsForLinux.size(), 50);
    EXPECT_EQ(title(Appearance::matchMac), u"Match System");
}

TEST(CatalogueTests, aDialectReadsTitlesPluralsAndKeysInItsLanguage)
{
    const Catalogues german({u"de-AT"_s});

    EXPECT_EQ(title(Placement::leftHalf), u"Linke Hälfte");
    EXPECT_EQ(TremorLogModel::counts({{}, {}, 1, 2}), u"1 Bewegung · 2 verweigert");
    EXPECT_EQ(TremorLogModel::counts({{}, {}, 2}), u"2 Bewegungen");
    EXPECT_EQ(KeyCap::label(u"⌃"_s, {}) + KeyCap::label(u"Space"_s, {}), u"StrgLeertaste");
    EXPECT_EQ(KeyCaps::plainText({u"⇧"_s, u"key 115"_s, u"key 200"_s}), u"Umschalt+Pos1+Taste 200");
}

} // namespace corvane
