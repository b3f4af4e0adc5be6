#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class HungProgramTests : public LiveTests
{
protected:
    // One second for the outcome, the rest for starting the command that asks for it.
    static constexpr Milliseconds bound{2500};
};

} // namespace

TEST_F(HungProgramTests, aHungApplicationCostsAtMostASecondAndTheNextKeyWorksAtOnce)
{
    TestClient other(desktop());
    const xcb_window_t healthy = other.show({.geometry = {600, 300, 400, 300}});
    const xcb_window_t hung = showFocused();
    client().suspend();

    const qsizetype seen = corvane().log().size();
    const auto start = std::chrono::steady_clock::now();
    press(strokes::leftHalf);
    EXPECT_TRUE(corvane().waitForLog(u"leftHalf: "_s, seen, Milliseconds{1500}));
    EXPECT_LT(std::chrono::steady_clock::now() - start, Milliseconds{1300});

    EXPECT_TRUE(focus(healthy));
    press(strokes::rightHalf);
    const Rect expected = frameOf(region(u"rightHalf"), standardDisplay);
    EXPECT_TRUE(probe().waitForFrame(healthy, expected, Milliseconds{1000}));
    EXPECT_EQ(reached(healthy, expected), expected);
    client().resume();
    EXPECT_TRUE(probe().isManaged(hung));
}

TEST_F(HungProgramTests, aHungApplicationIsAnsweredOverTheBusInTime)
{
    const xcb_window_t hung = showFocused(
        {.geometry = {200, 150, 700, 500}, .decorated = false, .shadow = {26, 26, 23, 29}});
    client().suspend();

    const auto answer = corvane().place(u"topLeft"_s);

    EXPECT_TRUE(answer.exitStatus == 0 || answer.exitStatus == 1);
    EXPECT_LT(answer.duration, bound);
    const Rect expected = frameOf(region(u"topLeft"), standardDisplay);
    if (answer.name() == u"moved") {
        EXPECT_EQ(reached(hung, expected), expected);
    }
    client().resume();
}

TEST_F(HungProgramTests, aStoppedWindowManagerCostsAtMostASecondAndWorksAgainAfterwards)
{
    const xcb_window_t window = showFocused();
    desk().manager->suspend();

    const auto answer = corvane().place(u"leftHalf"_s);
    desk().manager->resume();

    EXPECT_TRUE(answer.exitStatus == 0 || answer.exitStatus == 1);
    EXPECT_LT(answer.duration, bound);
    const Rect expected = frameOf(region(u"bottomRight"), standardDisplay);
    EXPECT_TRUE(waitUntil([&] {
        press(region(u"bottomRight").stroke);
        return reached(window, expected) == expected;
    }));
}

} // namespace corvane::desktop
