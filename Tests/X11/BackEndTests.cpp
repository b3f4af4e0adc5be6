#include "KeyCombo.h"
#include "KeyMap.h"
#include "Platform.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "X11Displays.h"
#include "X11HotKeys.h"
#include "X11Platform.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QList<Rect> pair{{0, 0, 1600, 1000}, {1600, 0, 1280, 1000}};
constexpr quint32 chord = HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey;
constexpr double panelHeight = 30;

/// A virtual desktop under openbox, on which this process is.
struct Desk : testing::Test {
    std::unique_ptr<VirtualDesktop> desk = *VirtualDesktop::start({.displays = pair});
    std::unique_ptr<WindowManagerProcess> manager =
        *WindowManagerProcess::start(*desk, u"openbox"_s);
    XConnection &connection = desk->connection();
    TestClient client{*desk};
    bool isOnDesk = qputenv("DISPLAY", desk->displayName().toLocal8Bit());

    static bool eventually(const std::function<bool()> &condition)
    {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    }
};

struct BackEndTests : Desk {
    WindowProbe probe{connection};
    std::unique_ptr<Platform> platform = *openX11Platform([] {});
    WindowAccess &windows = platform->windows();
    Applications &applications = platform->applications();

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
};

/// The back end's parts that keep what they read, and a shell that registers a key again.
struct Parts {
    explicit Parts(Connection &connection)
        : manager(connection)
        , registry(connection)
        , displays(connection, manager, registry)
        , keys(connection, true)
    {
        const auto registerKey = [this] { keyStatus = keys.registerHotKey(++id, 38, chord); };
        QObject::connect(&keys, &HotKeys::registrationsLost, &keys, registerKey);
        QObject::connect(
            &displays, &Displays::changed, &displays, [this] { seen << displays.all().size(); });
        registerKey();
    }
    /// What holds of them, apart from the number of displays.
    [[nodiscard]] QStringList facts()
    {
        QStringList facts;
        facts << (displays.all()[0].visibleFrame.y == panelHeight ? u"panel"_s : QString())
              << (manager.isPresent() ? u"window manager"_s : QString())
              << (keyStatus == HotKeys::noErr ? u"key"_s : QString());
        return facts;
    }

    WindowManagerLink manager;
    WindowRegistry registry;
    X11Displays displays;
    X11HotKeys keys;
    quint32 id = 0;
    qint32 keyStatus = 0;
    QList<qsizetype> seen; ///< numbers of displays
};

const QStringList allFacts{u"panel"_s, u"window manager"_s, u"key"_s};

struct StalledServerTests : Desk {
    std::unique_ptr<Connection> own;

    void SetUp() override
    {
        ASSERT_TRUE(client.show(WindowRequest::panel(
            pair[0], WindowRequest::Side::top, panelHeight, {0, 0, 2880, 1000})));
        own = *Connection::open();
        own->setMessagingTimeout(Milliseconds{100});
        own->followRoot(XCB_EVENT_MASK_NO_EVENT);
    }
};

} // namespace

TEST_F(BackEndTests, eachKeyIsWhereTheKeyboardHasItsSign)
{
    int signs = 0;
    for (quint16 code = 0; code < 128; ++code) {
        const auto keycode = keycodeFor(code);
        const QString name = KeyCombo::keyName(code);
        if (!keycode || name.size() != 1 || name[0] > u'~')
            continue;
        const auto cookie = xcb_get_keyboard_mapping(connection.raw(), *keycode, 1);
        const Reply<xcb_get_keyboard_mapping_reply_t> mapping(
            xcb_get_keyboard_mapping_reply(connection.raw(), cookie, nullptr));
        const QChar sign = char16_t(*xcb_get_keyboard_mapping_keysyms(mapping.get()));
        EXPECT_EQ(sign.toUpper(), name) << code;
        ++signs;
    }
    EXPECT_GE(signs, 26 + 10);
}

