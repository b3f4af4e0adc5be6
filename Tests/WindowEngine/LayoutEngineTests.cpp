#include "Desk.h"
#include "Geometry.h"
#include "Screens.h"

namespace corvane {

using Status = PaneResult::Status;

namespace {

class LayoutEngineTests : public testing::Test, protected Desk
{
};

/// Whole points, inside what is visible of one display and no nearer to its edges than the gap.
Rect anyFrame(Desk &desk)
{
    const Rect area = Geometry::inset(anyOf(desk.desktop.screens()).visibleFrame, desk.engine.gap);
    const int width = between(100, int(area.width));
    const int height = between(80, int(area.height));
    return {area.x + between(0, int(area.width) - width),
        area.y + between(0, int(area.height) - height), double(width), double(height)};
}

/// It prefers the title, and demands none.
Pane captured(Pane pane)
{
    pane.capturedTitle = pane.titleContains;
    return pane;
}

/// Whether an opened window is put back that takes a frame of its own at these times.
bool isPutBack(const QList<Clock::Duration> &times, const std::function<void(Desk &)> &before = {})
{
    const Rect own{300, 200, 640, 480};
    Desk desk;
    desk.desktop.install({.bundleIdentifier = Desk::mail.bundleID, .windows = {{}}});
    for (const Clock::Duration time : times) {
        desk.later(time, [&] {
            if (before)
                before(desk);
            desk.drag(desk.placed.first(), own);
        });
    }

    (void)desk.fill({Desk::left(Desk::mail)});

    const auto &placed = std::get<Status::Placed>(desk.results[0].status.value);
    EXPECT_EQ(placed.frame, Desk::onTheLeft);
    EXPECT_EQ(desk.placedFrom.last() == own, desk.placed.size() > 1);
    EXPECT_LE(desk.applied, 5100ms);
    return desk.frameOf(desk.placed.first()) == Desk::onTheLeft;
}

/// A layout of A, L and C, front to back, above a window of the user's, U. L comes after three seconds.
struct LateWindow : Desk {
    void comeForward(const QString &title)
    {
        const WindowElement window = desktop.stack()[stack().indexOf(title)];
        desktop.raise(window);
        desktop.focus(window);
    }

