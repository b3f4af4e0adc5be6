#include "LayoutDesk.h"
#include "Screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Status = PaneResult::Status;

namespace {

constexpr UnitRect leftHalf{0, 0, 0.5, 1};
constexpr UnitRect rightHalf{0.5, 0, 0.5, 1};
constexpr Rect onTheLeft{0, 25, 720, 875};
constexpr Rect onTheRight{720, 25, 720, 875};
const AppRef editorApp{u"org.example.Editor"_s, u"Editor"_s};
const AppRef mail{u"org.example.Mail"_s, u"Mail"_s};

Pane pane(const UnitRect &rect, const QString &title = {}, std::optional<int> stack = {})
{
    return {.rect = rect, .app = editorApp, .titleContains = title, .stack = stack};
}

class LayoutEngineTests : public testing::Test, protected LayoutDesk
{
};

} // namespace

TEST_F(LayoutEngineTests, withoutTrustEveryPaneIsRefusedAndNothingMoves)
{
    const AXWindow window = open();
    desktop.loseTrust();
    const Status refused{Status::Refused{u"accessibility not granted"_s}};

    const auto results = apply({.panes = {pane(leftHalf), Pane{}}});

    EXPECT_TRUE(results[0].status == refused && results[1].status == refused);
    EXPECT_EQ(frameOf(window), WindowSpec{}.frame);
}

TEST_F(LayoutEngineTests, whatNeedsNoWindowIsSettledAtOnce)
{
    desktop.install({.bundleIdentifier = mail.bundleID});
    const AppRef damaged{u"org.example.Damaged"_s, {}};
    desktop.install({.bundleIdentifier = damaged.bundleID, .state = Installation::State::broken});
    const AppRef unknown{u"org.example.Unknown"_s, {}};

    const auto results = apply({.displays = Screens::signature(),
        .panes = {{.display = 7}, {.display = 7, .app = mail}, {.display = -1, .app = unknown},
            {.app = unknown}, {.app = mail, .launch = false}, {.app = damaged}, {.app = damaged}}});

    const Status refused{Status::Refused{u"\"org.example.Damaged\" cannot be opened."_s}};
    const QList<Status> expected{{Status::Empty{}}, {Status::DisplayMissing{}},
        {Status::DisplayMissing{}}, {Status::NotInstalled{}}, {Status::NotRunning{}}, refused,
        refused};
    ASSERT_EQ(results.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i)
        EXPECT_EQ(results[i].status, expected[i]) << i;
    EXPECT_EQ(applied, 0ms);
    EXPECT_THAT(diagnostics, IsEmpty());
}

TEST_F(LayoutEngineTests, aPlacedWindowIsToldWithItsFrameBeforeAndAfter)
{
    const Rect before{50, 60, 700, 500};
    const Rect reached{630, 35, 800, 855}; // wider than its pane, which ends there, too
    const AXWindow window = open({.title = u"Notes"_s, .frame = before, .minimum = {800, 1}});
    QList<Rect> told;
    engine.onPlaced = [&](const AXWindow &, const Rect &previous) { told << previous; };
    engine.gap = 10;

    const auto results = apply({.displays = {{u"Gone"_s, 1, 1}, {u"Laptop"_s, 800, 600}},
        .panes = {pane(leftHalf), {.display = 1, .rect = rightHalf, .app = editorApp}}});

    EXPECT_EQ(results[0].status, Status{Status::DisplayMissing{}});
    EXPECT_EQ(results[1].status, (Status{Status::Placed{u"Notes"_s, reached, before, false}}));
    EXPECT_EQ(frameOf(window), reached);
    EXPECT_THAT(told, ElementsAre(before));
}

TEST_F(LayoutEngineTests, panesTakeTheirAppsWindowsInOrderAndOneTooManyFindsNone)
{
    const AXWindow back = open();
    const AXWindow front = open();
    const AXWindow ofAnother = openFrom(desktop.start(editorApp.bundleID, editorApp.name));

    EXPECT_EQ(outcomes({pane(leftHalf), pane(rightHalf), pane(leftHalf), pane(leftHalf)}),
        u"placed placed placed noWindow"_s);

    EXPECT_THAT(placed, ElementsAre(front, back, ofAnother));
    EXPECT_THAT(platform.windows().movesAhead().first(),
        ElementsAre(WindowMove{front.element, onTheLeft}, WindowMove{back.element, onTheRight},
            WindowMove{ofAnother.element, onTheLeft}));
    EXPECT_EQ(applied, 34 * 600ms);
    EXPECT_THAT(diagnostics,
        ElementsAre(u"waited out 34 rounds for apps still coming up; 1 never settled"_s));
}

