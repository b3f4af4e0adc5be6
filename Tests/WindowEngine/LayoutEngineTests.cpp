#include "Desk.h"
#include "Geometry.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using Status = PaneResult::Status;

struct LayoutEngineTests : testing::Test, Desk {
    /// The titles of the panes, in their order.
    QString captured()
    {
        QStringList titles;
        for (const Pane &pane : engine.capture({}).panes)
            titles << pane.titleContains.value_or(u"-"_s);
        return titles.join(u' ');
    }
};

namespace {

/// Whole points, inside what is visible of one display and no nearer to its edges than the gap.
Rect anyFrame(Desk &desk)
{
    const Rect area = Geometry::inset(anyOf(desk.desktop.screens()).visibleFrame, desk.engine.gap);
    const int width = between(100, int(area.width));
    const int height = between(80, int(area.height));
    return {area.x + between(0, int(area.width) - width),
        area.y + between(0, int(area.height) - height), double(width), double(height)};
}

/// Whether an opened window is put back that takes a frame of its own at these times.
bool isPutBack(
    const QList<Clock::Duration> &times, void (*event)(Desk &) = [](Desk &) {})
{
    const Rect own{300, 200, 640, 480};
    Desk desk;
    desk.desktop.install({.bundleIdentifier = Desk::mail.bundleID, .windows = {{}}});
    for (const Clock::Duration time : times) {
        desk.later(time, [&] {
            event(desk);
            desk.drag(desk.placed.first(), own);
        });
    }

    (void)desk.fill({Desk::left(Desk::mail)});

    EXPECT_EQ(std::get<Status::Placed>(desk.results[0].status.value).frame, Desk::onTheLeft);
    EXPECT_EQ(desk.placedFrom.last() == own, desk.placed.size() > 1);
    EXPECT_LE(desk.applied, 5100ms);
    return desk.frameOf(desk.placed.first()) == Desk::onTheLeft;
}

} // namespace

/// Windows that are mostly hidden are not captured, and not placed.
RC_GTEST_PROP(LayoutEngineProperties, aDeskComesBackWhetherScatteredOrLeftAlone, ())
{
    Desk desk;
    desk.plugMonitor();
    desk.engine.gap = coin() ? 12 : 0;
    desk.desktop.bringsOneForward = coin();
    QList<AXWindow> windows;
    QHash<AXWindow, Rect> frames;
    for (const QChar title : u"ABCDEFGHI"_s.first(between(1, 9))) {
        windows << desk.open({title, anyFrame(desk)});
        frames.insert(windows.last(), desk.frameOf(windows.last()));
    }
    const QString before = desk.stack();

    const WindowLayout layout = desk.engine.capture(u"Desk"_s);
    for (int i = between(0, 12); i > 0; --i) {
        desk.drag(anyOf(windows), anyFrame(desk));
        desk.desktop.raise(anyOf(windows).element);
    }
    (void)desk.apply(layout);

    RC_ASSERT(desk.applied == 0ms);
    RC_ASSERT(!desk.placed.isEmpty() && desk.placed.size() == layout.panes.size());
    RC_ASSERT(desk.desktop.focused() == desk.placed.last().element);
    QString titles;
    for (const AXWindow &window : desk.placed) {
        RC_ASSERT(desk.frameOf(window) == frames[window]);
        titles += window.title();
    }
    const auto ofPlaced = [&titles](QString stack) {
        return stack.removeIf([&](QChar title) { return !titles.contains(title); });
    };
    RC_ASSERT(ofPlaced(desk.stack()) == ofPlaced(before));
}

