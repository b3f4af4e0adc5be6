#include "Desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum Placement;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr Rect leftHalfFrame{0, 25, 720, 875};

class WindowManagerTests : public testing::Test
{
protected:
    MoveOutcome press(Placement placement) { return desk.manager.perform(placement); }

    MoveRecord moved(Placement placement)
    {
        const MoveOutcome outcome = press(placement);
        const auto *moved = std::get_if<MoveOutcome::Moved>(&outcome.value);
        EXPECT_TRUE(moved) << placement << ' ' << outcome;
        return moved ? moved->record : MoveRecord{};
    }

    QList<Placement> recorded(std::initializer_list<Placement> presses)
    {
        QList<Placement> placements;
        for (const Placement placement : presses)
            placements << moved(placement).placement;
        return placements;
    }

    static MoveOutcome refused(const QString &reason) { return {MoveOutcome::Refused{reason}}; }

    Desk desk;
};

} // namespace

TEST_F(WindowManagerTests, aMoveIsRecordedWithWhereItCameFromAndEnded)
{
    desk.advance(5s);
    const Rect before{50, 60, 400, 300};
    desk.open({.title = u"Notes"_s, .frame = before});

    const MoveOutcome outcome = press(leftHalf);

    EXPECT_EQ(outcome,
        (MoveOutcome{MoveOutcome::Moved{{desk.platform.clock().date(), leftHalf, u"Editor"_s,
            u"Notes"_s, before, leftHalfFrame, u"Laptop"_s}}}));
}

TEST_F(WindowManagerTests, oneMoveIsOneOperation)
{
    desk.open();

    moved(leftHalf);

    EXPECT_EQ(desk.platform.windows().operationCount(), 1);
    EXPECT_EQ(desk.platform.windows().operationDepth(), 0);
}

TEST_F(WindowManagerTests, repeatedPressesWalkThroughTheCycleOfThePressedPlacement)
{
    desk.open();

    EXPECT_THAT(recorded({leftHalf, leftHalf, leftHalf, leftHalf}),
        ElementsAre(leftHalf, leftTwoThirds, leftThird, leftHalf));
    EXPECT_THAT(recorded({rightThird, rightThird, rightThird, rightThird}),
        ElementsAre(rightThird, rightTwoThirds, rightHalf, rightThird));
    EXPECT_THAT(recorded({leftThird, leftHalf}), ElementsAre(leftThird, leftHalf));
    EXPECT_THAT(recorded({leftThird}), ElementsAre(leftThird));
    EXPECT_THAT(recorded({topHalf, topHalf}), ElementsAre(topHalf, topHalf));
}

TEST_F(WindowManagerTests, withCyclingOffEveryPressIsTheSame)
{
    desk.open();
    desk.manager.setOptions({.cycling = false});

    EXPECT_THAT(recorded({leftHalf, leftHalf}), ElementsAre(leftHalf, leftHalf));
}

TEST_F(WindowManagerTests, aDragOfMoreThanFourPointsStartsTheCycleAfresh)
{
    const AXWindow window = desk.open();
    moved(leftHalf);
    desk.drag(window, {4, 29, 716, 871});
    EXPECT_EQ(moved(leftHalf).placement, leftTwoThirds);

    desk.drag(window, {4.5, 25, 960, 875});
    EXPECT_EQ(moved(leftHalf).placement, leftHalf);
}

TEST_F(WindowManagerTests, anotherWindowInBetweenStartsTheCycleAfresh)
{
    const AXWindow first = desk.open();
    moved(leftHalf);
    desk.open();
    moved(leftHalf);
    desk.desktop.focus(first.element);

    EXPECT_EQ(moved(leftHalf).placement, leftHalf);
}

TEST_F(WindowManagerTests, aWindowThatCannotTakeTheFrameCyclesByTheOneItTook)
{
    desk.open({.frame = {0, 25, 900, 600}, .minimum = {800, 400}});

    EXPECT_EQ(moved(rightHalf).to, (Rect{640, 25, 800, 875}));
    EXPECT_EQ(moved(rightHalf).placement, rightTwoThirds);
}

TEST_F(WindowManagerTests, aGapThatRoundsUpStillCountsAsTheEdge)
{
    desk.open({.frame = {0, 25, 900, 600}, .minimum = {600, 400}});
    desk.manager.setOptions({.gap = 9.5});

    EXPECT_EQ(moved(leftThird).to.x, 10);
}

TEST_F(WindowManagerTests, aWindowTooLargeForItsPlaceKeepsToTheEdgesOfTheNextDisplay)
{
    desk.plugMonitor();
    desk.open({.frame = {0, 25, 1000, 600}, .minimum = {1000, 400}});
    moved(leftHalf);

    EXPECT_EQ(moved(nextDisplay).to, (Rect{1440, 0, 1000, 1080}));
}

