#include "LiveDesk.h"

#include <cmath>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class ConstrainedWindowTests : public LiveTests
{
protected:
    Rect place(xcb_window_t window, const QString &placement)
    {
        const auto answer = corvane().place(placement);
        EXPECT_TRUE(moved(answer)) << qPrintable(placement);
        const Rect result = reached(window, answer.to());
        EXPECT_EQ(result, answer.to()) << qPrintable(placement);
        return result;
    }

    Size clientSize(xcb_window_t window)
    {
        return probe().clientGeometry(window).value_or(Rect()).size();
    }
};

Rect target(const QString &placement, const Rect &area)
{
    return frameOf(region(placement), area);
}

} // namespace

TEST_F(ConstrainedWindowTests, aTerminalStandsExactlyAndFillsItsRegionToWithinACharacter)
{
    const WindowRequest::SizeHints hints{
        .minimum = {14, 24}, .increment = {11, 23}, .base = {4, 6}};
    const xcb_window_t window =
        showFocused({.geometry = {200, 200, 4 + 60 * 11, 6 + 20 * 23}, .hints = hints});

    for (const auto &placement :
        {u"leftHalf"_s, u"bottomRight"_s, u"centerThird"_s, u"maximize"_s}) {
        const Rect expected = target(placement, standardDisplay);
        const Rect result = place(window, placement);

        EXPECT_EQ(result.origin(), expected.origin()) << qPrintable(placement);
        EXPECT_LE(result.width, expected.width) << qPrintable(placement);
        EXPECT_GT(result.width, expected.width - 11) << qPrintable(placement);
        EXPECT_LE(result.height, expected.height) << qPrintable(placement);
        EXPECT_GT(result.height, expected.height - 23) << qPrintable(placement);
        EXPECT_EQ(std::fmod(clientSize(window).width - 4, 11), 0) << qPrintable(placement);
        EXPECT_EQ(std::fmod(clientSize(window).height - 6, 23), 0) << qPrintable(placement);
    }
}

TEST_F(ConstrainedWindowTests, aRealTerminalStandsExactly)
{
    const auto terminal = desktop().launch(u"xterm"_s);
    const xcb_window_t window =
        probe().waitForWindow([&](xcb_window_t each) { return probe().hasClass(each, "XTerm"); });
    ASSERT_TRUE(focus(window));
    static_cast<void>(frame(window));

    for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"maximize"_s}) {
        const Rect expected = target(placement, standardDisplay);
        const Rect result = place(window, placement);

        EXPECT_EQ(result.origin(), expected.origin()) << qPrintable(placement);
        EXPECT_LE(result.width, expected.width) << qPrintable(placement);
        EXPECT_GT(result.width, expected.width - 20) << qPrintable(placement);
    }
}

TEST_F(ConstrainedWindowTests, aFixedWindowKeepsItsSizeAndTakesTheOriginOfALargerTarget)
{
    const Size fixed{300, 200};
    const xcb_window_t window = showFocused(
        {.geometry = {100, 100, 300, 200}, .hints = {.minimum = fixed, .maximum = fixed}});
    const Size before = frame(window).size();

    for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s, u"topRight"_s}) {
        const Rect result = place(window, placement);

        EXPECT_EQ(result.origin(), target(placement, standardDisplay).origin())
            << qPrintable(placement);
        EXPECT_EQ(result.size(), before) << qPrintable(placement);
        EXPECT_EQ(clientSize(window), fixed) << qPrintable(placement);
    }
}

TEST_F(ConstrainedWindowTests, aWindowWithALargestSizeKeepsToTheOriginAndStillCycles)
{
    const Size largest{500, 400};
    const xcb_window_t window =
        showFocused({.geometry = {100, 100, 450, 350}, .hints = {.maximum = largest}});

    for (const auto &placement :
        {u"rightHalf"_s, u"rightTwoThirds"_s, u"rightThird"_s, u"rightHalf"_s}) {
        const auto answer = corvane().place(u"rightHalf"_s);

        EXPECT_TRUE(moved(answer));
        EXPECT_EQ(answer.outcome["placement"_L1].toString(), placement);
        const Rect result = reached(window, answer.to());
        EXPECT_EQ(result, answer.to());
        EXPECT_EQ(result.origin(), target(placement, standardDisplay).origin())
            << qPrintable(placement);
        EXPECT_EQ(clientSize(window), largest) << qPrintable(placement);
    }
}

TEST_F(ConstrainedWindowTests, aWindowThatInsistsOnBeingLargerKeepsToTheEdgesThatItsTargetTouched)
{
    const xcb_window_t window =
        showFocused({.geometry = {50, 50, 1200, 700}, .hints = {.minimum = {1200, 700}}});
    const Size size = frame(window).size();
    const double right = standardDisplay.width - size.width;
    const double bottom = standardDisplay.height - size.height;

    // A target as high as the display is larger than the window there, so the window grows into it.
    const std::pair<QString, Rect> cases[]{
        {u"leftHalf"_s, {0, 0, size.width, 1080}},
        {u"rightHalf"_s, {right, 0, size.width, 1080}},
        {u"centerThird"_s, {std::round(right / 2), 0, size.width, 1080}},
        {u"bottomHalf"_s, {0, bottom, 1920, size.height}},
        {u"bottomRight"_s, {right, bottom, size.width, size.height}},
        {u"topLeft"_s, {0, 0, size.width, size.height}},
    };
    for (const auto &[placement, expected] : cases)
        EXPECT_EQ(place(window, placement), expected) << qPrintable(placement);
}

TEST_F(ConstrainedWindowTests, aWindowWithAFixedShapeStaysInsideItsTarget)
{
    const xcb_window_t window = showFocused({.geometry = {100, 100, 600, 300},
        .hints = {.minimumAspect = {2, 1}, .maximumAspect = {2, 1}}});

    for (const auto &placement : {u"leftHalf"_s, u"bottomRight"_s}) {
        const Rect expected = target(placement, standardDisplay);
        const Rect result = place(window, placement);

        EXPECT_EQ(result.origin(), expected.origin()) << qPrintable(placement);
        EXPECT_LE(result.width, expected.width) << qPrintable(placement);
        EXPECT_LE(result.height, expected.height) << qPrintable(placement);
        EXPECT_NEAR(clientSize(window).width / clientSize(window).height, 2, 0.02)
            << qPrintable(placement);
    }
}

} // namespace corvane::desktop