TEST_F(LayoutEngineTests, onlyOrdinaryWindowsOnShowAreCaptured)
{
    const auto self = static_cast<pid_t>(QCoreApplication::applicationPid());
    openFrom(desktop.start(u"app.corvane.Corvane"_s, u"Corvane"_s, self));
    openOf({{}, u"No identifier"_s});
    const pid_t hung = openOf({u"org.example.Hung"_s, u"Hung"_s}).pid;
    openFrom(hung);
    desktop.application(hung).hung = true;
    for (const WindowSpec &leftOut :
        QList<WindowSpec>{{.frame = {0, 25, 99, 300}}, {.frame = {0, 25, 300, 79}},
            {.frame = {0, 25, 1443, 300}}, {.frame = {0, 25, 300, 878}},
            {.frame = {5000, 25, 300, 300}}, {.kind = WindowKind::dialog}, {.fullScreen = true},
            {.minimised = true}, {.onOtherWorkspace = true}})
        open(leftOut);
    open({.title = u"large"_s, .frame = {-1, 24, 1442, 877}});
    open({.title = u"small"_s, .frame = {0, 25, 100, 80}});
    // Its own place in the stack of its application is the front.
    openOf(mail, {.title = u"mail"_s, .frame = {200, 125, 300, 300}});

    EXPECT_EQ(captured(), u"small large mail"_s);
    EXPECT_EQ(platform.clock().now(), 1s);
}

TEST_F(LayoutEngineTests, capturedPanesAreInReadingOrderWithoutThoseThatAreMostlyHidden)
{
    const QString nameless = u"org.example.Nameless"_s; // of the editor's process
    const Rect upper{10, 25, 950, 500};
    open({.title = u"hidden"_s, .frame = {0, 25, 1000, 600}});
    open({.title = u"a-fifth-to-see"_s, .frame = {5, 20, 1200, 800}});
    open({.title = u"lower"_s, .frame = {0, 525, 960, 300}, .application = nameless});
    open({.frame = upper});

    EXPECT_EQ(captured(), u"- a-fifth-to-see lower"_s);

    const WindowLayout layout = engine.capture(u"Desk"_s);
    EXPECT_TRUE(layout.name == u"Desk" && layout.created == platform.clock().date());
    EXPECT_EQ(layout.panes[0],
        (Pane{layout.panes[0].id, 0, WindowLayout::unitRect(upper, laptopArea), editorApp, {}, true,
            0, u""_s}));
    EXPECT_EQ(layout.panes[2].app, (AppRef{nameless, nameless}));
    EXPECT_EQ(Geometry::visibleFraction({0, 0, 1, 1}, {{0, 0, 0.5, 1}, {0, 0, 1, 0.5}}, 24), 0.25);
}

TEST_F(LayoutEngineTests, whatNeedsNoWindowIsSettledAtOnceAndSaid)
{
    desktop.install({.bundleIdentifier = mail.bundleID});
    const AppRef unknown{u"org.example.Unknown"_s, {}};
    const AppRef damaged{u"org.example.Damaged"_s, {}};
    desktop.install({.bundleIdentifier = damaged.bundleID, .state = Installation::State::broken});
    const AXWindow window = open();
    const Pane notOpened{.app = mail, .launch = false};

    EXPECT_EQ(fill({{.display = 7}, {.display = 7, .app = mail}, left(unknown), notOpened,
                  left(damaged), left(damaged)}),
        u"empty displayMissing notInstalled notRunning refused refused"_s);
    EXPECT_EQ(applied, 0ms);
    EXPECT_EQ(said(5), u"\"org.example.Damaged\" cannot be opened."_s);

    desktop.loseTrust();
    EXPECT_EQ(fill({left(), {}}), u"refused refused"_s);
    EXPECT_EQ(frameOf(window), WindowSpec{}.frame);
}

TEST_F(LayoutEngineTests, aPlacedWindowIsToldWithItsFrameBeforeAndAfter)
{
    const Rect reached{630, 35, 800, 855}; // wider than its pane, which ends there, too
    const AXWindow window = open({.title = u"Notes"_s, .frame = onTheLeft, .minimum = {800, 1}});
    engine.gap = 10;

    (void)apply({.displays = {{u"Gone"_s, 1, 1}, {u"Laptop"_s, 800, 600}},
        .panes = {{.display = 1, .rect = right().rect, .app = editorApp}}});

    EXPECT_EQ(results[0].status, (Status{Status::Placed{u"Notes"_s, reached, onTheLeft, false}}));
    EXPECT_EQ(frameOf(window), reached);
    EXPECT_EQ(placedFrom, QList{onTheLeft});
}

