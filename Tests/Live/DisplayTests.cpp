#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class DisplayTests : public LiveTests
{
protected:
    void pressTo(xcb_window_t window, const KeyStroke &stroke, const Rect &expected)
    {
        press(stroke);
        EXPECT_EQ(reached(window, expected), expected);
    }
};

struct Arrangement {
    const char *name;
    QList<Rect> displays; ///< the primary one first
    QList<int> order; ///< left to right, then top to bottom
};

const Arrangement arrangements[]{
    {"side by side, of different sizes", {{0, 0, 1920, 1080}, {1920, 0, 2560, 1440}}, {0, 1}},
    {"the primary one on the right", {{1280, 0, 1920, 1080}, {0, 56, 1280, 1024}}, {1, 0}},
    {"stacked", {{0, 0, 1920, 1080}, {0, 1080, 1600, 900}}, {0, 1}},
    {"three, one below", {{0, 0, 1920, 1080}, {0, 1080, 1600, 900}, {1920, 0, 1280, 1024}},
        {0, 1, 2}},
};

Rect half(const Rect &display)
{
    return frameOf(region(u"leftHalf"), display);
}

} // namespace

TEST_F(DisplayTests, nextAndPreviousDisplayGoRoundInOrderAndKeepThePlacement)
{
    for (const auto &[name, displays, order] : arrangements) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(desktop().displays().arrange(displays));
        const Rect first = displays[order.front()];
        const xcb_window_t window = showFocusedOn(first);
        pressTo(window, strokes::leftHalf, half(first));

        for (qsizetype step = 1; step <= order.size(); ++step) {
            const int index = order[step % order.size()];
            SCOPED_TRACE(index);
            pressTo(window, strokes::nextDisplay, half(displays[index]));
        }
        pressTo(window, strokes::previousDisplay, half(displays[order.back()]));
        client().close(window);
    }
}

TEST_F(DisplayTests, aWindowPlacedByHandIsMappedInProportion)
{
    const QList<Rect> displays{{0, 0, 1920, 1080}, {1920, 0, 2880, 1620}};
    ASSERT_TRUE(desktop().displays().arrange(displays));
    const xcb_window_t window = showFocused({.geometry = {192, 108, 640, 360}, .decorated = false});
    ASSERT_EQ(frame(window), (Rect{192, 108, 640, 360}));

    const auto answer = corvane().place(u"nextDisplay"_s);

    EXPECT_TRUE(moved(answer));
    EXPECT_EQ(answer.outcome["displayName"_L1].toString(), u"DUMMY1");
    const Rect expected{1920 + 288, 162, 960, 540};
    EXPECT_EQ(reached(window, expected), expected);
}

TEST_F(DisplayTests, oneDisplayHasNoNextOne)
{
    const xcb_window_t window = showFocused();
    const Rect before = frame(window);

    const auto answer = corvane().place(u"nextDisplay"_s);

    EXPECT_TRUE(refused(answer, u"only one display"_s));
    EXPECT_EQ(frame(window), before);
}

TEST_F(DisplayTests, displaysComeAndGoWithoutARestart)
{
    const Rect second{1920, 0, 1280, 1024};
    ASSERT_TRUE(desktop().displays().arrange({standardDisplay, second}));
    const xcb_window_t window = showFocusedOn(second);
    pressTo(window, strokes::leftHalf, half(second));

    ASSERT_TRUE(desktop().displays().unplug(1));
    ASSERT_TRUE(
        waitUntil([&] { return corvane().place(u"nextDisplay"_s).name() == u"singleDisplay"; }));
    static_cast<void>(frame(window));
    ASSERT_TRUE(focus(window));
    pressTo(window, region(u"rightHalf").stroke, frameOf(region(u"rightHalf"), standardDisplay));

    ASSERT_TRUE(desktop().displays().arrange({standardDisplay, second}));
    ASSERT_TRUE(waitUntil([&] { return corvane().place(u"nextDisplay"_s).name() == u"moved"; }));
    // Some window managers have moved the window back to the display that returned.
    const bool onSecond = frame(window).midX() > second.x;
    const Region &top = region(u"topHalf");
    pressTo(window, top.stroke, frameOf(top, onSecond ? second : standardDisplay));
    pressTo(window, strokes::nextDisplay, frameOf(top, onSecond ? standardDisplay : second));
}

TEST_F(DisplayTests, aDisplayResizedAtRunTimeIsUsedAtItsNewSize)
{
    const xcb_window_t window = showFocused();
    pressTo(window, strokes::maximize, standardDisplay);

    for (const Size size : {Size{1280, 720}, Size{2560, 1440}}) {
        ASSERT_TRUE(desktop().displays().resize(0, size));
        static_cast<void>(frame(window));
        const Rect display{0, 0, size.width, size.height};

        EXPECT_TRUE(waitUntil([&] {
            press(strokes::maximize);
            return frame(window) == display;
        })) << testing::PrintToString(frame(window));
        pressTo(window, region(u"bottomRight").stroke, frameOf(region(u"bottomRight"), display));
    }
}

} // namespace corvane::desktop
