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

struct X11SessionTests : testing::Test {
    expected<std::unique_ptr<VirtualDesktop>, QString> desk = VirtualDesktop::start({});
    expected<std::unique_ptr<WindowManagerProcess>, QString> windowManager;
    expected<std::unique_ptr<Platform>, QString> platform;

    void SetUp() override
    {
        ASSERT_TRUE(desk) << qPrintable(desk.error());
        windowManager = WindowManagerProcess::start(**desk, u"openbox"_s);
        ASSERT_TRUE(windowManager) << qPrintable(windowManager.error());
        qputenv("DISPLAY", (*desk)->displayName().toLocal8Bit());
        platform = openX11Platform([] {});
        ASSERT_TRUE(platform) << qPrintable(platform.error());
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

TEST_F(X11SessionTests, anApplicationIsAskedToCloseItsWindowsAndEndsOnceItHasNone)
{
    Applications &applications = (*platform)->applications();
    TestClient client(**desk);
    TestClient stranger(**desk);
    ASSERT_TRUE(client.show({}) && client.show({}));
    EXPECT_TRUE(eventually([&] { return applications.application(client.pid()).has_value(); }));

    applications.quit(client.pid());
    applications.quit(stranger.pid());

    EXPECT_TRUE(eventually([&] { return WindowProbe((*desk)->connection()).clients().isEmpty(); }));
    EXPECT_TRUE(client.isRunning());
    applications.quit(client.pid());
    EXPECT_TRUE(eventually([&] { return !client.isRunning(); }));
    EXPECT_TRUE(stranger.isRunning());
}

TEST_F(X11SessionTests, aWindowIsListedOrNotBeforeItIsShownAndAfterwards)
{
    XConnection &connection = (*desk)->connection();
    WindowProbe probe(connection);
    const xcb_window_t window = xcb_generate_id(connection.raw());
    xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0, 200,
        100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    connection.setNumbers(
        window, "_NET_WM_STATE", "ATOM", {connection.atom("_NET_WM_STATE_ABOVE")});
    connection.sync();

    (*platform)->session().setListed(window, false);
    EXPECT_TRUE(probe.hasState(window, "_KDE_NET_WM_STATE_SKIP_SWITCHER"));
    xcb_map_window(connection.raw(), window);
    EXPECT_TRUE(eventually([&] { return probe.isManaged(window); }));
    EXPECT_TRUE(probe.hasState(window, "_NET_WM_STATE_SKIP_TASKBAR"));

    for (const bool isListed : {true, false, true}) {
        (*platform)->session().setListed(window, isListed);
        for (const char *state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
            EXPECT_TRUE(eventually([&] { return probe.hasState(window, state) != isListed; }));
    }
    EXPECT_TRUE(probe.hasState(window, "_NET_WM_STATE_ABOVE"));
}

} // namespace corvane