TEST_F(LayoutEngineTests, panesTakeTheirOwnAppsWindowsInOrderAndOneTooManyWaitsInVain)
{
    const AXWindow second = open();
    const AXWindow foreign = open({.application = mail.bundleID});
    open({.minimised = true});
    open({.onOtherWorkspace = true});
    open({.kind = WindowKind::dialog});
    const AXWindow first = open();
    const AXWindow third = openOf(editorApp);

    EXPECT_EQ(fill({left(), right(), left(), left(mail), left()}),
        u"placed placed placed placed noWindow"_s);

    EXPECT_EQ(placed, (QList{first, second, third, foreign}));
    EXPECT_EQ(platform.windows().movesAhead().first().size(), 4);
    EXPECT_EQ(applied, 34 * 600ms);
}

TEST_F(LayoutEngineTests, aPaneThatNamesItsWindowClaimsItFirstAndTakesNoOther)
{
    const AXWindow plain = open({.title = u"Notes"_s});
    const AXWindow named = open({.title = u"ÉTÉ – οδοστρωτήρας"_s});

    EXPECT_EQ(fill({left(), right(editorApp, u"été – ΟΔΟΣ"_s), left(editorApp, u"Note 2"_s)}),
        u"placed placed noWindow"_s);
    EXPECT_EQ(frameOf(plain), onTheLeft);
    EXPECT_EQ(frameOf(named), onTheRight);

    Pane gone = right(editorApp, u"closed since"_s);
    gone.capturedTitle = gone.titleContains; // it prefers the title, and demands none
    EXPECT_EQ(fill({gone, left(editorApp, u"notes"_s)}), u"placed placed"_s);
    EXPECT_EQ(frameOf(plain), onTheLeft);
}

TEST_F(LayoutEngineTests, appsAreOpenedAndAskedForWindowsOneByOneAndNoneTooMany)
{
    using enum SimulatedInstallation::FurtherStart;
    const QString both = u"placed placed"_s;
    const QString neither = u"launched launched"_s;
    const QString onlyOne = u"placed noWindow"_s;
    const WindowSpec splash{.kind = WindowKind::splash};
    const QList<WindowSpec> pair(2);
    const Pane closed{.rect = right().rect, .app = mail, .launch = false};
    const QList<Pane> opened{left(mail), closed};
    const QList<Pane> two{left(mail), right(mail)};
    const QList<Pane> three = two + QList{left(mail)};
    // The windows open at first; at 0 it does not run, below it lives on without any. The panes, what
    // becomes of them, the windows open then, and how long it lasts.
    using Example = std::tuple<const char *, SimulatedInstallation, int, QList<Pane>, QString, int,
        Clock::Duration>;
    const Example examples[]{
        {"at once", {.windows = pair}, 0, opened, both, 2, 2500ms},
        {"very slow", {.windows = pair, .opensAfter = 12s}, 0, opened, both, 2, 14700ms},
        {"one window only", {.windows = {{}}}, 0, opened, u"placed launched"_s, 1, 20400ms},
        {"no window", {.opensAfter = {}}, 0, opened, neither, 0, 28400ms},
        {"exits", {.splash = splash, .exitsAfter = 0s}, 0, opened, neither, 0, 20650ms},
        {"is asked, too", {.opensAfter = 2s, .furtherStart = window}, 0, two, both, 2, 7500ms},
        {"lives on", {.furtherStart = window}, -1, {two[0]}, u"placed"_s, 1, 2750ms},
        {"a start is one", {.furtherStart = window}, 1, three, both + u" placed"_s, 3, 4s},
        {"a start is a process", {}, 1, two, both, 2, 2750ms},
        {"has but one", {.hasOneWindow = true}, 1, two, onlyOne, 1, 20400ms},
        {"in vain", {.furtherStart = windowIfItHasNone}, 1, two, u"placed launched"_s, 1, 28400ms},
        {"off", {.furtherStart = window}, 1, {two[0], closed}, onlyOne, 1, 20400ms},
        {"a title", {.furtherStart = window}, 1, {two[0], right(mail, u"B"_s)}, onlyOne, 1,
            20400ms},
    };

    for (const auto &[name, habits, windows, panes, outcomes, windowsThen, lasts] : examples) {
        SCOPED_TRACE(name);
        Desk desk;
        desk.open();
        SimulatedInstallation application = habits;
        application.bundleIdentifier = mail.bundleID;
        if (application.windows.isEmpty())
            application.windows << WindowSpec{.title = u"New"_s};
        desk.desktop.install(application);
        const auto first = windows != 0 ? std::optional(desk.openOf(mail)) : std::nullopt;
        if (windows < 0)
            desk.desktop.closeWindow(first->element);
        desk.advance(30s);

        EXPECT_EQ(desk.fill(panes), outcomes);

        EXPECT_EQ(desk.desktop.stack().size() - 1, windowsThen);
        EXPECT_EQ(desk.applied - 30s, lasts);
        for (qsizetype i = 0; i < desk.placed.size(); ++i)
            EXPECT_EQ(desk.frameOf(desk.placed[i]), i % 2 == 0 ? onTheLeft : onTheRight);
    }
}