TEST_F(WindowManagerTests, sizeStepsKeepTheMiddleAndGapsDoNotConcernThem)
{
    desk.open({.frame = {500, 300, 400, 300}});
    desk.manager.setOptions({.gap = 20, .sizeStep = 40});

    EXPECT_EQ(moved(larger).to, (Rect{480, 280, 440, 340}));
    EXPECT_EQ(moved(smaller).to, (Rect{500, 300, 400, 300}));
    EXPECT_EQ(moved(center).to, (Rect{520, 313, 400, 300}));
    EXPECT_EQ(moved(maximize).to, (Rect{20, 45, 1400, 835}));
}

TEST_F(WindowManagerTests, aFixedWindowIsMovedAndTheRecordSaysWhatItTook)
{
    desk.open({.frame = {5, 50, 200, 100}, .fixedSize = true});

    EXPECT_EQ(moved(rightHalf).to, (Rect{720, 25, 200, 100}));
}

TEST_F(WindowManagerTests, aPlacementStaysWithTheWindowOnTheNextDisplay)
{
    desk.plugMonitor();
    desk.open();
    desk.manager.setOptions({.gap = 10});
    moved(leftHalf);

    const MoveRecord record = moved(nextDisplay);

    EXPECT_EQ(record.placement, leftHalf);
    EXPECT_EQ(record.to, (Rect{1450, 10, 945, 1060}));
    EXPECT_EQ(record.displayName, u"Monitor"_s);
    EXPECT_EQ(moved(leftHalf).placement, leftTwoThirds);
}

TEST_F(WindowManagerTests, aWindowPlacedByHandIsMappedInProportionRoundTheEnds)
{
    desk.plugMonitor();
    const AXWindow window = desk.open();
    moved(leftHalf);
    desk.drag(window, {360, 25, 360, 350});

    const MoveRecord record = moved(previousDisplay);

    EXPECT_EQ(record.placement, previousDisplay);
    EXPECT_EQ(record.to, (Rect{1920, 0, 480, 432}));
    EXPECT_EQ(moved(previousDisplay).to, (Rect{360, 25, 360, 350}));
}

TEST_F(WindowManagerTests, aWindowLeftOnAVanishedDisplayComesToTheFirst)
{
    const quint32 monitor = desk.plugMonitor();
    desk.open({.frame = {2000, 100, 600, 400}});
    desk.desktop.unplug(monitor);

    const MoveRecord record = moved(leftHalf);

    EXPECT_EQ(record.to, leftHalfFrame);
    EXPECT_EQ(record.displayName, u"Laptop"_s);
}

TEST_F(WindowManagerTests, aSingleDisplayHasNoNextAndNothingIsRemembered)
{
    desk.open();

    EXPECT_EQ(press(nextDisplay), (MoveOutcome{MoveOutcome::SingleDisplay{}}));
    EXPECT_THAT(desk.manager.history(), IsEmpty());
}

TEST_F(WindowManagerTests, snapBackWalksBackMoveByMove)
{
    const Rect first{50, 60, 400, 300};
    desk.open({.frame = first});
    const Rect second = moved(leftHalf).to;
    const Rect third = moved(topRight).to;
    moved(center);

    EXPECT_EQ(moved(snapBack).to, third);
    EXPECT_EQ(moved(snapBack).to, second);
    EXPECT_EQ(moved(snapBack).to, first);
    EXPECT_EQ(press(snapBack), (MoveOutcome{MoveOutcome::NothingToSnapBack{}}));
}

TEST_F(WindowManagerTests, snapBackTakesOnlyTheFocusedWindowsEntry)
{
    const AXWindow first = desk.open();
    moved(leftHalf);
    const AXWindow second = desk.open();
    moved(rightHalf);
    desk.desktop.focus(first.element);

    moved(snapBack);

    ASSERT_THAT(desk.manager.history(), SizeIs(1));
    EXPECT_EQ(desk.manager.history().first().window, second);
}

TEST_F(WindowManagerTests, snapBackGoesPartlyOffScreenIfThatIsWhereItWas)
{
    const Rect astray{1300, 700, 600, 400};
    desk.open({.frame = astray, .minimum = {600, 400}});
    moved(leftHalf);

    EXPECT_EQ(moved(snapBack).to, astray);
}

TEST_F(WindowManagerTests, snapBackAndOriginalKeepASizeBetweenTheWindowsSteps)
{
    const Rect between{50, 60, 403, 307};
    desk.open({.frame = between, .increment = {10, 20}});
    desk.watcher.start();
    moved(leftHalf);
    EXPECT_EQ(moved(snapBack).to, between);
    moved(rightHalf);
    EXPECT_EQ(moved(original).to, between);
}

TEST_F(WindowManagerTests, snapBackGivesTheStateBackThatALayoutEnded)
{
    const AXWindow window = desk.open({.maximised = true});
    const Rect before = desk.frameOf(window);
    {
        const WindowOperation operation(desk.platform.windows());
        ASSERT_TRUE(window.setFrame({100, 100, 400, 300}, std::nullopt, 0));
        desk.manager.remember(window, before);
    }

    EXPECT_EQ(moved(snapBack).to, before);
    EXPECT_TRUE(desk.simulated(window).maximised);
}

