#include "LiveDesk.h"
#include "WindowLayout.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QList<Rect> pair{{0, 0, 1920, 1080}, {1920, 0, 1600, 900}};
const QString clientClass = u"CorvaneTestClient"_s;

/// A column of a fifth of the display.
Pane paneOf(const QString &app, double x, const QString &title = {})
{
    return {.rect = {x, 0, 0.2, 1}, .app = AppRef{app, app}, .titleContains = title};
}

/// As the tests' server names them.
QList<DisplayKey> keysOf(const QList<Rect> &displays)
{
    QList<DisplayKey> keys;
    for (const Rect &display : displays)
        keys << DisplayKey{u"DUMMY%1"_s.arg(keys.size()), static_cast<int>(display.width),
            static_cast<int>(display.height)};
    return keys;
}

class LayoutTests : public LiveTests
{
protected:
    // The next test starts the program again, without the layouts.
    void TearDown() override
    {
        m_apps.clear();
        LiveTests::TearDown();
        corvane().stop();
        QFile::remove(layoutsPath());
    }

    QString layoutsPath() { return desktop().dataFolder() + u"/Corvane/layouts.json"_s; }

    /// Starts the program anew with just this layout, which Ctrl+Alt+Super and the minus key apply.
    void keep(WindowLayout layout)
    {
        constexpr quint16 keyMinus = 27;
        layout.shortcut =
            KeyCombo(keyMinus, KeyCombo::control | KeyCombo::option | KeyCombo::command);
        corvane().stop();
        QDir(desktop().dataFolder()).mkpath(u"Corvane"_s);
        QFile file(layoutsPath());
        const QByteArray text = QJsonDocument(QJsonArray{layout.toJson()}).toJson();
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) && file.flush());
        ASSERT_TRUE(corvane().start()) << qPrintable(desktop().logs());
    }
    void pressApply() { keys().press({strokes::hyper, Key::minus}); }

    /// The windows of how many panes it captured.
    qsizetype capture(const QString &name)
    {
        const auto answer = corvane().ask({u"--capture"_s, name, u"--json"_s});
        return QJsonDocument::fromJson(answer.output).object()["panes"_L1].toArray().size();
    }

    /// What became of the panes, each once, after the layout has been applied.
    std::string apply(const QString &name)
    {
        const auto answer = corvane().ask({u"--apply-layout"_s, name, u"--json"_s}, 9 * patience);
        QStringList statuses;
        for (const auto &pane : QJsonDocument::fromJson(answer.output)["panes"_L1].toArray())
            statuses << pane.toObject()["status"_L1].toString();
        statuses.removeDuplicates();
        return statuses.join(u' ').toStdString();
    }

    InstalledApp &install(const QString &name, const QStringList &steps)
    {
        m_apps.push_back(InstalledApp::scripted(desktop(), u"corvane.test."_s + name, steps));
        return *m_apps.back();
    }

    xcb_window_t windowOfApp(const InstalledApp &app, const QByteArray &title)
    {
        const auto isIt = [&](xcb_window_t window) {
            return probe().hasClass(window, app.id().toLatin1())
                && desktop().connection().property(window, "WM_NAME") == title;
        };
        return probe().waitForWindow(isIt, 3 * patience);
    }

    /// The client has this size.
    void moveTo(xcb_window_t window, const Rect &place)
    {
        pager().moveResize(window, place);
        EXPECT_TRUE(waitUntil([&] { return frame(window).origin() == place.origin(); }));
    }

    QList<Rect> frames(const QList<xcb_window_t> &windows)
    {
        QList<Rect> frames;
        for (const xcb_window_t window : windows)
            frames << frame(window);
        return frames;
    }

    /// Of these windows, the last of which has the focus, once none of that changes any more.
    testing::AssertionResult isStack(const QList<xcb_window_t> &expected)
    {
        const auto reading = [&] {
            QList<xcb_window_t> stack = probe().stacking();
            stack.removeIf([&](xcb_window_t window) { return !expected.contains(window); });
            return stack << probe().activeWindow();
        };
        const auto withFocus = expected + QList{expected.last()};
        if (waitUntil([&] { return settled(reading, Milliseconds{700}) == withFocus; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
            << testing::PrintToString(reading()) << ", not " << testing::PrintToString(withFocus);
    }

    std::vector<std::unique_ptr<InstalledApp>> m_apps;
};

/// Programs that nobody wrote for these tests: a terminal with increments, Tk, Qt, and GTK with header
/// bars.
class RealDeskTests : public LayoutTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(LayoutTests::SetUp());
        for (const auto &[id, command] : {std::pair(terminal, terminalCommand),
                 {planner, QStringList{u"wish"_s, u"-name"_s, planner}},
                 {u"linguist"_s, {u"/usr/lib/qt6/bin/linguist"_s}},
                 {u"gtk3-widget-factory"_s, {u"gtk3-widget-factory"_s}}})
            m_apps.push_back(std::make_unique<InstalledApp>(desktop(), id, command));
    }

    void TearDown() override
    {
        closeAll();
        LayoutTests::TearDown();
    }

    /// Those of the programs.
    QList<xcb_window_t> windows()
    {
        QList<xcb_window_t> windows = probe().clients();
        windows.removeIf([&](xcb_window_t window) {
            return std::ranges::none_of(m_apps,
                [&](const auto &app) { return probe().hasClass(window, app->id().toLatin1()); });
        });
        return windows;
    }

    QList<Rect> framesFromLeftToRight()
    {
        QList<Rect> all = frames(windows());
        std::ranges::sort(all, {}, &Rect::x);
        return all;
    }

    void closeAll()
    {
        for (const xcb_window_t window : windows())
            pager().close(window);
        EXPECT_TRUE(waitUntil([this] { return windows().isEmpty(); }, 3 * patience));
    }

    const QString terminal = u"corvane.real.terminal"_s;
    const QString planner = u"corvane.real.planner"_s;
    const QStringList terminalCommand{u"xterm"_s, u"-class"_s, terminal, u"-e"_s, u"cat"_s};
};

} // namespace