TEST_F(LayoutEngineTests, applicationsOfOneProcessKeepToTheirOwnPanes)
{
    const AppRef sheets{u"org.example.Sheets"_s, u"org.example.Sheets"_s};
    const AXWindow sheet = open({.frame = onTheRight, .application = sheets.bundleID});
    const AXWindow letter = open({.frame = onTheLeft});
    const auto ofSheets = [&](const UnitRect &rect) { return Pane{.rect = rect, .app = sheets}; };

    const WindowLayout captured = engine.capture({});
    EXPECT_EQ(captured.panes.value(0).app, editorApp);
    EXPECT_EQ(captured.panes.value(1).app, sheets);

    EXPECT_EQ(outcomes({ofSheets(leftHalf), pane(rightHalf), ofSheets(rightHalf)}, 0s),
        u"placed placed noWindow"_s);
    EXPECT_EQ(frameOf(sheet), onTheLeft);
    EXPECT_EQ(frameOf(letter), onTheRight);
}

TEST_F(LayoutEngineTests, aPaneThatNamesItsWindowClaimsItFirstAndTakesNoOther)
{
    const AXWindow plain = open({.title = u"Notes"_s});
    const AXWindow named = open({.title = u"ÉTÉ – οδοστρωτήρας"_s});

    EXPECT_EQ(
        outcomes({pane(leftHalf), pane(rightHalf, u"été – ΟΔΟΣ"_s), pane(leftHalf, u"Note 2"_s)}),
        u"placed placed noWindow"_s);

    EXPECT_EQ(frameOf(plain), onTheLeft);
    EXPECT_EQ(frameOf(named), onTheRight);
}

TEST_F(LayoutEngineTests, anAppThatDoesNotRunIsOpenedOnceAndAwaited)
{
    struct Example {
        const char *name;
        InstalledApplication application;
        QString outcomes;
        Clock::Duration longest;
    };
    const WindowSpec late{.resizesAfter = 100ms};
    const WindowSpec splash{.kind = WindowKind::splash};
    const QString placedBoth = u"placed placed"_s;
    const QString launchedBoth = u"launched launched"_s;
    // Longer than they need to open: they may restore a size of their own.
    constexpr Clock::Duration atRest = 2600ms;
    const Example examples[]{
        {"at once", {.windows = {{}, {}}}, placedBoth, atRest},
        {"hidden", {.state = Installation::State::hidden, .windows = {{}, {}}}, placedBoth, atRest},
        {"slow", {.windows = {{}, {}}, .opensAfter = 3s}, placedBoth, 3s + atRest},
        {"very slow", {.windows = {{}, {}}, .opensAfter = 12s}, placedBoth, 12200ms + atRest},
        {"one window only", {.windows = {{}}}, u"placed launched"_s, 20400ms},
        {"splash first", {.windows = {{}, {}}, .opensAfter = 2s, .splash = splash}, placedBoth,
            2s + atRest},
        {"resizes late", {.windows = {late, late}}, placedBoth, 500ms + atRest},
        {"splash only", {.opensAfter = std::nullopt, .splash = splash}, launchedBoth, 28400ms},
        {"no window", {.opensAfter = std::nullopt}, launchedBoth, 28400ms},
        {"exits", {.splash = splash, .exitsAfter = 0s}, launchedBoth, 28400ms},
    };

    for (const Example &example : examples) {
        SCOPED_TRACE(example.name);
        LayoutDesk desk;
        const AXWindow focused = desk.open();
        InstalledApplication application = example.application;
        application.bundleIdentifier = mail.bundleID;
        desk.desktop.install(application);

        EXPECT_EQ(desk.outcomes({{.rect = leftHalf, .app = mail},
                      {.rect = rightHalf, .app = mail, .launch = false}}),
            example.outcomes);

        EXPECT_LE(desk.applied, example.longest);
        EXPECT_LE(std::ranges::count(
                      desk.desktop.running(), mail.bundleID, &RunningApplication::bundleIdentifier),
            1);
        for (const AXWindow &window : desk.placed)
            EXPECT_EQ(desk.frameOf(window), window == desk.placed[0] ? onTheLeft : onTheRight);
        EXPECT_EQ(AXWindow::focused().window, desk.placed.isEmpty() ? focused : desk.placed.last());
    }
}