TEST_F(WindowManagerTests, theHistoryForgetsTheOldestBeyondTwoHundred)
{
    const Rect first{50, 60, 400, 300};
    desk.open({.frame = first});
    moved(center);
    const Rect second = desk.manager.last()->frame;
    for (int i = 0; i < 100; ++i)
        recorded({topHalf, bottomHalf});

    EXPECT_THAT(desk.manager.history(), SizeIs(200));
    EXPECT_EQ(desk.manager.history().first().frame, second);
}

TEST_F(WindowManagerTests, pruningForgetsTheWindowsOfApplicationsThatEnded)
{
    const AXWindow kept = desk.open();
    moved(leftHalf);
    const pid_t other = desk.desktop.start(u"org.example.Other"_s, u"Other"_s);
    desk.openFrom(other);
    moved(leftHalf);
    desk.desktop.quit(other);

    desk.manager.pruneHistory();

    ASSERT_THAT(desk.manager.history(), SizeIs(1));
    EXPECT_EQ(desk.manager.history().first().window, kept);
}

TEST_F(WindowManagerTests, originalNeedsAWindowThatWasSeenOpening)
{
    desk.open({.frame = {-100, 60, 400, 300}});
    EXPECT_EQ(press(original), (MoveOutcome{MoveOutcome::NoOriginal{}}));

    desk.watcher.start();
    moved(rightHalf);
    const MoveRecord record = moved(original);

    EXPECT_EQ(record.placement, original);
    EXPECT_EQ(record.to, (Rect{-100, 60, 400, 300}));
    EXPECT_THAT(desk.manager.history(), SizeIs(2));
}

TEST_F(WindowManagerTests, withoutTrustNothingIsTried)
{
    desk.open();
    desk.desktop.loseTrust();

    EXPECT_EQ(press(leftHalf), (MoveOutcome{MoveOutcome::NotTrusted{}}));
    EXPECT_THAT(desk.platform.windows().writes(), IsEmpty());
}

TEST_F(WindowManagerTests, withoutAFocusedWindowOrADisplayThereIsNoWindow)
{
    const MoveOutcome noWindow{MoveOutcome::NoWindow{}};
    EXPECT_EQ(press(leftHalf), noWindow);

    const AXWindow panel = desk.open({.kind = WindowKind::panel});
    desk.desktop.focus(panel.element);
    EXPECT_EQ(press(leftHalf), noWindow);

    desk.open();
    desk.desktop.unplug(desk.laptopID);
    EXPECT_EQ(press(leftHalf), noWindow);
}

TEST_F(WindowManagerTests, aBusyApplicationRefuses)
{
    desk.open();
    desk.desktop.application(desk.editor).hung = true;

    EXPECT_EQ(press(leftHalf), refused(u"the app did not answer (it may be busy)"_s));
}

TEST_F(WindowManagerTests, aRefusalNamesTheApplicationAndLeavesTheLastMoveAlone)
{
    const AXWindow window = desk.open();
    moved(leftHalf);
    desk.simulated(window).fullScreen = true;

    EXPECT_EQ(press(leftHalf), refused(u"Editor: window is in native full screen"_s));
    EXPECT_THAT(desk.manager.history(), SizeIs(2));

    desk.simulated(window).fullScreen = false;
    EXPECT_EQ(moved(leftHalf).placement, leftTwoThirds);
}

TEST_F(WindowManagerTests, aTiledWindowSaysSo)
{
    desk.open();
    desk.desktop.tiling = true;

    EXPECT_EQ(press(leftHalf),
        refused(u"Editor: could not set position (AXError -25200): tiled by the window manager"_s));
}

TEST_F(WindowManagerTests, aWindowMayVanishAtAnyCall)
{
    const QString gone = u"Editor: could not set position (AXError -25202)"_s;
    desk.open();
    desk.desktop.focusNothing();

    const auto vanishingAfter = [this](int calls) {
        desk.open({.vanishesAfterCalls = calls});
        return press(leftHalf);
    };

    EXPECT_EQ(vanishingAfter(0), (MoveOutcome{MoveOutcome::NoWindow{}}));
    EXPECT_EQ(vanishingAfter(1), refused(gone)); // as full screen is asked for
    EXPECT_EQ(vanishingAfter(2), refused(gone)); // at the first size
    EXPECT_EQ(vanishingAfter(3), refused(gone)); // at the position
    for (int calls = 4; calls < 9; ++calls) {
        const MoveOutcome outcome = vanishingAfter(calls);
        ASSERT_TRUE(std::holds_alternative<MoveOutcome::Moved>(outcome.value)) << outcome;
        EXPECT_EQ(std::get<MoveOutcome::Moved>(outcome.value).record.to, leftHalfFrame) << calls;
    }
}

} // namespace corvane
