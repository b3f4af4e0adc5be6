#include "PlatformContract.h"

namespace corvane {

using namespace Qt::StringLiterals;

TEST_P(PlatformContract, aFrameReadsAsItWasWritten)
{
    const WindowElement window = world().openWindow(world().startApplication());

    EXPECT_EQ(windows().setSize(window, {613, 447}), AXError::success);
    EXPECT_EQ(windows().setPosition(window, {157, 93}), AXError::success);

    EXPECT_TRUE(reaches(window, {157, 93, 613, 447}));
    EXPECT_EQ(windows().refusalDetail(window), QString());
}

TEST_P(PlatformContract, anOperationEndsWithEverythingItWrote)
{
    const WindowElement window = world().openWindow(world().startApplication());

    struct Case {
        const char *order;
        std::function<void(Rect)> write;
    };
    const auto size = [&](Rect to) { (void)windows().setSize(window, to.size()); };
    const auto position = [&](Rect to) { (void)windows().setPosition(window, to.origin()); };
    const std::array cases{
        Case{"size, position, size", [&](Rect to) { size(to), position(to), size(to); }},
        Case{"position, size", [&](Rect to) { position(to), size(to); }},
        Case{"an earlier size",
            [&](Rect to) {
                size({0, 0, 333, 333}), position(to), size(to);
            }},
        Case{"nested",
            [&](Rect to) {
                const WindowOperation inner(windows());
                size(to), position(to);
            }},
    };
    double step = 0;
    for (const Case &each : cases) {
        SCOPED_TRACE(each.order);
        step += 10;
        const Rect target{200 + step, 150 + step, 500 + step, 400 + step};
        {
            const WindowOperation operation(windows());
            each.write(target);
        }
        EXPECT_TRUE(reaches(window, target));
    }
}

TEST_P(PlatformContract, whatIsLookedAtAndMovedAheadReadsAndEndsAsIfItWereNot)
{
    const pid_t pid = world().startApplication();
    const WindowElement plain = world().openWindow(pid, {.title = u"Plain"_s});
    const WindowElement maximised = world().openWindow(pid, {.maximised = true});
    const Rect left{100, 90, 460, 380};
    const Rect right{620, 90, 460, 380};
    {
        const WindowOperation operation(windows());
        windows().readAhead({pid});
        EXPECT_EQ(windows().windows(pid), (QList{maximised, plain}));
        EXPECT_EQ(windows().title(plain), u"Plain"_s);
        windows().moveAhead({{plain, left}, {maximised, right}});
        for (const WindowMove &move : {WindowMove{plain, left}, {maximised, right}}) {
            EXPECT_EQ(windows().setSize(move.window, move.frame.size()), AXError::success);
            EXPECT_EQ(windows().setPosition(move.window, move.frame.origin()), AXError::success);
        }
    }

    EXPECT_TRUE(reaches(plain, left));
    EXPECT_TRUE(reaches(maximised, right));
}

TEST_P(PlatformContract, aReadInsideAnOperationSeesTheSizeWrittenBefore)
{
    const WindowElement window = world().openWindow(world().startApplication());
    const WindowOperation operation(windows());

    EXPECT_EQ(windows().setSize(window, {610, 440}), AXError::success);

    EXPECT_TRUE(world().waitUntil([&] {
        const auto frame = windows().frame(window);
        return frame && frame->size() == Size{610, 440};
    }));
}

TEST_P(PlatformContract, aWindowReadAnewInsideAnOperationIsSeenAsItIsByThen)
{
    const WindowElement window = world().openWindow(world().startApplication());
    const WindowOperation operation(windows());
    EXPECT_TRUE(windows().frame(window));

    world().drag(window, {310, 230});

    EXPECT_TRUE(world().waitUntil([&] {
        windows().readAnew(window);
        return windows().frame(window).value_or(Rect()).origin() == Point{310, 230};
    }));
}

TEST_P(PlatformContract, aGoneWindowAnswersEveryCallWithInvalid)
{
    const WindowElement window = world().openWindow(world().startApplication());

    world().closeWindow(window);
    world().settle();

    const auto gone = AXError::invalidUIElement;
    EXPECT_EQ(windows().frame(window), unexpected(gone));
    EXPECT_EQ(windows().title(window), unexpected(gone));
    EXPECT_EQ(windows().isFullScreen(window), unexpected(gone));
    EXPECT_EQ(windows().isMinimized(window), unexpected(gone));
    EXPECT_EQ(windows().isWindow(window), unexpected(gone));
    EXPECT_EQ(windows().isStandard(window), unexpected(gone));
    EXPECT_EQ(windows().setPosition(window, {1, 1}), gone);
    EXPECT_EQ(windows().setSize(window, {300, 300}), gone);
    EXPECT_FALSE(windows().isFinal(window, {300, 300}));
    EXPECT_EQ(windows().restore(window, {1, 1, 300, 300}, std::nullopt), gone);
    EXPECT_FALSE(windows().bringToFrontAlone(window));
    windows().raise(window);
    windows().makeMain(window);
}

TEST_P(PlatformContract, aReusedNumberIsAnotherWindow)
{
    CORVANE_NEEDS(reusedNumbers);
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    world().closeWindow(first);
    world().settle();

    const WindowElement second = world().openWindowNumbered(pid, first.number);

    EXPECT_EQ(second.number, first.number);
    EXPECT_NE(second, first);
    EXPECT_TRUE(windows().frame(second));
    EXPECT_EQ(windows().frame(first), unexpected(AXError::invalidUIElement));
}

TEST_P(PlatformContract, kindsOfWindowsAreToldApart)
{
    struct Case {
        Kind kind;
        bool isWindow;
        bool isStandard;
    };
    const pid_t pid = world().startApplication();
    for (const auto &[kind, isWindow, isStandard] :
        {Case{Kind::standard, true, true}, Case{Kind::dialog, true, false},
            Case{Kind::panel, false, false}, Case{Kind::desktop, false, false}}) {
        SCOPED_TRACE(int(kind));
        const WindowElement window = world().openWindow(pid, {.kind = kind});

        EXPECT_EQ(windows().isWindow(window), isWindow);
        EXPECT_EQ(windows().isStandard(window), isStandard);
        EXPECT_TRUE(windows().windows(pid)->contains(window));
    }
}

TEST_P(PlatformContract, theTitleIsTheWindowsOwn)
{
    const pid_t pid = world().startApplication();
    const WindowElement notes = world().openWindow(pid, {.title = u"Notes – день"_s});
    const WindowElement other = world().openWindow(pid, {.title = u"Other"_s});

    EXPECT_EQ(windows().title(notes), u"Notes – день"_s);
    EXPECT_EQ(windows().title(other), u"Other"_s);
}

TEST_P(PlatformContract, aMinimisedWindowSaysSoAndObeys)
{
    const pid_t pid = world().startApplication();
    const WindowElement shown = world().openWindow(pid);
    const WindowElement window = world().openWindow(pid, {.minimised = true});

    EXPECT_EQ(windows().isMinimized(shown), false);
    EXPECT_EQ(windows().isMinimized(window), true);
    EXPECT_EQ(windows().setSize(window, {530, 420}), AXError::success);
    EXPECT_EQ(windows().setPosition(window, {210, 160}), AXError::success);

    EXPECT_TRUE(reaches(window, {210, 160, 530, 420}));
}

TEST_P(PlatformContract, aMaximisedWindowGoesWhereItIsPut)
{
    const WindowElement window =
        world().openWindow(world().startApplication(), {.maximised = true});
    {
        const WindowOperation operation(windows());
        EXPECT_EQ(windows().setSize(window, {640, 480}), AXError::success);
        EXPECT_EQ(windows().setPosition(window, {180, 140}), AXError::success);
        EXPECT_EQ(windows().setSize(window, {640, 480}), AXError::success);
    }
    EXPECT_TRUE(reaches(window, {180, 140, 640, 480}));
}

TEST_P(PlatformContract, aWindowGoesBackToTheStateThatAWriteEnded)
{
    const ContractWindow wanted{.maximised = true};
    const WindowElement window = world().openWindow(world().startApplication(), wanted);
    const Rect maximised = windows().frame(window).value_or(Rect{});
    const auto ended = [&] {
        const WindowOperation operation(windows());
        EXPECT_EQ(windows().setSize(window, {640, 480}), AXError::success);
        EXPECT_EQ(windows().setPosition(window, {180, 140}), AXError::success);
        return windows().endedState(window);
    };
    const auto state = ended();
    EXPECT_EQ(state, (WindowState{true, true, false, wanted.frame}));
    EXPECT_EQ(windows().endedState(window), std::nullopt);
    EXPECT_TRUE(reaches(window, {180, 140, 640, 480}));
    world().settle();

    EXPECT_EQ(windows().restore(window, maximised, state), AXError::success);

    EXPECT_TRUE(reaches(window, maximised));
    EXPECT_EQ(ended(), state);
}

TEST_P(PlatformContract, fullScreenIsTold)
{
    const pid_t pid = world().startApplication();
    const WindowElement plain = world().openWindow(pid);
    const WindowElement full = world().openWindow(pid, {.fullScreen = true});

    EXPECT_EQ(windows().isFullScreen(plain), false);
    EXPECT_TRUE(world().waitUntil([&] { return windows().isFullScreen(full) == true; }));
    EXPECT_EQ(windows().frame(full), displays().all().first().frame);
}

TEST_P(PlatformContract, aWindowOfFixedSizeMovesAndKeepsIt)
{
    const WindowElement window = world().openWindow(
        world().startApplication(), {.frame = {100, 100, 420, 310}, .fixedSize = true});

    (void)windows().setSize(window, {700, 600});
    EXPECT_EQ(windows().setPosition(window, {240, 130}), AXError::success);
    (void)windows().setSize(window, {700, 600});

    EXPECT_TRUE(reaches(window, {240, 130, 420, 310}));
    EXPECT_TRUE(windows().isFinal(window, {700, 600}));
    world().settle();
    EXPECT_TRUE(reaches(window, {240, 130, 420, 310}));
}

TEST_P(PlatformContract, aWindowStopsShrinkingAtItsMinimum)
{
    const WindowElement window =
        world().openWindow(world().startApplication(), {.minimum = Size{450, 350}});

    EXPECT_FALSE(windows().isFinal(window, {200, 600}));
    EXPECT_EQ(windows().setPosition(window, {90, 80}), AXError::success);
    EXPECT_EQ(windows().setSize(window, {200, 600}), AXError::success);

    EXPECT_TRUE(reaches(window, {90, 80, 450, 600}));
    EXPECT_TRUE(windows().isFinal(window, {200, 600}));
}

} // namespace corvane