TEST_F(LayoutEngineTests, anOpenedWindowThatRestoresItsOwnSizeIsPutBackUnlessTheUserMovedIt)
{
    const Rect own{300, 200, 640, 480};
    struct Example {
        const char *name;
        QList<Clock::Duration> moves; ///< when it takes its own frame
        bool isPutBack;
        std::function<void(LayoutDesk &, const AXWindow &)> meanwhile = {};
    };
    QList<Clock::Duration> insisting;
    for (Clock::Duration time = 300ms; time < 20s; time += 300ms)
        insisting << time;
    const Example examples[]{
        {"soon", {300ms}, true},
        {"after two seconds", {2s}, true},
        {"twice", {1s, 1800ms}, true},
        {"again and again", insisting, false},
        {"dragged", {1s}, false,
            [](LayoutDesk &desk, const AXWindow &) {
                desk.platform.session().isButtonDown = true;
            }},
        {"placed by a shortcut", {1s}, false,
            [](LayoutDesk &desk, const AXWindow &window) { desk.engine.leaveAlone(window); }},
    };

    for (const Example &example : examples) {
        SCOPED_TRACE(example.name);
        LayoutDesk desk;
        desk.desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{}}});
        QList<Rect> previous;
        desk.engine.onPlaced = [&](const AXWindow &window, const Rect &before) {
            desk.placed << window;
            previous << before;
        };
        for (const Clock::Duration time : example.moves) {
            desk.platform.clock().after(time, &desk.desktop, [&] {
                if (example.meanwhile)
                    example.meanwhile(desk, desk.placed.first());
                desk.drag(desk.placed.first(), own);
            });
        }

        const auto results = desk.apply(
            {.displays = Screens::signature(), .panes = {{.rect = leftHalf, .app = mail}}});

        EXPECT_EQ(desk.frameOf(desk.placed.first()), example.isPutBack ? onTheLeft : own);
        EXPECT_EQ(std::get<Status::Placed>(results[0].status.value).frame, onTheLeft);
        EXPECT_EQ(previous.last() == own, example.isPutBack || example.moves.size() > 2);
        EXPECT_LE(desk.applied, 5100ms);
    }
}

TEST_F(LayoutEngineTests, aSlowPaneDelaysNoOtherAndItsWindowJoinsTheStackWithoutTheFocus)
{
    struct Example {
        const char *name;
        bool alone; ///< whether the desktop brings windows forward one by one
        std::optional<Clock::Duration> takesFocus; ///< so long after it has shown
        bool userLeaves;
        QByteArray stack; ///< L is the late window, U the user's, below the layout at first
    };
    const Example examples[]{
        {"quiet", true, {}, false, "ALCU"},
        {"with its application", false, {}, false, "ALCU"},
        {"takes the focus", true, 0s, false, "ALCU"},
        {"takes it late", true, 100ms, false, "ALCU"},
        {"user elsewhere", true, {}, true, "UALC"},
    };

    for (const Example &example : examples) {
        SCOPED_TRACE(example.name);
        LayoutDesk desk;
        desk.desktop.bringsOneForward = example.alone;
        desk.desktop.install(
            {.bundleIdentifier = mail.bundleID, .windows = {{.title = u"L"_s}}, .opensAfter = 3s});
        const AXWindow user =
            desk.openFrom(desk.desktop.start(u"org.example.User"_s, u"User"_s), {.title = u"U"_s});
        const AXWindow front = desk.open({.title = u"A"_s});
        desk.open({.title = u"C"_s});
        QList<Clock::Duration> times;
        desk.engine.onPlaced = [&](const AXWindow &, const Rect &) {
            times << desk.platform.clock().now();
        };
        desk.platform.clock().after(3s, &desk.desktop, [&] {
            desk.desktop.catchUp();
            if (example.userLeaves) {
                desk.desktop.raise(user.element);
                desk.desktop.focus(user.element);
            }
            const WindowElement late = desk.desktop.stack()[example.userLeaves ? 1 : 0];
            const auto takeFocus = [&desk, late] {
                desk.desktop.raise(late);
                desk.desktop.focus(late);
            };
            if (example.takesFocus == 0s)
                takeFocus();
            else if (example.takesFocus)
                desk.platform.clock().after(*example.takesFocus, &desk.desktop, takeFocus);
        });

        EXPECT_EQ(desk.outcomes({pane(leftHalf, u"A"_s, 0), pane(leftHalf, u"C"_s, 2),
                      {.rect = leftHalf, .app = mail, .titleContains = u"L"_s, .stack = 1}}),
            u"placed placed placed"_s);

        QByteArray stack;
        for (const WindowElement &element : desk.desktop.stack())
            stack += desk.desktop.window(element).title.toLatin1();
        EXPECT_EQ(stack, example.stack);
        EXPECT_EQ(desk.desktop.focused(), example.userLeaves ? user.element : front.element);
        EXPECT_THAT(times, ElementsAre(0s, 0s, 3s));
    }
}

