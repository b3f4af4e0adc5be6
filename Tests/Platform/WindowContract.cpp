#include "PlatformContract.h"

namespace corvane {

using namespace Qt::StringLiterals;
using testing::Each;

TEST_P(PlatformContract, whatIsWrittenLastHoldsHoweverItIsWritten)
{
    struct Case {
        std::string_view order; ///< of (p)osition, (s)ize, and an (e)arlier size
        int operations;
    };
    const WindowElement window = open();
    Rect target{200, 150, 500, 400};
    for (const auto &[order, operations] :
        {Case{"sp", 0}, Case{"sps", 1}, Case{"ps", 1}, Case{"eps", 1}, Case{"sp", 2}}) {
        SCOPED_TRACE(order);
        target = {target.x + 11, target.y + 11, target.width + 11, target.height + 11};
        for (int begun = 0; begun < operations; ++begun)
            windows().beginOperation();
        for (const char write : order) {
            const Size size = write == 'e' ? Size{333, 333} : target.size();
            EXPECT_EQ(write == 'p' ? windows().setPosition(window, target.origin())
                                   : windows().setSize(window, size),
                AXError::success);
        }
        for (int ended = 0; ended < operations; ++ended)
            windows().endOperation();

        EXPECT_TRUE(reaches(window, target));
        EXPECT_EQ(windows().refusalDetail(window), QString());
    }
}

TEST_P(PlatformContract, whatIsLookedAtAndMovedAheadReadsAndEndsAsIfItWereNot)
{
    const pid_t pid = world().startApplication();
    const WindowElement maximised = world().openWindow(pid, {.maximised = true});
    const WindowElement plain = world().openWindow(pid, {.title = u"Plain"_s});
    const QList<WindowMove> moves{{plain, {100, 90, 460, 380}}, {maximised, {620, 90, 460, 380}}};
    {
        const WindowOperation operation(windows());
        windows().readAhead({pid});
        EXPECT_EQ(windows().windows(pid), (QList{plain, maximised}));
        EXPECT_EQ(windows().title(plain), u"Plain"_s);
        windows().moveAhead(moves);
        for (const auto &[window, frame] : moves) {
            EXPECT_EQ(windows().setSize(window, frame.size()), AXError::success);
            EXPECT_EQ(windows().setPosition(window, frame.origin()), AXError::success);
        }
    }
    for (const auto &[window, frame] : moves)
        EXPECT_TRUE(reaches(window, frame));

    // Inside an operation a read sees what was written, and what happens once it is read anew.
    const WindowOperation operation(windows());
    EXPECT_EQ(windows().setSize(plain, {610, 440}), AXError::success);
    EXPECT_TRUE(eventually([&] {
        return windows().frame(plain).value_or(Rect()).size() == Size{610, 440};
    }));
    world().drag(plain, {310, 230});
    EXPECT_TRUE(eventually([&] {
        windows().readAnew(plain);
        return windows().frame(plain).value_or(Rect()).origin() == Point{310, 230};
    }));
}

TEST_P(PlatformContract, aGoneWindowIsInvalidThoughAnotherOneBearsItsNumber)
{
    const pid_t pid = world().startApplication();
    const WindowElement gone = world().openWindow(pid);
    world().closeWindow(gone);
    EXPECT_TRUE(eventually([&] { return closed.contains(gone); }));
    for (const bool isReused : {false, true}) {
        if (isReused && world().reusesNumbers()) {
            const WindowElement second = world().openWindow(pid, {.number = gone.number});
            EXPECT_EQ(second.number, gone.number);
            EXPECT_NE(second, gone);
            EXPECT_TRUE(windows().frame(second));
        }
        EXPECT_THAT(answersAbout(gone), Each(AXError::invalidUIElement));
        EXPECT_FALSE(windows().isFinal(gone, {300, 300}));
        EXPECT_FALSE(windows().bringToFrontAlone(gone));
        windows().raise(gone);
        windows().makeMain(gone);
    }
}

TEST_P(PlatformContract, windowsAreToldApartByKindTitleAndState)
{
    struct Case {
        WindowSpec window;
        bool isWindow = true;
        bool isStandard = true;
    };
    const Case cases[]{{{.minimised = true}}, {{.fullScreen = true}},
        {{.kind = Kind::dialog}, true, false}, {{.kind = Kind::panel}, false, false},
        {{.kind = Kind::desktop}, false, false}, {{}}};
    const pid_t pid = world().startApplication();
    world().openWindow(pid); // that a dialog may belong to
    int number = 0;
    for (auto [wanted, isWindow, isStandard] : cases) {
        if (!world().tells(wanted.kind))
            continue;
        wanted.title = u"Notes – день %1"_s.arg(++number);
        SCOPED_TRACE(qPrintable(wanted.title));
        const WindowElement window = world().openWindow(pid, wanted);

        EXPECT_EQ(windows().isWindow(window), isWindow);
        EXPECT_EQ(windows().isStandard(window), isStandard);
        EXPECT_EQ(windows().isMinimized(window), wanted.minimised);
        EXPECT_TRUE(
            eventually([&] { return windows().isFullScreen(window) == wanted.fullScreen; }));
        const Rect display = displays().all().first().frame;
        // xfwm4 places every dialog itself.
        EXPECT_TRUE(wanted.kind == Kind::dialog
            || reaches(window, wanted.fullScreen ? display : wanted.frame));
        EXPECT_EQ(
            windows().title(window), world().hasTitle(wanted.kind) ? wanted.title : QString());
        EXPECT_TRUE(windows().windows(pid)->contains(window));
        world().closeWindow(window);
    }
}

TEST_P(PlatformContract, aMaximisedWindowGoesWhereItIsPutAndBackToTheStateThatThisEnded)
{
    const WindowSpec wanted{.maximised = true};
    const WindowElement window = open(wanted);
    const Rect maximised = windows().frame(window).value_or(Rect{});
    const auto ended = [&] {
        const WindowOperation operation(windows());
        EXPECT_EQ(windows().setSize(window, {640, 480}), AXError::success);
        EXPECT_EQ(windows().setPosition(window, {180, 140}), AXError::success);
        EXPECT_EQ(windows().setSize(window, {640, 480}), AXError::success);
        return windows().endedState(window);
    };
    const auto state = ended();
    EXPECT_EQ(state, world().maximisedState(wanted.frame, maximised));
    EXPECT_EQ(windows().endedState(window), std::nullopt);
    EXPECT_TRUE(reaches(window, {180, 140, 640, 480}));
    world().settle();

    EXPECT_EQ(windows().restore(window, maximised, state), AXError::success);

    EXPECT_TRUE(reaches(window, maximised));
    EXPECT_EQ(ended(), state);
}

TEST_P(PlatformContract, aWindowKeepsToItsLimitsWhichAreFinal)
{
    struct Case {
        WindowSpec window;
        Size taken;
    };
    const Size asked{430, 600};
    for (const auto &[wanted, taken] :
        {Case{{.frame = {100, 100, 420, 310}, .fixedSize = true}, {420, 310}},
            Case{{.minimum = {450, 350}}, {450, 600}}, Case{{.minimised = true}, asked}}) {
        if (taken != asked && !world().tellsLimits())
            continue;
        const WindowElement window = open(wanted);
        EXPECT_EQ(windows().isFinal(window, asked), wanted.fixedSize);

        std::ignore = windows().setSize(window, asked);
        EXPECT_EQ(windows().setPosition(window, {240, 130}), AXError::success);
        std::ignore = windows().setSize(window, asked);

        EXPECT_TRUE(reaches(window, {240, 130, taken.width, taken.height}));
        EXPECT_TRUE(windows().isFinal(window, asked));
        world().settle();
        EXPECT_TRUE(reaches(window, {240, 130, taken.width, taken.height}));
    }
}

TEST_P(PlatformContract, theFocusedWindowComesWithItsProcessUnlessItIsAPanelOrDesktop)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    EXPECT_TRUE(takesFocus(open()));
    for (const Kind kind : {Kind::panel, Kind::desktop}) {
        if (!world().tells(kind))
            continue;
        world().focus(first);
        EXPECT_TRUE(takesFocus(first));
        EXPECT_EQ(windows().focusedWindow().pid, pid);
        EXPECT_EQ(applications().frontmost().value_or(RunningApplication{}).pid, pid);

        world().focus(open({.kind = kind}));

        EXPECT_TRUE(eventually([&] { return !windows().focusedWindow().window; }));
    }
}