TEST_F(BackEndTests, theFirstTypeThatIsKnownDecidesWhatKindOfWindowItIs)
{
    struct Case {
        QByteArrayList types;
        bool isStandard;
        bool isTransient = false;
        bool isWindow = true;
    };
    const auto owner = quint32(open("Owner").window->number);
    const WindowElement window = *open("Typed").window;
    const auto number = static_cast<xcb_window_t>(window.number);
    for (const auto &[types, isStandard, isTransient, isWindow] :
        {Case{{}, true}, Case{{}, false, true}, Case{{"NORMAL"}, true},
            Case{{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE", "NORMAL"}, true},
            Case{{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE"}, true},
            Case{{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE"}, false, true},
            Case{{"_KDE_NET_WM_WINDOW_TYPE_TOPMENU", "DOCK", "NORMAL"}, false, false, false},
            Case{{"_TOOLKITS_OWN", "COMBO", "NORMAL"}, false},
            Case{{"_TOOLKITS_OWN", "DND"}, false}}) {
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
    const auto clients = static_cast<quint32>(client.pid());
    struct Case {
        QByteArray className;
        QByteArray machine;
        QList<quint32> stated;
        pid_t pid;
    };
    QHash<QByteArray, QList<pid_t>> pids;
    for (const auto &[className, machine, stated, pid] :
        {Case{"PassedOnHere", host, {clients}, client.pid()}, Case{"Dead", host, {0x3ffffff}, self},
            Case{"SilentHere", host, {}, self}, Case{"WithoutMachine", {}, {clients}, self},
            Case{"OldName", "mars", {quint32(self)}, self},
            Case{"Mail", "mars", {clients}, elsewhere}, Case{"Mail", "venus", {}, elsewhere},
            Case{"Notes", "mars", {}, elsewhere}, Case{"Mail", "mars", {}, elsewhere}}) {
        SCOPED_TRACE(className.constData());
        const auto [window, told, status] = open(className, machine, stated);
        EXPECT_TRUE(pid == elsewhere ? told < -1 : told == pid) << told;
        EXPECT_EQ(windows.setPosition(*window, {30, 40}), AXError::success);
        if (pid == elsewhere) {
            EXPECT_TRUE(eventually([&] { return applications.application(told).has_value(); }))
                << told;
            EXPECT_EQ(applications.application(told)->localizedName.toUtf8(), className);
            pids[className + machine] << told;
        }
    }
    const pid_t mail = pids["Mailmars"].first();
    EXPECT_EQ(pids["Mailmars"], (QList{mail, mail}));
    EXPECT_EQ((QSet{mail, pids["Mailvenus"].first(), pids["Notesmars"].first()}).size(), 3);
    const QList<WindowElement> its = *windows.windows(mail);
    for (const WindowElement &window : its)
        xcb_destroy_window(connection.raw(), static_cast<xcb_window_t>(window.number));
    connection.sync();
    EXPECT_TRUE(eventually([&] { return !applications.application(mail); }));
}

TEST_F(BackEndTests, aProgramIsRegularWhileTheTaskBarListsAWindowOfItAndEndsWithoutAny)
{
    TestClient stranger(*desk);
    int launches = 0;
    QObject::connect(&applications, &Applications::launched, &applications, [&] { ++launches; });
    const xcb_window_t window = client.show({});
    for (const auto &[isListed, told] : {std::pair{true, 1}, {false, 1}, {true, 2}}) {
        platform->ownWindows().setListed(window, isListed);
        EXPECT_TRUE(eventually([&] {
            const auto application = applications.application(client.pid());
            return application && application->isRegular == isListed && launches == told;
        }));
    }
    std::ignore = client.show({});
    EXPECT_TRUE(eventually([&] { return windows.windows(client.pid())->size() == 2; }));

    applications.quit(client.pid());
    applications.quit(stranger.pid());
    EXPECT_TRUE(eventually([&] { return windows.windows(client.pid())->isEmpty(); }));
    EXPECT_TRUE(applications.application(client.pid())->isRegular);
    EXPECT_EQ(launches, 2);
    EXPECT_TRUE(client.isRunning());
    applications.quit(client.pid());
    EXPECT_TRUE(eventually([&] { return !client.isRunning(); }));
    EXPECT_TRUE(stranger.isRunning());
}

TEST_F(BackEndTests, aWindowIsListedOrNotBeforeItIsShownAndAfterwards)
{
    OwnWindows &ownWindows = platform->ownWindows();
    const xcb_window_t window = create();
    connection.setNumbers(
        window, "_NET_WM_STATE", "ATOM", {connection.atom("_NET_WM_STATE_ABOVE")});
    connection.sync();

    ownWindows.setListed(window, false);
    EXPECT_TRUE(probe.hasState(window, "_KDE_NET_WM_STATE_SKIP_SWITCHER"));
    xcb_map_window(connection.raw(), window);
    EXPECT_TRUE(eventually([&] { return probe.isManaged(window); }));
    EXPECT_TRUE(probe.hasState(window, "_NET_WM_STATE_SKIP_TASKBAR"));
    for (const bool isListed : {true, false, true}) {
        ownWindows.setListed(window, isListed);
        for (const char *state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
            EXPECT_TRUE(eventually([&] { return probe.hasState(window, state) != isListed; }));
    }
    EXPECT_TRUE(probe.hasState(window, "_NET_WM_STATE_ABOVE"));
}

TEST_F(StalledServerTests, whatAStartCouldNotReadIsReadOnceTheServerAnswers)
{
    desk->server().suspend();
    Parts parts(*own);
    EXPECT_NE(parts.keyStatus, HotKeys::noErr);

    desk->server().resume();

    EXPECT_TRUE(eventually([&] { return parts.displays.all().size() == 2; }));
    EXPECT_TRUE(eventually([&] { return parts.facts() == allFacts; }));
}

TEST_F(StalledServerTests, whatIsKnownStaysUntilItsChangeCanBeRead)
{
    Parts parts(*own);
    for (const char *list : {"_NET_SUPPORTED", "_NET_CLIENT_LIST", "_NET_WORKAREA"})
        connection.setNumbers(
            connection.root(), list, "ATOM", connection.numbers(connection.root(), list));
    ASSERT_TRUE(desk->run(u"xmodmap"_s, {u"-e"_s, u"add mod3 = Scroll_Lock"_s}));
    ASSERT_TRUE(desk->displays().arrange({pair[0]}));
    desk->server().suspend();

    EXPECT_TRUE(eventually([&] { return own->unanswered() > 0; }));
    EXPECT_EQ(parts.displays.all().size(), 2);
    EXPECT_EQ(parts.facts(), allFacts);
    EXPECT_EQ(parts.keys.registerHotKey(99, 40, chord), qint32(AXError::cannotComplete));
    desk->server().resume();

    EXPECT_TRUE(eventually([&] { return !parts.seen.isEmpty(); }));
    EXPECT_EQ(parts.id, 2u) << "the shell registers all keys again, once";
    EXPECT_THAT(parts.seen, testing::ElementsAre(1));
    EXPECT_TRUE(eventually([&] { return parts.facts() == allFacts; }));
}

} // namespace corvane::x11