TEST_F(LayoutEngineTests, whatIsComingUpIsNotOpenedAgainByTheNextApply)
{
    desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{}}, .opensAfter = 6s});
    open();
    const QList<Pane> panes{{.rect = leftHalf, .app = mail}};
    auto launches = [this, last = editor]() mutable {
        const pid_t next = desktop.start(u"org.example.Next"_s, u"Next"_s);
        return next - std::exchange(last, next) - 1;
    };
    QList<PaneResult> first;
    const auto task = engine.apply({.displays = Screens::signature(), .panes = panes}, 8s, 20s)
                          .then([&](const QList<PaneResult> &results) { first = results; });
    advance(1s);

    EXPECT_EQ(outcomes({pane(leftHalf)}), u"placed"_s);
    EXPECT_EQ(outcomes(panes), u"placed"_s);
    EXPECT_EQ(launches(), 1);
    ASSERT_EQ(first.size(), 1);
    EXPECT_EQ(statusText(first[0].status), u"had no window yet when the next layout was applied"_s);

    desktop.quit(placed.last().pid);
    EXPECT_EQ(outcomes(panes), u"placed"_s);
    EXPECT_EQ(launches(), 1) << "it had shown its window, and quit";
}

TEST_F(LayoutEngineTests, aPaneWhoseWindowClosesWhileItsAppLoadsGetsTheNextOne)
{
    open();
    desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{.title = u"Loading"_s}}});
    platform.clock().after(1s, &desktop, [this] { desktop.closeWindow(placed.first().element); });
    AXWindow main;
    platform.clock().after(2s, &desktop,
        [&] { main = openFrom(placed.first().pid, {.title = u"Main"_s, .takesFocus = false}); });

    EXPECT_EQ(outcomes({{.rect = leftHalf, .app = mail}}), u"placed"_s);

    EXPECT_EQ(frameOf(main), onTheLeft);
    EXPECT_EQ(AXWindow::focused().window, main);
}

TEST_F(LayoutEngineTests, anOpenedAppWithAnotherWindowThanTheOneNamedIsSaidToHaveOne)
{
    desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{.title = u"News"_s}}});

    const auto results = apply({.displays = Screens::signature(),
        .panes = {{.rect = leftHalf, .app = mail, .titleContains = u"Inbox"_s}}});

    EXPECT_EQ(statusText(results[0].status), u"was opened, and its window is not the one named"_s);
}