TEST_P(PlatformContract, windowsAreListedFrontToBackAndOnScreenWhereTheyCanBeSeen)
{
    const pid_t pid = world().startApplication();
    const pid_t other = world().startApplication();
    const Rect back{120, 110, 500, 400};
    const Rect middle{300, 200, 600, 500};
    const Rect panel{0, 0, 300, 24};
    const WindowElement first = world().openWindow(pid, {.frame = back});
    world().openWindow(pid, {.onOtherWorkspace = true});
    world().openWindow(other, {.frame = middle});
    const WindowElement third = world().openWindow(pid, {.kind = Kind::dialog});
    const Rect front = windows().frame(third).value_or(Rect{});
    EXPECT_TRUE(eventually([&] { return windows().windows(pid) == QList{third, first}; }));

    world().openWindow(other, {.minimised = true});
    world().openWindow(other, {.kind = Kind::desktop});
    world().openWindow(other, {.frame = panel, .kind = Kind::panel});
    QList<OnScreenWindow> seen{{other, panel}, {pid, front}, {other, middle}, {pid, back}};
    if (world().bringsParentsOfDialogs())
        seen.swapItemsAt(2, 3);
    if (!world().tells(Kind::panel))
        seen.removeFirst();
    EXPECT_TRUE(eventually([&] { return windows().onScreenWindows() == seen; }));

    windows().raise(first);
    const QList now = world().raisesWithoutFocus() ? QList{first, third} : QList{third, first};
    EXPECT_TRUE(eventually([&] { return windows().windows(pid) == now; }));
}

TEST_P(PlatformContract, aWindowComesForwardWithItsApplicationOrAloneInItsTurn)
{
    const pid_t pid = world().startApplication();
    const WindowElement first = world().openWindow(pid);
    const WindowElement second = world().openWindow(pid);
    const WindowElement third = world().openWindow(pid);
    EXPECT_TRUE(takesFocus(open()));

    windows().raise(first);
    windows().bringForward(pid);
    windows().makeMain(first);
    EXPECT_TRUE(takesFocus(first));
    EXPECT_TRUE(eventually([&] { return windows().windows(pid) == QList{first, third, second}; }));

    for (const bool isOperation : {true, false}) {
        if (isOperation)
            windows().beginOperation();
        EXPECT_TRUE(windows().bringToFrontAlone(isOperation ? third : first));
        EXPECT_TRUE(isOperation || takesFocus(first));
        EXPECT_TRUE(windows().bringToFrontAlone(second));
        if (isOperation)
            windows().endOperation();

        EXPECT_TRUE(takesFocus(second));
        const QList order = isOperation ? QList{second, third, first} : QList{second, first, third};
        EXPECT_TRUE(eventually([&] { return windows().windows(pid) == order; }));
    }
}

} // namespace corvane
