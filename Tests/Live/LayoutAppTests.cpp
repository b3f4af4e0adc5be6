#include "LayoutRuns.h"

#include <QtCore/QFile>

#include <cmath>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Habit {
    const char *name;
    QStringList steps;
    const char *status;
    bool staysOpen;
    qsizetype starts = 1;
};

// What is to become of a pane, and which window ends up in it.
struct Expectation {
    Pane pane;
    const char *status;
    std::function<xcb_window_t()> window = {};
};

// One layout and one run for all of them: a pane without a window keeps its run waiting.
class LayoutAppTests : public LayoutRuns
{
protected:
    void TearDown() override
    {
        m_service.reset();
        m_apps.clear();
        LayoutRuns::TearDown();
    }

    QString pipe() { return desktop().folder() + u"/only-one"_s; }

    QList<Habit> habits()
    {
        return {
            {"slow", {u"wait=6000"_s, u"open=Slow"_s}, "placed", true},
            {"late", {u"wait=11000"_s, u"open=Late"_s}, "placed", true},
            {"splashing", {u"splash"_s, u"wait=2000"_s, u"open=Main"_s, u"close"_s}, "placed",
                true},
            {"only", {u"only-one="_s + pipe(), u"open=By the first copy"_s}, "placed", true, 2},
            {"restless", {u"open=Restless"_s, u"wait=300"_s, u"resize=700x300"_s}, "placed", true},
            {"restoring", {u"open=Restoring"_s, u"wait=1900"_s, u"resize=700x300"_s}, "placed",
                true},
            // Not at once: the frame that it took has to be read before it is gone.
            {"leaving", {u"open=Leaving"_s, u"wait-until-resized"_s, u"wait=1000"_s, u"quit"_s},
                "placed", false},
            {"loading",
                {u"open=Loading"_s, u"wait=1500"_s, u"close"_s, u"wait=1500"_s, u"open=Main"_s},
                "placed", true},
            {"hasty", {u"quit"_s}, "launched", false},
            {"mute", {}, "launched", false},
        };
    }

    InstalledApp &install(const QString &name, const QStringList &steps)
    {
        m_apps.push_back(InstalledApp::scripted(desktop(), u"corvane.test."_s + name, steps));
        return *m_apps.back();
    }

    void expect(Pane pane, const char *status, const std::function<xcb_window_t()> &window = {})
    {
        const auto index = static_cast<double>(m_expected.size());
        pane.rect = {0.2 * std::fmod(index, 5), 0.25 * std::floor(index / 5), 0.2, 0.25};
        m_expected << Expectation{pane, status, window};
    }

    void expectApps()
    {
        for (const Habit &habit : habits()) {
            const InstalledApp *app = &install(QLatin1StringView(habit.name), habit.steps);
            expect(paneFor(app->id(), {}), habit.status);
            if (habit.staysOpen)
                m_expected.last().window = [this, app] { return windowOf(*app); };
            if (habit.starts == 2)
                m_service = app->start();
        }
    }

    void expectWindowsOfARunningApp(xcb_window_t only)
    {
        expect(clientPane({}), "placed", [only] { return only; });
        expect(clientPane({}), "noWindow");
        expect(clientPane({}, u"Another title"_s), "noWindow");
        expect(clientPane({}, u"Minimised"_s), "noWindow");
        expect(clientPane({}, u"Elsewhere"_s), "noWindow");
    }

    void expectWhatNeedsNoWindow()
    {
        expect({}, "empty");
        expect(paneFor(u"corvane.test.absent"_s, {}), "notInstalled");
        Pane closed = paneFor(install(u"closed"_s, {u"open=Closed"_s}).id(), {});
        closed.launch = false;
        expect(closed, "notRunning");
    }

    void expectRightStarts()
    {
        for (qsizetype i = 0; i < habits().size(); ++i) {
            const Habit habit = habits()[i];
            EXPECT_EQ(m_apps[static_cast<size_t>(i)]->starts(), habit.starts) << habit.name;
        }
        EXPECT_EQ(m_apps.back()->starts(), 0) << "not to be opened";
    }

    WindowLayout layout() const
    {
        WindowLayout layout{.name = u"Desk"_s, .displays = keysOf({standardDisplay})};
        for (const Expectation &each : m_expected)
            layout.panes << each.pane;
        return layout;
    }

    QList<Expectation> m_expected;
    std::vector<std::unique_ptr<InstalledApp>> m_apps;
    std::unique_ptr<ChildProcess> m_service; ///< the first copy of the one that opens only once
};

} // namespace