TEST_F(LayoutEngineTests, windowsThatMissAreAskedForOneByOneAndNoneTooMany)
{
    using enum InstalledApplication::FurtherStart;
    struct Example {
        const char *name;
        InstalledApplication habits;
        int windows; ///< open at first; none: it does not run; below zero: it lives on without any
        QList<Pane> panes;
        QString outcomes;
        qsizetype windowsThen;
    };
    const auto captured = [](const UnitRect &rect, const QString &title) {
        return Pane{.rect = rect, .app = mail, .titleContains = title, .capturedTitle = title};
    };
    Pane closed = captured(rightHalf, u"B"_s);
    closed.launch = false;
    const QList<Pane> two{captured(leftHalf, u"A"_s), captured(rightHalf, u"B"_s)};
    const QList<Pane> three = two + QList<Pane>{{.rect = leftHalf, .app = mail}};
    const Example examples[]{
        {"lives on without a window", {.furtherStart = window}, -1, {two[0]}, u"placed"_s, 1},
        {"a start is a window", {.furtherStart = window}, 1, three, u"placed placed placed"_s, 3},
        {"a start is a process", {}, 1, two, u"placed placed"_s, 2},
        {"an action is a window", {.furtherStart = windowIfItHasNone, .opensFurtherWindows = true},
            1, three, u"placed placed placed"_s, 3},
        {"does not run", {.opensAfter = 2s, .furtherStart = window}, 0, two, u"placed placed"_s, 2},
        {"never shows one", {.opensAfter = {}}, 0, two, u"launched launched"_s, 0},
        {"has but one", {.hasOneWindow = true}, 1, two, u"placed noWindow"_s, 1},
        {"is asked in vain", {.furtherStart = windowIfItHasNone}, 1, three,
            u"placed launched launched"_s, 1},
        {"opening is off", {.furtherStart = window}, 1, {two[0], closed}, u"placed noWindow"_s, 1},
        {"a title is demanded", {.furtherStart = window}, 1,
            {two[0], {.rect = rightHalf, .app = mail, .titleContains = u"B"_s}},
            u"placed noWindow"_s, 1},
    };

    for (const Example &example : examples) {
        SCOPED_TRACE(example.name);
        LayoutDesk desk;
        InstalledApplication habits = example.habits;
        habits.bundleIdentifier = mail.bundleID;
        habits.windows = {{.title = u"New"_s}};
        desk.desktop.install(habits);
        if (example.windows != 0) {
            const AXWindow first = desk.openFrom(desk.desktop.start(mail.bundleID, mail.name));
            if (example.windows < 0)
                desk.desktop.closeWindow(first.element);
        }
        desk.advance(30s);

        EXPECT_EQ(desk.outcomes(example.panes), example.outcomes);
        EXPECT_EQ(desk.desktop.stack().size(), example.windowsThen);
    }
}

TEST_F(LayoutEngineTests, aCapturedDeskComesBackWithOtherDocumentsAndAnUntouchedOneStays)
{
    const AXWindow right = open({.title = u"~"_s, .frame = onTheRight});
    const AXWindow left = open({.title = u"~"_s, .frame = onTheLeft});
    const WindowLayout captured = engine.capture({});
    ASSERT_EQ(captured.panes.size(), 2);

    desktop.raise(right.element);
    EXPECT_EQ(
        apply(captured)[0].status, (Status{Status::Placed{u"~"_s, onTheLeft, onTheLeft, false}}));
    EXPECT_EQ(frameOf(right), onTheRight);

    simulated(left).title = u"Another"_s;
    drag(left, {10, 40, 300, 300});
    drag(right, {900, 40, 300, 300});
    EXPECT_EQ(outcomes(captured.panes), u"placed placed"_s);
    EXPECT_TRUE((frameOf(left) == onTheLeft) != (frameOf(left) == onTheRight));
    EXPECT_NE(frameOf(left), frameOf(right));
}

TEST_F(LayoutEngineTests, anAppThatQuitsMeanwhileIsGivenUp)
{
    const AXWindow other = openFrom(desktop.start(mail.bundleID, mail.name));
    open();
    platform.clock().after(2s, &desktop, [this] { desktop.quit(editor); });

    EXPECT_EQ(outcomes({{.rect = leftHalf, .app = mail}, pane(rightHalf), pane(leftHalf)}),
        u"placed placed noWindow"_s);

    EXPECT_EQ(AXWindow::focused().window, other);
}

TEST_F(LayoutEngineTests, aWindowThatClosesBeforeItIsMovedIsReplacedByAnother)
{
    constexpr int callsBeforeTheMove = 5;
    for (int calls = 0; calls < callsBeforeTheMove; ++calls) {
        LayoutDesk desk;
        const AXWindow stays = desk.open();
        desk.open({.vanishesAfterCalls = calls});

        EXPECT_EQ(desk.outcomes({pane(leftHalf)}), u"placed"_s) << calls;

        EXPECT_THAT(desk.placed, ElementsAre(stays)) << calls;
        EXPECT_EQ(desk.frameOf(stays), onTheLeft);
    }
}

