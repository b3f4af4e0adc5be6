#include "Platform.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "X11Platform.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const std::array<QByteArray, 2> unlistedStates{
    "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"};

class X11SessionTests : public testing::Test
{
protected:
    std::unique_ptr<VirtualDesktop> desk;
    std::unique_ptr<WindowManagerProcess> windowManager;
    std::unique_ptr<Platform> platform;

    void SetUp() override
    {
        auto started = VirtualDesktop::start({});
        ASSERT_TRUE(started) << qPrintable(started.error());
        desk = std::move(*started);
        auto managed = WindowManagerProcess::start(*desk, u"openbox"_s);
        ASSERT_TRUE(managed) << qPrintable(managed.error());
        windowManager = std::move(*managed);
        qputenv("DISPLAY", desk->displayName().toLocal8Bit());
        auto opened = openX11Platform([] {});
        ASSERT_TRUE(opened) << qPrintable(opened.error());
        platform = std::move(*opened);
    }
    static bool eventually(const std::function<bool()> &condition)
    {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    }
    bool isRunning(pid_t pid) { return platform->applications().application(pid).has_value(); }
};

} // namespace

TEST_F(X11SessionTests, anApplicationIsAskedToCloseItsWindowsAndEndsOnceItHasNone)
{
    TestClient client(*desk);
    TestClient stranger(*desk);
    const xcb_window_t windows[]{client.show({}), client.show({})};
    EXPECT_TRUE(eventually([&] { return isRunning(client.pid()); }));

    platform->applications().quit(client.pid());
    platform->applications().quit(stranger.pid());

    const auto isListed = [&](xcb_window_t window) {
        return WindowProbe(desk->connection()).clients().contains(window);
    };
    EXPECT_TRUE(eventually([&] { return !isListed(windows[0]) && !isListed(windows[1]); }));
    EXPECT_TRUE(client.isRunning());
    platform->applications().quit(client.pid());
    EXPECT_TRUE(eventually([&] { return !client.isRunning(); }));
    EXPECT_TRUE(stranger.isRunning());
}

TEST_F(X11SessionTests, aWindowIsListedOrNotBeforeItIsShownAndAfterwards)
{
    XConnection &connection = desk->connection();
    Session &session = platform->session();
    xcb_connection_t *xcb = connection.raw();
    const xcb_window_t window = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0, 200, 100, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    connection.setNumbers(
        window, "_NET_WM_STATE", "ATOM", {connection.atom("_NET_WM_STATE_ABOVE")});
    connection.sync();
    const auto hasState = [&](const QByteArray &state) {
        return WindowProbe(connection).hasState(window, state);
    };

    session.setListed(window, false);
    EXPECT_TRUE(hasState("_KDE_NET_WM_STATE_SKIP_SWITCHER"));
    xcb_map_window(xcb, window);
    EXPECT_TRUE(eventually([&] { return WindowProbe(connection).isManaged(window); }));
    EXPECT_TRUE(std::ranges::all_of(unlistedStates, hasState));

    for (const bool isListed : {true, false, true}) {
        session.setListed(window, isListed);
        for (const QByteArray &state : unlistedStates)
            EXPECT_TRUE(eventually([&] { return hasState(state) != isListed; })) << isListed;
    }
    EXPECT_TRUE(hasState("_NET_WM_STATE_ABOVE"));
}

} // namespace corvane