TEST_F(LayoutTests, anApplicationGetsItsPlaceHoweverItOpens)
{
    struct Habit {
        QString name;
        QStringList steps;
        QByteArray title; ///< of the window that ends up in the pane
    };
    const Habit habits[]{
        {u"handing-over"_s, {u"hand-over"_s, u"open=By another process"_s}, "By another process"},
        {u"splashing"_s, {u"splash"_s, u"wait=1500"_s, u"open=Main"_s, u"wait=500"_s, u"close"_s},
            "Main"},
        {u"loading"_s,
            {u"open=Loading"_s, u"wait=1500"_s, u"close"_s, u"wait=1500"_s, u"open=Main"_s},
            "Main"},
    };
    WindowLayout layout{.name = u"Desk"_s, .displays = keysOf({standardDisplay})};
    const auto target = [&](qsizetype pane) {
        return Geometry::frame(layout.panes[pane].rect, standardDisplay, 0);
    };
    for (const Habit &habit : habits)
        layout.panes << paneOf(
            install(habit.name, habit.steps).id(), 0.2 * double(layout.panes.size()));
    layout.panes << paneOf(clientClass, 0.6);
    const xcb_window_t shown = client().show({});
    keep(layout);

    EXPECT_EQ(apply(layout.name), "placed");

    EXPECT_TRUE(rests(shown, target(3)));
    for (qsizetype i = 0; i < 3; ++i) {
        SCOPED_TRACE(qPrintable(habits[i].name));
        const InstalledApp &app = *m_apps[static_cast<size_t>(i)];
        EXPECT_TRUE(rests(windowOfApp(app, habits[i].title), target(i)));
        EXPECT_EQ(app.copies().size(), 1);
    }
}

TEST_F(LayoutTests, anOpenedWindowNeitherTakesTheFocusNorDemandsAttention)
{
    const InstalledApp &app = install(u"pushing"_s, {u"open=Pushing"_s, u"open=Second"_s});
    // Placed, it would have the focus.
    keep({.name = u"Desk"_s,
        .displays = keysOf({standardDisplay}),
        .panes = {paneOf(app.id(), 0, u"Another title"_s)}});
    const xcb_window_t users = showFocused();

    pressApply();

    const xcb_window_t pushing = windowOfApp(app, "Pushing");
    constexpr auto attention = "_NET_WM_STATE_DEMANDS_ATTENTION";
    ASSERT_TRUE(waitUntil([&] { return probe().activeWindow() != pushing; }));
    pager().changeState(pushing, Pager::Change::add, attention);
    EXPECT_NE(windowOfApp(app, "Second"), xcb_window_t(XCB_WINDOW_NONE));
    EXPECT_TRUE(isStack({users}));
    EXPECT_TRUE(waitUntil([&] { return !probe().hasState(pushing, attention); }));
}

TEST_F(LayoutTests, aSlowWindowJoinsTheStackUnderTheFrontOneWhichKeepsTheFocus)
{
    const InstalledApp &app = install(u"slow"_s, {u"wait=3000"_s, u"open=Slow"_s});
    WindowLayout layout{.name = u"Desk"_s, .displays = keysOf({standardDisplay})};
    for (const auto &[id, title, stack] : {std::tuple(clientClass, u"Front"_s, 0),
             {clientClass, u"Back"_s, 2}, {app.id(), u"Slow"_s, 1}}) {
        layout.panes << paneOf(id, 0.2, title);
        layout.panes.last().stack = stack;
    }
    keep(layout);
    const xcb_window_t front = showFocused({.title = "Front"});
    const xcb_window_t back = client().show({.title = "Back"});

    pressApply();

    const Rect target = Geometry::frame(layout.panes[0].rect, standardDisplay, 0);
    EXPECT_TRUE(rests(front, target));
    EXPECT_TRUE(rests(back, target));
    const xcb_window_t slow = windowOfApp(app, "Slow");
    EXPECT_TRUE(rests(slow, target));
    EXPECT_TRUE(isStack({back, slow, front}));
}

