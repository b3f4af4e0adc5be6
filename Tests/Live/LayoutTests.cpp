#include "LayoutRuns.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr UnitRect leftHalf{0, 0, 0.5, 1};
constexpr UnitRect rightHalf{0.5, 0, 0.5, 1};
constexpr UnitRect middle{0.25, 0.25, 0.5, 0.5};

class LayoutTests : public LayoutRuns
{
protected:
    /// Applies a layout for the one display.
    AppliedLayout applyPanes(const QList<Pane> &panes)
    {
        keep({layout(panes)});
        return apply(u"Desk"_s);
    }

    static WindowLayout layout(const QList<Pane> &panes)
    {
        return {.name = u"Desk"_s, .displays = keysOf({standardDisplay}), .panes = panes};
    }

    void expectFrame(xcb_window_t window, const UnitRect &rect)
    {
        const Rect expected = frameOf(rect, standardDisplay);
        EXPECT_EQ(reached(window, expected), expected);
    }

    xcb_window_t showFullScreen(const QByteArray &title)
    {
        const xcb_window_t window = showAt({300, 300, 400, 300}, title);
        pager().setFullScreen(window, Pager::Change::add);
        EXPECT_TRUE(
            waitUntil([&] { return probe().hasState(window, "_NET_WM_STATE_FULLSCREEN"); }));
        EXPECT_EQ(reached(window, standardDisplay), standardDisplay);
        return window;
    }

    // Its window's class is the application's id.
    std::unique_ptr<ChildProcess> startTerminal(const QString &app, const QString &title)
    {
        return desktop().launch(u"xterm"_s, {u"-class"_s, app, u"-T"_s, title, u"-e"_s, u"cat"_s});
    }

    xcb_window_t windowOfProcess(ChildProcess &process)
    {
        return probe().waitForWindow([&, pid = process.pid()](xcb_window_t window) {
            return probe().hasProcess(window, pid);
        });
    }
};

// From left to right.
std::string titles(const WindowLayout &layout)
{
    QStringList titles;
    for (const Pane &pane : layout.panes)
        titles << pane.titleContains.value_or(u"none"_s);
    return titles.join(u", "_s).toStdString();
}

Pane stacked(Pane pane, int stack)
{
    pane.stack = stack;
    return pane;
}

} // namespace

TEST_F(LayoutTests, windowsOfOneApplicationAreToldApartByTheirTitles)
{
    const InstalledApp app(desktop(), u"corvane.test.terminal"_s, {u"xterm"_s});
    const auto first = startTerminal(app.id(), u"Upper terminal"_s);
    const auto second = startTerminal(app.id(), u"Lower terminal"_s);
    const xcb_window_t upper = windowOfProcess(*first);
    const xcb_window_t lower = windowOfProcess(*second);
    Pane right = paneFor(app.id(), rightHalf);
    right.titleContains = u"UPPER"_s;
    Pane left = paneFor(app.id(), leftHalf);
    left.titleContains = u"lower term"_s;

    const auto applied = applyPanes({right, left});

    EXPECT_EQ(applied.exitStatus, 0);
    // Terminals come in whole characters.
    constexpr double character = 20;
    EXPECT_LT(distance(frame(upper), frameOf(rightHalf, standardDisplay)), character);
    EXPECT_LT(distance(frame(lower), frameOf(leftHalf, standardDisplay)), character);
}

TEST_F(LayoutTests, windowsWithoutTitlesAreTakenFromTheFront)
{
    const xcb_window_t back = showAt({300, 300, 400, 300}, "");
    const xcb_window_t front = showFocused({.geometry = {900, 300, 400, 300}, .title = ""});

    const auto applied = applyPanes({clientPane(leftHalf), clientPane(rightHalf)});

    EXPECT_EQ(applied.exitStatus, 0);
    expectFrame(front, leftHalf);
    expectFrame(back, rightHalf);
}

TEST_F(LayoutTests, aWindowThatRefusesToMoveHoldsUpNoOther)
{
    const xcb_window_t first = showAt({700, 300, 400, 300}, "First");
    const xcb_window_t last = showAt({900, 300, 400, 300}, "Last");
    const xcb_window_t stubborn = showFullScreen("Stubborn");

    const auto applied = applyPanes({clientPane(leftHalf, u"First"_s),
        clientPane(middle, u"Stubborn"_s), clientPane(rightHalf, u"Last"_s)});

    EXPECT_EQ(applied.statuses(), "placed refused placed");
    ASSERT_EQ(applied.panes.size(), 3);
    EXPECT_EQ(applied.panes[1].reason, u"window is in native full screen"_s);
    EXPECT_EQ(applied.exitStatus, 1);
    expectFrame(first, leftHalf);
    expectFrame(last, rightHalf);
    EXPECT_EQ(frame(stubborn), standardDisplay);
}

