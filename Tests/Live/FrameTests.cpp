#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class FrameTests : public LiveTests
{
};

struct KindCase {
    const char *name;
    WindowRequest request;
};

const KindCase kindCases[]{
    {"decorated", {}},
    {"undecorated", {.title = "Bare", .decorated = false}},
    {"client-side decorated",
        {.geometry = {200, 150, 700, 500}, .decorated = false, .shadow = {26, 26, 23, 29}}},
    {"client-side decorated, slow to adapt its shadow",
        {.geometry = {200, 150, 700, 500},
            .decorated = false,
            .shadow = {26, 26, 23, 29},
            .shadowDelay = 110}},
    {"static gravity", {.hints = {.gravity = 10}}},
    {"south-east gravity", {.hints = {.gravity = 9}}},
};

} // namespace

TEST_F(FrameTests, everyShortcutPutsTheFocusedWindowOnItsRegionToThePixel)
{
    const xcb_window_t window = showFocused();

    for (const Region &each : regions()) {
        if (!each.hasShortcut())
            continue;
        press(each.stroke);

        const Rect expected = frameOf(each, standardDisplay);
        EXPECT_EQ(reached(window, expected), expected) << qPrintable(each.name());
    }
}

TEST_F(FrameTests, placementsWithoutAShortcutLandWhenTheyAreAskedForOverTheBus)
{
    const xcb_window_t window = showFocused();

    for (const Region &each : regions()) {
        if (each.hasShortcut())
            continue;
        const auto answer = corvane().place(each.name());

        const Rect expected = frameOf(each, standardDisplay);
        EXPECT_TRUE(moved(answer));
        EXPECT_EQ(answer.to(), expected) << qPrintable(each.name());
        EXPECT_EQ(reached(window, expected), expected) << qPrintable(each.name());
    }
}

TEST_F(FrameTests, everyKindOfDecorationLandsWithItsVisibleFrame)
{
    for (const auto &[name, request] : kindCases) {
        SCOPED_TRACE(name);
        const xcb_window_t window = showFocused(request);

        for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s,
                 u"almostMaximize"_s, u"topLeftSixth"_s, u"centerThird"_s}) {
            const auto answer = corvane().place(placement);

            const Rect expected = frameOf(region(placement), standardDisplay);
            EXPECT_TRUE(moved(answer)) << qPrintable(placement);
            EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
        }
        client().close(window);
    }
}

TEST_F(FrameTests, centringAndResizingKeepToTheFrameThatOneSees)
{
    const xcb_window_t window = showFocused(
        {.geometry = {301, 203, 640, 480}, .decorated = false, .shadow = {26, 26, 23, 29}});

    Rect expected = centredIn(standardDisplay, frame(window));
    press(strokes::center);
    EXPECT_EQ(reached(window, expected), expected);
    expected = grownIn(standardDisplay, expected, 60);
    press(strokes::larger);
    EXPECT_EQ(reached(window, expected), expected);
    expected = grownIn(standardDisplay, expected, -60);
    press(strokes::smaller);
    EXPECT_EQ(reached(window, expected), expected);
}

TEST_F(FrameTests, snapBackWalksBackAndOriginalReturnsToTheFirstFrame)
{
    const xcb_window_t window = showFocused({.geometry = {311, 207, 523, 377}});
    const Rect first = frame(window);
    const Rect left = frameOf(region(u"leftHalf"), standardDisplay);
    const Rect top = frameOf(region(u"topHalf"), standardDisplay);
    // The program reads a window's first frame 0.4 s after it opened.
    ASSERT_TRUE(waitUntil([&] { return corvane().place(u"original"_s).name() == u"moved"; }));

    press(strokes::leftHalf);
    ASSERT_EQ(reached(window, left), left);
    press(region(u"topHalf").stroke);
    ASSERT_EQ(reached(window, top), top);

    press(strokes::snapBack);
    EXPECT_EQ(reached(window, left), left);
    press(strokes::snapBack);
    EXPECT_EQ(reached(window, first), first);
    press(strokes::leftHalf);
    ASSERT_EQ(reached(window, left), left);
    press(strokes::original);
    EXPECT_EQ(reached(window, first), first);
}

TEST_F(FrameTests, gtkWindowsThatDrawTheirOwnTitleBarLand)
{
    const auto application = desktop().launch(u"gtk3-demo"_s);
    const xcb_window_t window = probe().waitForWindow(
        [&](xcb_window_t each) { return probe().hasClass(each, "Gtk3-demo"); });
    ASSERT_TRUE(focus(window));
    static_cast<void>(frame(window));

    for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s, u"rightHalf"_s}) {
        press(region(placement).stroke);

        const Rect expected = frameOf(region(placement), standardDisplay);
        EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
    }
}

TEST_F(FrameTests, qtWindowsLand)
{
    const auto application = desktop().launchQtClient(u"Notes"_s);
    const xcb_window_t window = probe().waitForWindow(
        [&](xcb_window_t each) { return probe().hasProcess(each, application->pid()); });
    ASSERT_TRUE(focus(window));
    static_cast<void>(frame(window));

    for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s, u"topHalf"_s}) {
        press(region(placement).stroke);

        const Rect expected = frameOf(region(placement), standardDisplay);
        EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
    }
}

} // namespace corvane::desktop
