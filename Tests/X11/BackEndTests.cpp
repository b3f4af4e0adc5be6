#include "ActiveWindow.h"
#include "KeyCombo.h"
#include "PhysicalKey.h"
#include "QuietOpenings.h"
#include "X11Displays.h"
#include "X11HotKeys.h"
#include "X11World.h"

namespace corvane {

using namespace x11;

namespace {

constexpr quint32 chord = HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey;

/// What no contract of all back ends says, under one window manager.
struct BackEndTests : testing::Test, X11World {
    BackEndTests() : X11World(u"openbox"_s) { }

    [[nodiscard]] xcb_window_t create() const
    {
        const xcb_window_t window = xcb_generate_id(connection.raw());
        xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0,
            200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        return window;
    }
    /// A window of this process that says of itself what is given.
    WindowAccess::Focused open(
        const QByteArray &className, const QByteArray &machine = {}, const QList<quint32> &pid = {})
    {
        const xcb_window_t window = create();
        connection.setBytes(window, "WM_CLASS", "STRING", "any" + ('\0' + className) + '\0');
        connection.setBytes(window, "WM_CLIENT_MACHINE", "STRING", machine);
        connection.setNumbers(window, "_NET_WM_PID", "CARDINAL", pid);
        xcb_map_window(connection.raw(), window);
        connection.sync();
        WindowAccess::Focused focused;
        EXPECT_TRUE(eventually([&] {
            focused = windows.focusedWindow();
            return focused.window && focused.window->number == window;
        }));
        return focused;
    }

    WindowAccess &windows = backEnd->windows();
    Applications &applications = backEnd->applications();
};

/// The back end's parts that keep what they read, and a shell that registers a key again.
struct Parts {
    explicit Parts(Connection &own) : connection(own)
    {
        const auto registerKey = [this] {
            keyStatus = keys.registerHotKey(quint32(++id), 38, chord);
        };
        QObject::connect(&keys, &HotKeys::registrationsLost, &keys, registerKey);
        QObject::connect(&displays, &Displays::changed, &displays, [this] { ++changes; });
        registerKey();
    }
    /// Whether they know the panel, the window manager, the key and so many displays.
    [[nodiscard]] bool know(qsizetype displayCount)
    {
        const QList<ScreenInfo> all = displays.all();
        return all.size() == displayCount && all[0].visibleFrame.y == 30 && manager.isPresent()
            && keyStatus == HotKeys::noErr;
    }