TEST(RestoredSizeTests, anOpenedWindowIsPutBackUnlessItInsistsOrTheUserMovedIt)
{
    QList<Clock::Duration> insisting;
    for (Clock::Duration time = 300ms; time < 20s; time += 300ms)
        insisting << time;

    EXPECT_TRUE(isPutBack({300ms}) && isPutBack({2s}) && isPutBack({1s, 1800ms}));
    EXPECT_FALSE(isPutBack(insisting));
    EXPECT_FALSE(isPutBack({1s}, [](Desk &desk) { desk.platform.session().isButtonDown = true; }));
    EXPECT_FALSE(isPutBack({1s}, [](Desk &desk) { desk.engine.leaveAlone(desk.placed.first()); }));
}

/// Of A, L and C, front to back, above a window of the user's, U.
TEST(LateWindowTests, aLateWindowDelaysNoOtherAndJoinsTheStackWithoutTheFocus)
{
    const std::tuple<QString, Clock::Duration, QString> examples[]{// who takes the focus, and when
        {u"A"_s, 3s, u"ALCU"_s}, {u"L"_s, 3s, u"ALCU"_s}, {u"L"_s, 3100ms, u"ALCU"_s},
        {u"U"_s, 3s, u"UALC"_s}};
    const QList<Pane> panes{Desk::left(Desk::editorApp, u"A"_s, 0),
        Desk::left(Desk::editorApp, u"C"_s, 2), Desk::left(Desk::mail, u"L"_s, 1)};
    const SimulatedInstallation slow{
        .bundleIdentifier = Desk::mail.bundleID, .windows = {{.title = u"L"_s}}, .opensAfter = 3s};

    for (const auto &[focused, time, stack] : examples) {
        Desk desk;
        desk.desktop.install(slow);
        desk.openOf({u"org.example.User"_s, {}}, {.title = u"U"_s});
        desk.open({.title = u"A"_s});
        desk.open({.title = u"C"_s});
        desk.later(time, [&desk, title = focused] {
            desk.desktop.catchUp();
            const WindowElement window = desk.desktop.stack()[desk.stack().indexOf(title)];
            desk.desktop.raise(window);
            desk.desktop.focus(window);
        });

        EXPECT_EQ(desk.fill(panes), u"placed placed placed"_s);

        EXPECT_EQ(desk.placedAt, (QList<Clock::Duration>{0s, 0s, 3s}));
        EXPECT_EQ(desk.desktop.focused(), desk.desktop.stack().first());
        EXPECT_EQ(desk.stack(), stack);
    }
}