    QString stackAfter(const std::function<void()> &event)
    {
        desktop.install(
            {.bundleIdentifier = mail.bundleID, .windows = {{.title = u"L"_s}}, .opensAfter = 3s});
        openOf({u"org.example.User"_s, {}}, {.title = u"U"_s});
        open({.title = u"A"_s});
        open({.title = u"C"_s});
        later(3s, [&] {
            desktop.catchUp();
            event();
        });

        EXPECT_EQ(
            fill({left(editorApp, u"A"_s, 0), left(editorApp, u"C"_s, 2), left(mail, u"L"_s, 1)}),
            u"placed placed placed"_s);

        EXPECT_EQ(placedAt, (QList<Clock::Duration>{0s, 0s, 3s}));
        EXPECT_EQ(desktop.focused(), desktop.stack().first());
        return stack();
    }
};

} // namespace

/// Windows that are mostly hidden are not captured, and not placed.
RC_GTEST_PROP(LayoutEngineProperties, aDeskComesBackWhetherScatteredOrLeftAlone, ())
{
    Desk desk;
    desk.plugMonitor();
    desk.engine.gap = coin() ? 12 : 0;
    desk.desktop.bringsOneForward = coin();
    const pid_t other = desk.desktop.start(Desk::mail.bundleID, {});
    QList<AXWindow> windows;
    QHash<AXWindow, Rect> frames;
    for (const QChar title : u"ABCDEFabcdef"_s.first(between(1, 12))) {
        const Rect frame = anyFrame(desk);
        windows << desk.openFrom(title.isUpper() ? desk.editor : other, {title, frame});
        frames.insert(windows.last(), frame);
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
    const auto stackOf = [&titles](QString stack, bool isUpper) {
        stack.removeIf([&](QChar c) { return c.isUpper() != isUpper || !titles.contains(c); });
        return stack;
    };
    for (const bool isUpper : {false, true})
        RC_ASSERT(stackOf(desk.stack(), isUpper) == stackOf(before, isUpper));
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
    EXPECT_EQ(said(0), u"accessibility not granted"_s);
    EXPECT_EQ(frameOf(window), WindowSpec{}.frame);
    EXPECT_EQ(diagnostics, QStringList());
}

TEST_F(LayoutEngineTests, aPlacedWindowIsToldWithItsFrameBeforeAndAfter)
{
    const Rect before{50, 60, 700, 500};
    const Rect reached{630, 35, 800, 855}; // wider than its pane, which ends there, too
    const AXWindow window = open({.title = u"Notes"_s, .frame = before, .minimum = {800, 1}});
    engine.gap = 10;
    Pane pane = right();
    pane.display = 1;

    (void)apply(
        {.displays = {{u"Gone"_s, 1, 1}, {u"Laptop"_s, 800, 600}}, .panes = {left(), pane}});

    EXPECT_EQ(results[0].status, Status{Status::DisplayMissing{}});
    EXPECT_EQ(results[1].status, (Status{Status::Placed{u"Notes"_s, reached, before, false}}));
    EXPECT_EQ(frameOf(window), reached);
    EXPECT_EQ(placedFrom, (QList{before}));
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
    EXPECT_EQ(said(4), u"is running but has no window to place"_s);
    EXPECT_EQ(applied, 34 * 600ms);
    EXPECT_EQ(diagnostics,
        QStringList{u"waited out 34 rounds for apps still coming up; 1 never settled"_s});
}

TEST_F(LayoutEngineTests, aPaneThatNamesItsWindowClaimsItFirstAndTakesNoOther)
{
    const AXWindow plain = open({.title = u"Notes"_s});
    const AXWindow named = open({.title = u"ÉTÉ – οδοστρωτήρας"_s});

    EXPECT_EQ(fill({left(), right(editorApp, u"été – ΟΔΟΣ"_s), left(editorApp, u"Note 2"_s)}),
        u"placed placed noWindow"_s);
    EXPECT_EQ(frameOf(plain), onTheLeft);
    EXPECT_EQ(frameOf(named), onTheRight);

    const Pane gone = captured(right(editorApp, u"closed since"_s));
    EXPECT_EQ(fill({gone, left(editorApp, u"notes"_s)}), u"placed placed"_s);
    EXPECT_EQ(frameOf(plain), onTheLeft);
}

TEST_F(LayoutEngineTests, appsAreOpenedAndAskedForWindowsOneByOneAndNoneTooMany)
{
    using enum InstalledApplication::FurtherStart;
    struct Example {
        const char *name;
        InstalledApplication habits;
        int windows; ///< open at first; none: it does not run; below zero: it lives on without any
        QList<Pane> panes;
        QString outcomes;
        int windowsThen;
        Clock::Duration lasts;
    };
    const QString both = u"placed placed"_s;
    const QString neither = u"launched launched"_s;
    const QString allThree = u"placed placed placed"_s;
    const auto hidden = Installation::State::hidden;
    const WindowSpec splash{.kind = WindowKind::splash};
    const QList<WindowSpec> late(2, {.resizesAfter = 100ms});
    const QList<WindowSpec> pair(2);
    const Pane closed{.rect = right().rect, .app = mail, .launch = false};
    const QList<Pane> opened{left(mail), closed};
    const QList<Pane> two{captured(left(mail, u"A"_s)), captured(right(mail, u"B"_s))};
    const QList<Pane> three = two + QList{left(mail)};
    const Example examples[]{
        {"at once", {.windows = pair}, 0, opened, both, 2, 2500ms},
        {"hidden", {.state = hidden, .windows = pair}, 0, opened, both, 2, 2500ms},
        {"slow", {.windows = pair, .opensAfter = 3s}, 0, opened, both, 2, 5500ms},
        {"very slow", {.windows = pair, .opensAfter = 12s}, 0, opened, both, 2, 14700ms},
        {"resizes late", {.windows = late}, 0, opened, both, 2, 2620ms},
        {"one window only", {.windows = {{}}}, 0, opened, u"placed launched"_s, 1, 20400ms},
        {"splash first", {.windows = pair, .opensAfter = 2s, .splash = splash}, 0, opened, both, 2,
            4500ms},
        {"splash only", {.opensAfter = {}, .splash = splash}, 0, opened, neither, 1, 28400ms},
        {"no window", {.opensAfter = {}}, 0, opened, neither, 0, 28400ms},
        {"exits", {.splash = splash, .exitsAfter = 0s}, 0, opened, neither, 0, 20650ms},
        {"opens, and is asked", {.opensAfter = 2s, .furtherStart = window}, 0, two, both, 2,
            7500ms},
        {"lives on", {.furtherStart = window}, -1, {two[0]}, u"placed"_s, 1, 2750ms},
        {"a start is one", {.furtherStart = window}, 1, three, allThree, 3, 4s},
        {"a start is a process", {}, 1, two, both, 2, 2750ms},
        {"an action is one", {.furtherStart = windowIfItHasNone, .opensFurtherWindows = true}, 1,
            three, allThree, 3, 4s},
        {"has but one", {.hasOneWindow = true}, 1, two, u"placed noWindow"_s, 1, 20400ms},
        {"in vain", {.furtherStart = windowIfItHasNone}, 1, two, u"placed launched"_s, 1, 28400ms},
        {"off", {.furtherStart = window}, 1, {two[0], closed}, u"placed noWindow"_s, 1, 20400ms},
        {"a title", {.furtherStart = window}, 1, {two[0], right(mail, u"B"_s)},
            u"placed noWindow"_s, 1, 20400ms},
    };

    for (const auto &[name, habits, windows, panes, outcomes, windowsThen, lasts] : examples) {
        SCOPED_TRACE(name);
        Desk desk;
        const AXWindow user = desk.open();
        InstalledApplication application = habits;
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
        const AXWindow inFront = desk.placed.isEmpty() ? user : desk.placed.last();
        EXPECT_TRUE(panes != opened || AXWindow::focused().window == inFront);
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

TEST(LateWindowTests, aLateWindowDelaysNoOtherAndJoinsTheStackWithoutTheFocus)
{
    LateWindow quiet;
    EXPECT_EQ(quiet.stackAfter([] {}), u"ALCU"_s);
    LateWindow together;
    together.desktop.bringsOneForward = false;
    EXPECT_EQ(together.stackAfter([] {}), u"ALCU"_s);
    LateWindow eager;
    EXPECT_EQ(eager.stackAfter([&] { eager.comeForward(u"L"_s); }), u"ALCU"_s);
    LateWindow slow;
    const auto takeFocus = [&] { slow.comeForward(u"L"_s); };
    EXPECT_EQ(slow.stackAfter([&] { slow.later(100ms, takeFocus); }), u"ALCU"_s);
    LateWindow left; // by the user
    EXPECT_EQ(left.stackAfter([&] { left.comeForward(u"U"_s); }), u"UALC"_s);
}

TEST_F(LayoutEngineTests, theNextApplyOpensNothingTwiceAndEndsTheOneBefore)
{
    desktop.install({.bundleIdentifier = mail.bundleID, .windows = {{}}, .opensAfter = 5900ms});
    open();
    QString first;
    const auto keep = [&](const QList<PaneResult> &done) { first = statusText(done[0].status); };
    const auto task =
        engine.apply({.displays = Screens::signature(), .panes = {left(mail)}}, 8s, 20s).then(keep);
    advance(5800ms);

    EXPECT_EQ(fill({left()}), u"placed"_s);
    EXPECT_EQ(fill({right(mail)}), u"placed"_s);
    EXPECT_EQ(first, u"had no window yet when the next layout was applied"_s);
    EXPECT_EQ(placed.size(), 2);
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

    EXPECT_EQ(said(0), u"window is in native full screen"_s);
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

    engine.onPlaced = [&](const AXWindow &, const Rect &) {
        desktop.application(editor).hung = true;
    };
    EXPECT_EQ(fill(panes, 0s), u"placed refused refused noWindow"_s);
    EXPECT_EQ(applied, 1s);
    EXPECT_EQ(AXWindow::focused().window, window);

    EXPECT_EQ(fill(panes), u"placed noWindow noWindow noWindow"_s);
    EXPECT_EQ(applied, 2s + 34 * 600ms);
}

} // namespace corvane