    Connection &connection;
    WindowManagerLink manager{connection};
    WindowRegistry registry{connection};
    X11Displays displays{connection, manager, registry};
    X11HotKeys keys{connection, true};
    int id = 0;
    qint32 keyStatus = 0;
    int changes = 0; ///< of the displays
};

} // namespace

TEST_F(BackEndTests, eachKeyIsFoundByItsNumbersWhereTheKeyboardHasItsSign)
{
    int signs = 0;
    for (quint16 code = 0; code < 128; ++code) {
        SCOPED_TRACE(code);
        const auto keycode = keycodeFor(code);
        const QString name = KeyCombo::keyName(code);
        EXPECT_TRUE(keycode || name.startsWith("key "_L1));
        if (!keycode)
            continue;
        EXPECT_EQ(PhysicalKey::withXkbKeycode(*keycode).value().virtualKeyCode, code);
        EXPECT_EQ(PhysicalKey::withEvdevCode(*keycode - 8U).value().virtualKeyCode, code);
        if (name.size() != 1 || name[0] > u'~')
            continue;
        EXPECT_EQ(backEnd->hotKeys().label(code), name);
        ++signs;
    }
    EXPECT_GE(signs, 26 + 10);
    EXPECT_FALSE(PhysicalKey::withXkbKeycode(7) || PhysicalKey::withEvdevCode(767));
}

TEST_F(BackEndTests, aKeyIsCalledWhatIsPrintedOnItOnTheKeyboardInUse)
{
    HotKeys &hotKeys = backEnd->hotKeys();
    int changes = 0;
    QObject::connect(&hotKeys, &HotKeys::labelsChanged, &hotKeys, [&changes] { ++changes; });
    // By key code: the keys of /, Z, =, - and S on a US keyboard, and an arrow.
    const QList<quint16> codes{44, 6, 24, 27, 1, 123};
    const auto labels = [&] {
        QStringList all;
        for (const quint16 code : codes)
            all << hotKeys.label(code);
        return all.join(u' ');
    };
    for (const auto &[layout, expected] :
        {std::pair(u"us"_s, u"/ Z = - S "_s), {u"de"_s, u"- Y \u00b4 ß S "_s},
            {u"fr"_s, u"! W = ) S "_s}, {u"ru,us"_s, u".  = -  "_s},
            {u"cz"_s, u"- Y \u00b4 = S "_s}, {u"us"_s, u"/ Z = - S "_s}}) {
        SCOPED_TRACE(qPrintable(layout));
        ASSERT_TRUE(desk.setKeyboardLayouts(layout));
        EXPECT_TRUE(eventually([&] { return labels() == expected; })) << qPrintable(labels());
    }
    EXPECT_GT(changes, 3);
}

TEST_F(BackEndTests, theFirstTypeThatIsKnownDecidesWhatKindOfWindowItIs)
{
    using Case = std::tuple<QByteArrayList, bool, bool, bool>;
    const auto owner = quint32(open("Owner").window->number);
    const WindowElement window = *open("Typed").window;
    const xcb_window_t number = numberOf(window);
    for (const auto &[types, isTransient, isStandard, isWindow] : {Case{{}, false, true, true},
             Case{{}, true, false, true}, Case{{"_UNKNOWN", "NORMAL"}, false, true, true},
             Case{{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE"}, true, false, true},
             Case{{"_UNKNOWN", "DOCK", "NORMAL"}, false, false, false},
             Case{{"_UNKNOWN", "COMBO", "NORMAL"}, false, false, true}}) {
        SCOPED_TRACE(types.join(' ').constData());
        QList<quint32> atoms;
        for (const QByteArray &type : types)
            atoms << connection.atom(type.startsWith('_') ? type : "_NET_WM_WINDOW_TYPE_" + type);
        connection.setNumbers(number, "_NET_WM_WINDOW_TYPE", "ATOM", atoms);
        connection.setNumbers(number, "WM_TRANSIENT_FOR", "WINDOW", {isTransient ? owner : 0});
        connection.sync();

        EXPECT_EQ(windows.isStandard(window), isStandard);
        EXPECT_EQ(windows.isWindow(window), isWindow);
    }
}

TEST_F(BackEndTests, aWindowWithoutAProcessHereBelongsToTheApplicationOfItsClassAndMachine)
{
    constexpr pid_t elsewhere = 0;
    const QByteArray host = QSysInfo::machineHostName().toUtf8();
    const auto self = static_cast<pid_t>(QCoreApplication::applicationPid());
    const pid_t client = startApplication();
    const auto stranger = static_cast<quint32>(client);
    using Case = std::tuple<QByteArray, QByteArray, QList<quint32>, pid_t>;
    QSet<pid_t> pids;
    for (const auto &[className, machine, stated, pid] :
        {Case{"PassedOn", host, {stranger}, client}, Case{"Dead", host, {0x3ffffff}, self},
            Case{"WithoutMachine", {}, {stranger}, self},
            Case{"OldName", "mars", {quint32(self)}, self},
            Case{"Mail", "mars", {stranger}, elsewhere}, Case{"Mail", "venus", {}, elsewhere},
            Case{"Notes", "mars", {}, elsewhere}, Case{"Mail", "mars", {}, elsewhere}}) {
        SCOPED_TRACE(className.constData());
        const auto [window, told, status] = open(className, machine, stated);
        EXPECT_TRUE(pid == elsewhere ? told < -1 : told == pid) << told;
        const auto name = [&] {
            return applications.application(told).value_or(RunningApplication{}).localizedName;
        };
        EXPECT_TRUE(pid != elsewhere || eventually([&] { return name().toUtf8() == className; }));
        pids << told;
    }
    EXPECT_EQ(pids.size(), 5) << "two processes here, three applications elsewhere";
}

TEST_F(BackEndTests, aProgramIsRegularWhileTheTaskBarListsAWindowOfItAndQuitsWindowByWindow)
{
    int launches = 0;
    QObject::connect(&applications, &Applications::launched, &applications, [&] { ++launches; });
    const pid_t pid = startApplication();
    const xcb_window_t window = clients.at(pid)->show({});
    for (const auto &[isListed, told] : {std::pair{true, 1}, {false, 1}, {true, 2}}) {
        backEnd->ownWindows().setListed(window, isListed);
        for (const char *state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
            EXPECT_TRUE(eventually([&] { return probe.hasState(window, state) != isListed; }));
        EXPECT_TRUE(eventually([&] {
            const auto application = applications.application(pid);
            return application && application->isRegular == isListed && launches == told;
        }));
    }
    const xcb_window_t unshown = create();
    connection.sync();
    backEnd->ownWindows().setListed(unshown, false);
    EXPECT_TRUE(probe.hasState(unshown, "_KDE_NET_WM_STATE_SKIP_SWITCHER"));

    const pid_t stranger = startApplication();
    applications.quit(stranger);
    applications.quit(pid);
    EXPECT_TRUE(eventually([&] { return !probe.clients().contains(window); }));
    EXPECT_TRUE(clients.at(pid)->isRunning());
    applications.quit(pid);
    EXPECT_TRUE(eventually([&] { return !clients.at(pid)->isRunning(); }));
    EXPECT_TRUE(clients.at(stranger)->isRunning());
}

TEST_F(BackEndTests, newcomersThatHadTheFocusInTurnBeforeTheyWereKnownGiveItBackToTheUsersWindow)
{
    const pid_t pid = startApplication();
    const WindowElement users = openWindow(pid);
    const auto own = *Connection::open();
    own->followRoot(XCB_EVENT_MASK_NO_EVENT);
    WindowRegistry registry{*own};
    QuietOpenings openings{*own, registry};
    const auto see = [&](const WindowElement &window) {
        return eventually([&] {
            const auto known = registry.known().constFind(numberOf(window));
            return known != registry.known().cend() && known->wasListed
                && activeWindow(*own) == numberOf(window);
        });
    };
    ASSERT_TRUE(see(users));
    openings.begin(u"late"_s);
    const QList<WindowElement> newcomers{openWindow(pid), openWindow(pid)};
    for (const WindowElement &each : {newcomers[0], newcomers[1]}) {
        focus(each);
        ASSERT_TRUE(see(each));
    }

    for (const WindowElement &each : newcomers)
        openings.greet(each, u"late"_s);

    EXPECT_TRUE(eventually([&] { return probe.activeWindow() == numberOf(users); }));
}

TEST_F(BackEndTests, whatAStalledServerDidNotTellIsReadOnceItAnswersAndWhatIsKnownStays)
{
    backEnd.reset();
    plugDisplay();
    addPanel({SimulatedPanel::Edge::top, 30});
    const auto own = *Connection::open();
    own->setMessagingTimeout(Milliseconds{100});
    own->followRoot(XCB_EVENT_MASK_NO_EVENT);
    desk.server().suspend();
    Parts parts(*own);
    EXPECT_NE(parts.keyStatus, HotKeys::noErr);
    desk.server().resume();
    EXPECT_TRUE(eventually([&] { return parts.know(2); }));

    parts.id = parts.changes = 0;
    for (const char *list : {"_NET_SUPPORTED", "_NET_CLIENT_LIST", "_NET_WORKAREA"})
        connection.setNumbers(
            connection.root(), list, "ATOM", connection.numbers(connection.root(), list));
    ASSERT_TRUE(desk.run(u"xmodmap"_s, {u"-e"_s, u"add mod3 = Scroll_Lock"_s}));
    ASSERT_TRUE(desk.displays().arrange({display}));
    desk.server().suspend();
    EXPECT_TRUE(eventually([&] { return own->unanswered() > 0; }));
    EXPECT_TRUE(parts.know(2));
    EXPECT_EQ(parts.keys.registerHotKey(99, 40, chord), qint32(AXError::cannotComplete));
    desk.server().resume();

    EXPECT_TRUE(eventually([&] { return parts.know(1) && parts.changes > 0; }));
    EXPECT_EQ(parts.id, 1) << "the shell registers all keys again, once";
    EXPECT_EQ(parts.changes, 1);
}

std::unique_ptr<ContractWorld> ContractWorld::make(const std::string &name)
{
    return std::make_unique<X11World>(QString::fromStdString(name));
}

INSTANTIATE_TEST_SUITE_P(X11, PlatformContract,
    testing::Values("openbox", "xfwm4", "marco", "kwin_x11"),
    [](const auto &each) { return each.param; });

} // namespace corvane
