#include "X11Desk.h"

namespace corvane {

using namespace desktop;

namespace {

using X11SessionTests = X11Desk;

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

    (*platform)->ownWindows().setListed(window, false);
    EXPECT_TRUE(probe.hasState(window, "_KDE_NET_WM_STATE_SKIP_SWITCHER"));
    xcb_map_window(connection.raw(), window);
    EXPECT_TRUE(eventually([&] { return probe.isManaged(window); }));
    EXPECT_TRUE(probe.hasState(window, "_NET_WM_STATE_SKIP_TASKBAR"));

    for (const bool isListed : {true, false, true}) {
        (*platform)->ownWindows().setListed(window, isListed);
        for (const char *state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
            EXPECT_TRUE(eventually([&] { return probe.hasState(window, state) != isListed; }));
    }
    EXPECT_TRUE(probe.hasState(window, "_NET_WM_STATE_ABOVE"));
}

} // namespace corvane
