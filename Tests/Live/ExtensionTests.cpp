#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

TEST(ExtensionTests, aServerWithoutRandROrXResourceHasOneDisplayOnWhichEverythingWorks)
{
    for (const auto &missing : {u"RANDR"_s, u"X-Resource"_s}) {
        SCOPED_TRACE(qPrintable(missing));
        const Rect display{0, 0, 1600, 1000};
        const auto desk = VirtualDesktop::start({.server = DisplayServer::Kind::framebuffer,
            .displays = {display},
            .without = {missing}});
        ASSERT_TRUE(desk) << qPrintable(desk.error());
        const auto manager = WindowManagerProcess::start(**desk, u"openbox"_s);
        ASSERT_TRUE(manager) << qPrintable(manager.error());
        CorvaneProcess corvane(**desk, programUnderTest());
        ASSERT_TRUE(corvane.start()) << qPrintable((*desk)->logs());
        EXPECT_TRUE(corvane.readyLine().startsWith(u"ready: 21 of 21"));
        TestClient client(**desk);
        WindowProbe probe((*desk)->connection());
        const xcb_window_t window = client.show({});
        Pager((*desk)->connection()).activate(window);
        ASSERT_TRUE(waitUntil([&] { return probe.activeWindow() == window; }));

        EXPECT_TRUE(moved(corvane.place(u"rightHalf"_s)));
        KeyPresser((*desk)->connection()).press(strokes::leftHalf);

        EXPECT_TRUE(probe.waitForFrame(window, frameOf(region(u"leftHalf"), display), patience));
    }
}

} // namespace corvane::desktop