TEST_F(LayoutAppTests, everyPaneIsFilledOrTellsWhyNotWhateverItsApplicationDoes)
{
    expectApps();
    const xcb_window_t minimized = showMinimized("Minimised");
    const xcb_window_t elsewhere = showElsewhere("Elsewhere");
    const Rect before = frame(elsewhere);
    expectWindowsOfARunningApp(showAt({300, 300, 400, 300}, ""));
    expectWhatNeedsNoWindow();
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(pipe()); }));
    keep({layout()});

    const auto applied = apply(u"Desk"_s, Milliseconds{40000});

    EXPECT_EQ(applied.exitStatus, 1);
    EXPECT_LT(applied.duration, Milliseconds{36000});
    ASSERT_EQ(applied.panes.size(), m_expected.size());
    for (qsizetype i = 0; i < m_expected.size(); ++i) {
        const auto &[pane, status, window] = m_expected[i];
        SCOPED_TRACE(testing::Message() << "pane " << i);
        EXPECT_STREQ(qPrintable(applied.panes[i].status), status);
        const Rect target = frameOf(pane.rect, standardDisplay);
        if (window) {
            EXPECT_EQ(reached(window(), target), target);
        }
    }
    expectRightStarts();
    EXPECT_TRUE(probe().isMinimized(minimized));
    EXPECT_EQ(workspaceOf(elsewhere), 1u);
    EXPECT_EQ(frame(elsewhere), before);
}

TEST_F(LayoutAppTests, aSplashScreenIsNotTakenForTheWindowThatItAnnounces)
{
    const InstalledApp &app = install(
        u"splashing"_s, {u"splash"_s, u"wait=2500"_s, u"open=Main"_s, u"wait=500"_s, u"close"_s});
    expect(paneFor(app.id(), {}), "placed");
    keep({layout()});

    const auto applied = apply(u"Desk"_s, Milliseconds{40000});

    EXPECT_EQ(applied.exitStatus, 0);
    ASSERT_EQ(applied.panes.size(), 1);
    EXPECT_STREQ(qPrintable(applied.panes.first().windowTitle), "Main");
    const Rect target = frameOf(m_expected.first().pane.rect, standardDisplay);
    EXPECT_EQ(reached(windowOf(app), target), target);
    EXPECT_EQ(app.starts(), 1);
}

TEST_F(LayoutAppTests, anOpenedWindowNeitherTakesTheFocusNorDemandsAttention)
{
    const xcb_window_t users = showFocused();
    const InstalledApp &app =
        install(u"pushing"_s, {u"open=Pushing"_s, u"demand-attention"_s, u"open=Second"_s});
    Pane pane = paneFor(app.id(), {});
    pane.titleContains = u"Another title"_s; // placed, it would have the focus
    expect(pane, "launched");
    keep({layout()});
    EXPECT_TRUE(focus(users));

    const auto applied = apply(u"Desk"_s, Milliseconds{40000});

    EXPECT_EQ(applied.statuses(), "launched");
    EXPECT_EQ(probe().activeWindow(), users);
    const xcb_window_t second = probe().waitForWindow(
        [&](xcb_window_t window) { return probe().hasClass(window, app.id().toLatin1()); });
    EXPECT_NE(second, users);
    for (const xcb_window_t window : probe().clients())
        EXPECT_FALSE(probe().hasState(window, "_NET_WM_STATE_DEMANDS_ATTENTION"));
}

TEST_F(LayoutAppTests, aSlowWindowJoinsTheStackUnderTheFrontOneWhichKeepsTheFocus)
{
    const InstalledApp &app = install(u"slow"_s, {u"wait=3000"_s, u"open=Slow"_s});
    const xcb_window_t front = showFocused({.geometry = {900, 300, 400, 300}, .title = "Front"});
    const xcb_window_t back = showAt({300, 300, 400, 300}, "Back");
    for (const auto &[pane, stack] : {std::pair(clientPane({}, u"Front"_s), 0),
             {clientPane({}, u"Back"_s), 2}, {paneFor(app.id(), {}), 1}}) {
        expect(pane, "placed");
        m_expected.last().pane.rect = {0.2, 0.2, 0.6, 0.6};
        m_expected.last().pane.stack = stack;
    }
    m_expected.last().pane.titleContains = u"Slow"_s;
    keep({layout()});
    const auto run = desktop().launch(programUnderTest(), {u"--apply-layout"_s, u"Desk"_s});
    const Rect target = frameOf(m_expected.first().pane.rect, standardDisplay);

    EXPECT_EQ(reached(front, target), target);
    EXPECT_EQ(reached(back, target), target);
    const xcb_window_t slow = windowOf(app);
    EXPECT_EQ(reached(slow, target), target);

    const QList<xcb_window_t> stacking{back, slow, front};
    EXPECT_TRUE(waitUntil([&] { return probe().stacking() == stacking; }))
        << testing::PrintToString(probe().stacking()) << ", not "
        << testing::PrintToString(stacking);
    EXPECT_TRUE(waitUntil([&] { return probe().activeWindow() == front; }))
        << probe().activeWindow() << ", not " << front << "; late: " << slow;
    EXPECT_EQ(run->waitForExit(Milliseconds{10000}), 0);
}

} // namespace corvane::desktop