TEST_F(LayoutEngineTests, aRefusalConcernsItsPaneOnlyAndIsNotTriedAgain)
{
    const AXWindow willing = open();
    open({.refusesPosition = AXError::failure, .refusalDetail = u"pinned"_s});
    open({.fullScreen = true});

    const auto results = apply({.displays = Screens::signature(),
        .panes = {pane(leftHalf), pane(leftHalf), pane(rightHalf)}});

    EXPECT_EQ(statusText(results[0].status), u"window is in native full screen"_s);
    EXPECT_EQ(statusText(results[1].status), u"could not set position (AXError -25200): pinned"_s);
    EXPECT_EQ(frameOf(willing), onTheRight);
    EXPECT_THAT(placed, ElementsAre(willing));
    EXPECT_EQ(applied, 0ms);
}

TEST_F(LayoutEngineTests, anAppThatHangsCostsOneSecondAndNobodyElse)
{
    const AXWindow window = openFrom(desktop.start(mail.bundleID, mail.name));
    open({.title = u"A"_s});
    open({.title = u"B"_s});
    const QList<Pane> panes{{.rect = rightHalf, .app = mail, .titleContains = QString()},
        pane(leftHalf), pane(rightHalf), pane(leftHalf)};
    const auto hang = [this] { desktop.application(editor).hung = true; };

    engine.onPlaced = [&](const AXWindow &, const Rect &) { hang(); };
    EXPECT_EQ(outcomes(panes, 0s), u"placed refused refused noWindow"_s);
    EXPECT_EQ(applied, 1s);
    EXPECT_EQ(AXWindow::focused().window, window);

    EXPECT_EQ(outcomes(panes, 0s), u"placed noWindow noWindow noWindow"_s);
    EXPECT_EQ(applied, 2s);
    EXPECT_EQ(outcomes(panes), u"placed noWindow noWindow noWindow"_s);
    EXPECT_EQ(applied, 3s + 34 * 600ms);
}

TEST_F(LayoutEngineTests, theStackComesBackAndTheLastPlacedHasTheFocus)
{
    for (const bool alone : {true, false}) {
        LayoutDesk desk;
        desk.desktop.bringsOneForward = alone;
        QList<WindowElement> windows;
        for (const QString &title : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
            windows << desk.open({.title = title}).element;

        EXPECT_EQ(desk.outcomes({pane(leftHalf, u"D"_s), pane(leftHalf, u"A"_s, 0),
                      pane(leftHalf, u"B"_s, 2), pane(leftHalf, u"C"_s, 1)}),
            u"placed placed placed placed"_s);

        EXPECT_THAT(
            desk.desktop.stack(), ElementsAre(windows[0], windows[2], windows[1], windows[3]));
        EXPECT_EQ(desk.desktop.focused(), windows[0]);
    }
}

TEST_F(LayoutEngineTests, whatIsMinimisedOrElsewhereIsNotStolen)
{
    const QList<AXWindow> windows{open({.minimised = true}), open({.onOtherWorkspace = true}),
        open({.kind = WindowKind::dialog})};

    EXPECT_EQ(outcomes({pane(leftHalf)}), u"noWindow"_s);

    for (const AXWindow &window : windows)
        EXPECT_EQ(frameOf(window), WindowSpec{}.frame);
    EXPECT_TRUE(simulated(windows[0]).minimised);
}

TEST(PaneResultTests, everyStatusHasItsNameAndItsText)
{
    const std::array<std::pair<Status, QString>, 8> examples{{
        {{Status::Placed{}}, u"placed: "_s},
        {{Status::Refused{u"no"_s}}, u"refused: no"_s},
        {{Status::Empty{}}, u"empty: "_s},
        {{Status::DisplayMissing{}}, u"displayMissing: its display is not connected"_s},
        {{Status::NotInstalled{}}, u"notInstalled: is not installed on this Mac"_s},
        {{Status::NotRunning{}}, u"notRunning: is not running (opening it is off for this pane)"_s},
        {{Status::Launched{}}, u"launched: was opened, and still had no window after 20 seconds"_s},
        {{Status::NoWindow{}}, u"noWindow: is running but has no window to place"_s},
    }};

    for (const auto &[status, text] : examples)
        EXPECT_EQ(statusName(status) + u": "_s + statusText(status), text);
    EXPECT_EQ((PaneResult{{.app = mail}, {}}).appName(), u"Mail"_s);
}

} // namespace corvane