TEST_F(LayoutTests, whatIsSeenOfADeskIsCapturedAndComesBackWithItsStacking)
{
    ASSERT_TRUE(desktop().displays().arrange(pair));
    pager().setWorkspaceCount(2);
    const xcb_window_t minimised = client().show({});
    const xcb_window_t elsewhere = client().show({});
    const auto areUnseen = [&] {
        return probe().isMinimized(minimised)
            && desktop().connection().numbers(elsewhere, "_NET_WM_DESKTOP") == QList<quint32>{1};
    };
    pager().minimize(minimised);
    pager().moveToWorkspace(elsewhere, 1);
    ASSERT_TRUE(waitUntil(areUnseen));
    QList<xcb_window_t> windows;
    for (int i = 0; i < 6; ++i) {
        const Rect &display = pair[i % 2];
        windows << client().show({.title = "Window " + QByteArray::number(i)});
        moveTo(windows.last(), {display.x + 37 + 211 * (i / 2), 41 + 101.0 * (i / 2), 613, 377});
        ASSERT_TRUE(focus(windows.last()));
    }
    ASSERT_TRUE(isStack(windows));
    const QList<Rect> before = frames(windows);
    ASSERT_EQ(capture(u"Six"_s), windows.size());

    EXPECT_EQ(apply(u"Six"_s), "placed");
    EXPECT_EQ(frames(windows), before) << "untouched, it stays as it is";
    EXPECT_TRUE(isStack(windows));

    for (qsizetype i = 0; i < windows.size(); ++i) {
        const xcb_window_t window = windows[(i * 5 + 3) % windows.size()];
        moveTo(window, {500.0 + 11 * double(i), 300.0 + 13 * double(i), 300, 200});
        ASSERT_TRUE(focus(window));
    }
    EXPECT_EQ(apply(u"Six"_s), "placed");
    EXPECT_EQ(frames(windows), before);
    EXPECT_TRUE(isStack(windows) && areUnseen());
}

TEST_F(LayoutTests, displaysThatArePluggedInApplyTheirLayout)
{
    WindowLayout layout{.name = u"Desk"_s, .displays = keysOf(pair), .applyOnConnect = true};
    QList<xcb_window_t> windows;
    for (int i = 0; i < 2; ++i) {
        const QString title = u"Window %1"_s.arg(i);
        windows << client().show({.title = title.toUtf8()});
        layout.panes << paneOf(clientClass, 0.2, title);
        layout.panes.last().display = i;
    }
    const auto applies = [this] { return corvane().log().count(u"layout applied"_s); };

    for (const Rect &other : {Rect(), Rect{1920, 0, 1280, 1024}}) {
        ASSERT_TRUE(desktop().displays().arrange({pair[0], other}));
        keep(layout);
        const qsizetype before = applies();
        // A program that saw no more than the end has seen a change, too.
        for (const Rect &second : {pair[1], other, pair[1]})
            ASSERT_TRUE(desktop().displays().arrange({pair[0], second}));

        EXPECT_TRUE(waitUntil([&] { return applies() > before; }, 3 * patience));
        for (int i = 0; i < 2; ++i)
            EXPECT_TRUE(rests(windows[i], Geometry::frame(layout.panes[i].rect, pair[i], 0)));
        // Once for each time that the displays were steady.
        EXPECT_LE(settled(applies, Milliseconds{1500}), before + 2);
    }
}

TEST_F(RealDeskTests, aDeskOfRealProgramsComesBackAfterAllWereClosed)
{
    std::vector<std::unique_ptr<ChildProcess>> running;
    for (const size_t program : {0, 0, 1, 2, 3}) {
        running.push_back(m_apps[program]->start());
        const auto isShown = [&] { return windows().size() == qsizetype(running.size()); };
        ASSERT_TRUE(waitUntil(isShown, 6 * patience)) << program;
        const double index = static_cast<double>(running.size());
        const xcb_window_t window = windows().last();
        moveTo(window, {17 + 171 * index, 23 + 31 * index, 433, 463});
        moveTo(window, Geometry::clamp(frame(window), standardDisplay));
    }
    const QList<Rect> before = framesFromLeftToRight();
    ASSERT_EQ(capture(u"Desk"_s), before.size()) << testing::PrintToString(before);
    closeAll();

    EXPECT_EQ(apply(u"Desk"_s), "placed");

    EXPECT_TRUE(waitUntil([&] { return framesFromLeftToRight() == before; }, 3 * patience))
        << testing::PrintToString(framesFromLeftToRight()) << "\nnot\n"
        << testing::PrintToString(before);
}

} // namespace corvane::desktop