TEST_F(LayoutEngineTests, theNextApplyOpensNothingTwiceAndEndsTheOneBefore)
{
    desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{}}, .opensAfter = 5900ms});
    open();
    QString first;
    const auto keep = [&](const QList<PaneResult> &done) { first = statusText(done[0].status); };
    const WindowLayout layout{.displays = Screens::signature(), .panes = {left(mail)}};
    const auto task = engine.apply(layout, 8s, 20s).then(keep);
    advance(5800ms);

    EXPECT_EQ(fill({left()}), u"placed"_s);
    EXPECT_EQ(fill({right(mail)}), u"placed"_s);
    EXPECT_EQ(first, u"had no window yet when the next layout was applied"_s);
    advance(6s); // another copy would have a window by now
    EXPECT_EQ(desktop.stack().size(), 2);

    desktop.quit(placed.last().pid); // it has shown its window, and comes up no more
    EXPECT_EQ(fill({left(mail)}), u"placed"_s);
}

TEST_F(LayoutEngineTests, aPaneWhoseWindowClosesWhileItsAppLoadsGetsTheNextOne)
{
    open();
    desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{.title = u"Loading"_s}}});
    later(1s, [this] { desktop.closeWindow(placed.first().element); });
    AXWindow main;
    later(2s,
        [&] { main = openFrom(placed.first().pid, {.title = u"Main"_s, .takesFocus = false}); });

    EXPECT_EQ(fill({left(mail), left(mail, u"Inbox"_s)}), u"placed launched"_s);

    EXPECT_EQ(frameOf(main), onTheLeft);
    EXPECT_EQ(AXWindow::focused().window, main);
    EXPECT_EQ(said(1), u"was opened, and its window is not the one named"_s);
}

TEST_F(LayoutEngineTests, whatClosesOrQuitsMeanwhileIsReplacedOrGivenUp)
{
    const AXWindow stays = open();
    for (int calls = 0; calls < 5; ++calls) {
        open({.vanishesAfterCalls = calls});
        drag(stays, {10, 40, 300, 300});
        EXPECT_EQ(fill({left()}), u"placed"_s) << calls;
        EXPECT_EQ(frameOf(stays), onTheLeft) << calls;
    }

    const AXWindow other = openOf(mail);
    later(2s, [this] { desktop.quit(editor); });
    EXPECT_EQ(fill({left(mail), right(), left()}), u"placed placed noWindow"_s);
    EXPECT_EQ(AXWindow::focused().window, other);
}

TEST_F(LayoutEngineTests, aRefusalConcernsItsPaneOnlyAndIsNotTriedAgain)
{
    const AXWindow willing = open();
    open({.refusesPosition = AXError::failure, .refusalDetail = u"pinned"_s});
    open({.fullScreen = true});

    EXPECT_EQ(fill({left(), left(), right()}), u"refused refused placed"_s);

    EXPECT_EQ(said(1), u"could not set position (AXError -25200): pinned"_s);
    EXPECT_EQ(frameOf(willing), onTheRight);
    EXPECT_EQ(placed, (QList{willing}));
    EXPECT_EQ(applied, 0ms);
}

TEST_F(LayoutEngineTests, anAppThatHangsCostsOneSecondAndNobodyElse)
{
    const AXWindow window = openOf(mail);
    open({.title = u"A"_s});
    open({.title = u"B"_s});
    const QList<Pane> panes{right(mail), left(), right(), left()};

    engine.onPlaced = [&](auto &&...) { desktop.application(editor).hung = true; };
    EXPECT_EQ(fill(panes, 0s), u"placed refused refused noWindow"_s);
    EXPECT_EQ(applied, 1s);
    EXPECT_EQ(AXWindow::focused().window, window);

    EXPECT_EQ(fill(panes), u"placed noWindow noWindow noWindow"_s);
    EXPECT_EQ(applied, 2s + 34 * 600ms);
}

} // namespace corvane