TEST_F(LayoutTests, theWindowPlacedLastHasTheFocusAndNothingIsClosedOrMinimised)
{
    const xcb_window_t bystander = showAt({100, 700, 300, 200}, "Bystander");
    const Rect before = frame(bystander);
    const xcb_window_t bottom = showAt({300, 300, 400, 300}, "Bottom");
    const xcb_window_t top = showAt({500, 300, 400, 300}, "Top");
    const xcb_window_t between =
        showFocused({.geometry = {700, 300, 400, 300}, .title = "Between"});

    const auto applied = applyPanes(
        {stacked(clientPane(middle, u"Top"_s), 0), stacked(clientPane(leftHalf, u"Bottom"_s), 7),
            stacked(clientPane(rightHalf, u"Between"_s), 3)});

    EXPECT_EQ(applied.exitStatus, 0);
    EXPECT_TRUE(waitUntil([&] { return probe().activeWindow() == top; }));
    EXPECT_TRUE(waitUntil([&] {
        return probe().stacking() == QList<xcb_window_t>{bystander, bottom, between, top};
    }));
    for (const xcb_window_t window : {bystander, bottom, top, between})
        EXPECT_TRUE(probe().isManaged(window) && !probe().isMinimized(window));
    EXPECT_EQ(frame(bystander), before);
}

TEST_F(LayoutTests, onlyWhatCanBeSeenIsCaptured)
{
    showMinimized("Minimised");
    showElsewhere("Elsewhere");
    showFullScreen("Full screen");
    for (const auto &[place, title] : {std::pair(Rect{100, 100, 500, 400}, "Left"),
             {Rect{800, 100, 500, 400}, "Right"}, {Rect{1500, 800, 90, 40}, "Small"}})
        ASSERT_TRUE(focus(showAt(place, title)));

    const WindowLayout captured = capture(u"Seen"_s);

    EXPECT_EQ(titles(captured), "Left, Right");
    EXPECT_EQ(captured.displays, keysOf({standardDisplay}));
}

TEST_F(LayoutTests, aNewApplyEndsOneThatStillWaits)
{
    const xcb_window_t window = showAt({300, 300, 400, 300}, "Window");
    WindowLayout waiting =
        layout({clientPane(leftHalf, u"Window"_s), clientPane(middle, u"No window"_s)});
    waiting.name = u"Waiting"_s;
    keep({waiting, layout({clientPane(rightHalf, u"Window"_s)})});
    const auto first = desktop().launch(programUnderTest(), {u"--apply-layout"_s, waiting.name});
    expectFrame(window, leftHalf);

    EXPECT_EQ(apply(u"Desk"_s).exitStatus, 0);

    EXPECT_EQ(first->waitForExit(Milliseconds{5000}), 1);
    expectFrame(window, rightHalf);
}

TEST_F(LayoutTests, anUntouchedDeskStaysAsItIs)
{
    QList<xcb_window_t> windows;
    QList<Rect> before;
    for (const Rect &place :
        {Rect{13, 57, 501, 333}, Rect{777, 111, 613, 707}, Rect{231, 433, 399, 501}}) {
        windows << showAt(place, QByteArray("Window ") + char('1' + windows.size()));
        before << frame(windows.last());
    }
    const QList<xcb_window_t> stacking = probe().stacking();
    ASSERT_EQ(capture(u"Now"_s).panes.size(), windows.size());

    const auto applied = apply(u"Now"_s);

    EXPECT_EQ(applied.exitStatus, 0);
    for (qsizetype i = 0; i < windows.size(); ++i)
        EXPECT_EQ(frame(windows[i]), before[i]);
    EXPECT_TRUE(waitUntil([&] { return probe().stacking() == stacking; }));
}

TEST_F(LayoutTests, aShortcutAppliesItsLayoutAndSnapBackUndoesIt)
{
    const xcb_window_t window = showAt({300, 300, 400, 300}, "Window");
    const Rect before = frame(window);
    WindowLayout desk = layout({clientPane(rightHalf, u"Window"_s)});
    constexpr quint16 keyMinus = 27;
    desk.shortcut = KeyCombo(keyMinus, KeyCombo::control | KeyCombo::option | KeyCombo::command);
    keep({desk});

    press({strokes::hyper, Key::minus});

    expectFrame(window, rightHalf);
    EXPECT_TRUE(waitUntil([&] { return applies() == 1; }));
    EXPECT_TRUE(moved(corvane().place(u"snapBack"_s)));
    EXPECT_EQ(reached(window, before), before);
}

} // namespace corvane::desktop
