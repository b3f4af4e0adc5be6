#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "X11Displays.h"
#include "X11HotKeys.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QList<Rect> pair{{0, 0, 1600, 1000}, {1600, 0, 1280, 1000}};
constexpr quint32 chord = HotKeys::controlKey | HotKeys::optionKey | HotKeys::cmdKey;
constexpr double panelHeight = 30;

/// The back end's parts that keep what they read, and a shell that registers a key again.
struct Parts {
    explicit Parts(Connection &connection)
        : manager(connection)
        , registry(connection)
        , displays(connection, manager, registry)
        , keys(connection, true)
    {
        QObject::connect(&keys, &HotKeys::registrationsLost, &keys, [this] { registerKey(); });
        QObject::connect(
            &displays, &Displays::changed, &displays, [this] { seen << displays.all().size(); });
        registerKey();
    }
    void registerKey() { keyStatus = keys.registerHotKey(++id, 38, chord); }

    WindowManagerLink manager;
    WindowRegistry registry;
    X11Displays displays;
    X11HotKeys keys;
    quint32 id = 0;
    qint32 keyStatus = 0;
    QList<qsizetype> seen; ///< numbers of displays
};

struct Fact {
    const char *name;
    bool (*holds)(Parts &parts);
};

constexpr Fact facts[]{
    {"the displays", [](Parts &parts) { return parts.displays.all().size() == 2; }},
    {"the panel",
        [](Parts &parts) { return parts.displays.all()[0].visibleFrame.y == panelHeight; }},
    {"the window manager", [](Parts &parts) { return parts.manager.isPresent(); }},
    {"the key", [](Parts &parts) { return parts.keyStatus == HotKeys::noErr; }},
};

struct StalledServerTests : testing::Test {
    std::unique_ptr<VirtualDesktop> desk = *VirtualDesktop::start({.displays = pair});
    std::unique_ptr<WindowManagerProcess> manager =
        *WindowManagerProcess::start(*desk, u"openbox"_s);
    TestClient panel{*desk};
    std::unique_ptr<Connection> connection;

    void SetUp() override
    {
        const auto top = WindowRequest::Side::top;
        ASSERT_TRUE(
            panel.show(WindowRequest::panel(pair[0], top, panelHeight, {0, 0, 2880, 1000})));
        qputenv("DISPLAY", desk->displayName().toLocal8Bit());
        connection = *Connection::open();
        connection->setMessagingTimeout(Milliseconds{100});
        connection->followRoot(XCB_EVENT_MASK_NO_EVENT);
    }
    static bool eventually(const std::function<bool()> &condition)
    {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    }
};

} // namespace

TEST_F(StalledServerTests, whatAStartCouldNotReadIsReadOnceTheServerAnswers)
{
    desk->server().suspend();
    Parts parts(*connection);
    EXPECT_NE(parts.keyStatus, HotKeys::noErr);

    desk->server().resume();

    for (const auto &[name, holds] : facts)
        EXPECT_TRUE(eventually([&] { return holds(parts); })) << name;
}

TEST_F(StalledServerTests, whatIsKnownStaysUntilItsChangeCanBeRead)
{
    Parts parts(*connection);
    XConnection &other = desk->connection();
    for (const char *list : {"_NET_SUPPORTED", "_NET_CLIENT_LIST", "_NET_WORKAREA"})
        other.setNumbers(other.root(), list, "ATOM", other.numbers(other.root(), list));
    ASSERT_TRUE(desk->run(u"xmodmap"_s, {u"-e"_s, u"add mod3 = Scroll_Lock"_s}));
    ASSERT_TRUE(desk->displays().unplug(1));
    desk->server().suspend();

    EXPECT_TRUE(eventually([&] { return connection->unanswered() > 0; }));
    for (const auto &[name, holds] : facts)
        EXPECT_TRUE(holds(parts)) << name;
    EXPECT_EQ(parts.keys.registerHotKey(99, 40, chord), qint32(AXError::cannotComplete));
    desk->server().resume();

    EXPECT_TRUE(eventually([&] { return !parts.seen.isEmpty(); }));
    EXPECT_EQ(parts.id, 2u) << "the shell registers all keys again, once";
    EXPECT_THAT(parts.seen, testing::ElementsAre(1));
    for (const auto &[name, holds] : std::span(facts).subspan(1))
        EXPECT_TRUE(holds(parts)) << name;
}

} // namespace corvane::x11
