#include "Desk.h"

namespace corvane {

using enum Placement;

struct WindowManagerTests : testing::Test, Desk {
    /// What became of it: the outcome's name, and why it was refused.
    QString press(Placement placement)
    {
        const MoveOutcome outcome = manager.perform(placement);
        const auto *refused = std::get_if<MoveOutcome::Refused>(&outcome.value);
        return refused ? refused->reason : outcomeName(outcome);
    }

    Placement placementAfter(Placement placement)
    {
        EXPECT_EQ(press(placement), u"moved"_s);
        return manager.last()->placement;
    }
};

namespace {

WindowSpec anyWindow()
{
    const double width = between(1, 900);
    const double height = between(1, 700);
    return {.frame = {double(between(-500, 3300)), double(between(-300, 1300)),
                width + between(0, 900), height + between(0, 600)},
        .minimum = {width, height},
        .fixedSize = between(0, 4) == 0,
        .resizesAfter = between(0, 3) == 0 ? 50ms : 0ms};
}

/// The frame, and the one to go back to if the window is maximised.
std::pair<Rect, Rect> lookOf(const SimulatedWindow &window)
{
    return {window.frame, window.maximised ? window.unmaximised : Rect{}};
}

void moveAsALayoutDoes(Desk &desk, const AXWindow &window)
{
    const WindowOperation operation(desk.platform.windows());
    const Rect before = desk.frameOf(window);
    RC_ASSERT(window.setFrame({double(between(0, 500)), 100, 900, 700}, {}, 0).has_value());
    desk.manager.remember(window, before);
}

} // namespace

RC_GTEST_PROP(WindowManagerProperties, snapBackUndoesTheMovesOfEachWindowAndGivesStatesBack, ())
{
    Desk desk;
    desk.plugMonitor();
    desk.manager.setOptions(
        {.gap = double(between(0, 30)), .cycling = coin(), .sizeStep = double(between(1, 200))});
    const QList<AXWindow> windows{desk.open(anyWindow()), desk.open(anyWindow())};
    desk.watcher.start();
    QList<std::pair<Rect, Rect>> looks[2];
    const auto perform = [&](int window, Placement placement) {
        desk.desktop.focus(windows[window].element);
        const QString outcome = outcomeName(desk.manager.perform(placement));
        desk.advance(1s);
        return outcome;
    };

    for (int moves = between(0, 30); moves > 0; --moves) {
        const int window = between(0, 1);
        SimulatedWindow &simulated = desk.simulated(windows[window]);
        if (!simulated.maximised && between(0, 3) == 0)
            desk.desktop.maximise(simulated.element);
        looks[window] << lookOf(simulated);
        if (const Placement placement = anyOf(allPlacements()); placement == snapBack)
            moveAsALayoutDoes(desk, windows[window]);
        else
            RC_ASSERT(perform(window, placement) == u"moved"_s);
    }

    for (const int window : {0, 1}) {
        while (!looks[window].isEmpty()) {
            RC_ASSERT(perform(window, snapBack) == u"moved"_s);
            RC_ASSERT(lookOf(desk.simulated(windows[window])) == looks[window].takeLast());
        }
    }
    RC_ASSERT(desk.manager.history().isEmpty());
}

TEST_F(WindowManagerTests, aMoveIsOneOperationAndIsRecordedWithWhereItCameFromAndEnded)
{
    advance(5s);
    open({.title = u"Notes"_s, .frame = onTheRight});

    EXPECT_EQ(manager.perform(leftHalf),
        (MoveOutcome{MoveOutcome::Moved{{platform.clock().date(), leftHalf, u"Editor"_s, u"Notes"_s,
            onTheRight, onTheLeft, u"Laptop"_s}}}));

    EXPECT_EQ(platform.windows().operationCount(), 1);
}

TEST_F(WindowManagerTests, repeatedPressesWalkRoundTheCycleWhileTheWindowIsWhereItWasPut)
{
    const AXWindow window = open();

    for (const QList<Placement> &walk : {QList{leftHalf, leftTwoThirds, leftThird},
             {rightHalf, rightTwoThirds, rightThird}, {leftThird, leftTwoThirds, leftHalf},
             {rightThird, rightTwoThirds, rightHalf}, {topHalf}}) {
        for (const Placement step : walk + walk)
            EXPECT_EQ(placementAfter(walk.first()), step);
    }

    EXPECT_EQ(placementAfter(leftHalf), leftHalf);
    drag(window, {4, 29, 716, 871});
    EXPECT_EQ(placementAfter(leftHalf), leftTwoThirds);
    drag(window, {4.5, 25, 960, 875});
    EXPECT_EQ(placementAfter(leftHalf), leftHalf);

    simulated(window).fullScreen = true;
    EXPECT_EQ(press(leftHalf), u"Editor: window is in native full screen"_s);
    simulated(window).fullScreen = false;
    EXPECT_EQ(placementAfter(leftHalf), leftTwoThirds);
    EXPECT_EQ(placementAfter(leftThird), leftHalf);

    open();
    EXPECT_EQ(placementAfter(leftHalf), leftHalf);
    desktop.focus(window.element);
    EXPECT_EQ(placementAfter(leftHalf), leftHalf);
    manager.setOptions({.cycling = false});
    EXPECT_EQ(placementAfter(leftHalf), leftHalf);
}

TEST_F(WindowManagerTests, thesePressesMoveTheWindowTo)
{
    using Options = WindowManager::Options;
    const WindowSpec small{.frame = {500, 300, 400, 300}};
    const WindowSpec large{.frame = {0, 25, 1000, 600}, .minimum = {800, 400}};
    const WindowSpec byHand{.frame = {360, 25, 360, 350}};
    const WindowSpec stepped{.frame = {-50, 60, 403, 307}, .increment = {10, 20}};
    const std::tuple<const char *, WindowSpec, Options, QList<Placement>, Rect> examples[]{
        {"larger", small, {.gap = 20, .sizeStep = 40}, {larger}, {480, 280, 440, 340}},
        {"smaller", small, {.gap = 20, .sizeStep = 40}, {smaller}, {520, 320, 360, 260}},
        {"on no display", {.frame = {9000, 0, 400, 300}}, {}, {leftHalf}, onTheLeft},
        {"the cycle goes on", large, {}, {rightHalf, rightHalf}, {480, 25, 960, 875}},
        {"a gap that rounds up", large, {.gap = 9.5}, {leftThird}, {10, 35, 800, 856}},
        {"next", byHand, {}, {nextDisplay}, {1920, 0, 480, 432}},
        {"round the end", byHand, {}, {previousDisplay}, {3610, 0, 250, 200}},
        {"its placement stays", small, {.gap = 10}, {leftHalf, nextDisplay}, {1450, 10, 945, 1060}},
        {"its cycle too", small, {}, {leftHalf, nextDisplay, leftHalf}, {1440, 0, 1280, 1080}},
        {"its edges too", large, {}, {rightHalf, previousDisplay}, {3560, 0, 800, 500}},
        {"back between its steps", stepped, {}, {leftHalf, snapBack}, stepped.frame},
        {"as it opened", stepped, {}, {leftHalf, topHalf, original}, stepped.frame},
    };
    plugMonitor();
    desktop.plug({.frame = {3360, 0, 1000, 500}, .name = u"Beamer"_s});
    watcher.start();

    for (const auto &[name, window, options, presses, to] : examples) {
        const AXWindow opened = open(window);
        advance(1s);
        manager.setOptions(options);
        for (const Placement placement : presses)
            EXPECT_EQ(press(placement), u"moved"_s) << name;
        EXPECT_EQ(frameOf(opened), to) << name;
    }
}

TEST_F(WindowManagerTests, theHistoryForgetsWhatIsBeyondTwoHundredAndApplicationsThatEnded)
{
    const AXWindow kept = open();
    (void)press(center);
    const Rect second = frameOf(kept);
    for (int i = 0; i < 200; ++i)
        (void)press(i % 2 == 0 ? topHalf : bottomHalf);
    EXPECT_EQ(manager.history().size(), 200);
    EXPECT_EQ(manager.history().first().frame, second);

    const AXWindow gone = openOf(mail);
    (void)press(leftHalf);
    desktop.quit(gone.pid);
    manager.pruneHistory();

    EXPECT_EQ(manager.history().size(), 199);
    EXPECT_EQ(manager.history().last().window, kept);
}

TEST_F(WindowManagerTests, whatCannotBeMovedSaysWhyAndIsNotRemembered)
{
    EXPECT_EQ(press(leftHalf), u"noWindow"_s);
    desktop.focus(open({.kind = WindowKind::panel}).element);
    EXPECT_EQ(press(leftHalf), u"noWindow"_s);
    open();
    EXPECT_EQ(press(original), u"noOriginal"_s);
    EXPECT_EQ(press(nextDisplay), u"singleDisplay"_s);
    EXPECT_EQ(press(snapBack), u"nothingToSnapBack"_s);
    desktop.application(editor).hung = true;
    EXPECT_EQ(press(leftHalf), u"the app did not answer (it may be busy)"_s);
    desktop.application(editor).hung = false;
    desktop.unplug(laptop);
    EXPECT_EQ(press(leftHalf), u"noWindow"_s);
    desktop.loseTrust();
    EXPECT_EQ(press(leftHalf), u"notTrusted"_s);

    EXPECT_TRUE(manager.history().isEmpty() && platform.windows().writes().isEmpty());
}

struct WindowWatcherTests : testing::Test, Desk {
};

TEST_F(WindowWatcherTests, aWindowsFirstFrameIsKnownForAsLongAsItIsOpen)
{
    const AXWindow early = open({.frame = onTheLeft});
    watcher.start();
    const pid_t started = desktop.start(mail.bundleID, mail.name);
    const AXWindow late = openFrom(started);
    openFrom(started, {.kind = WindowKind::dialog});
    advance(399ms);
    EXPECT_EQ(watcher.count(), 1);
    drag(late, onTheRight); // where it settles
    advance(1ms);

    drag(early, monitor);
    drag(late, monitor);
    advance(1s);

    EXPECT_EQ(watcher.original(early), onTheLeft);
    EXPECT_EQ(watcher.original(late), onTheRight);
    EXPECT_EQ(watcher.count(), 2);
    desktop.closeWindow(late.element);
    platform.deliver();
    EXPECT_EQ(watcher.original(late), std::nullopt);
}

TEST_F(WindowWatcherTests, withoutTrustNothingStartsAndNothingIsForgotten)
{
    const AXWindow window = open();
    watcher.start();
    drag(window, onTheLeft);

    desktop.loseTrust();
    watcher.restart();
    EXPECT_FALSE(platform.windows().isObserving(editor));
    const AXWindow unseen = open({.frame = onTheRight});
    desktop.regainTrust();
    watcher.restart();

    EXPECT_EQ(watcher.original(window), WindowSpec{}.frame);
    EXPECT_EQ(watcher.original(unseen), onTheRight);
    Q_EMIT platform.applications().terminated(editor); // before its windows close
    EXPECT_EQ(watcher.count(), 0);
    EXPECT_FALSE(platform.windows().isObserving(editor));
}

} // namespace corvane
