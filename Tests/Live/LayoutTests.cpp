#include "LiveDesk.h"
#include "WindowLayout.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString clientClass = u"CorvaneTestClient"_s;

/// A column of a fifth of the display.
Pane paneOf(const QString &app, double x, const QString &title = {})
{
    return {.rect = {x, 0, 0.2, 1}, .app = AppRef{app, app}, .titleContains = title};
}

class LayoutTests : public LiveTests
{
protected:
    // Each test says with what layouts.
    void startProgram() override { }

    void TearDown() override
    {
        m_apps.clear();
        LiveTests::TearDown();
        corvane().stop();
        QFile::remove(layoutsPath());
    }

    /// As the desktop names them.
    QList<DisplayKey> keysOf(const QList<Rect> &displays)
    {
        QList<DisplayKey> keys;
        for (const Rect &display : displays)
            keys << DisplayKey{displayName(int(keys.size())), static_cast<int>(display.width),
                static_cast<int>(display.height)};
        return keys;
    }

    QString layoutsPath() { return session().dataFolder() + u"/Corvane/layouts.json"_s; }

    /// Starts the program with just this layout, which Ctrl+Alt+Super and the minus key apply.
    void keep(WindowLayout layout)
    {
        constexpr quint16 keyMinus = 27;
        layout.shortcut =
            KeyCombo(keyMinus, KeyCombo::control | KeyCombo::option | KeyCombo::command);
        corvane().stop();
        QDir(session().dataFolder()).mkpath(u"Corvane"_s);
        QFile file(layoutsPath());
        const QByteArray text = QJsonDocument(QJsonArray{layout.toJson()}).toJson();
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) && file.flush());
        ASSERT_TRUE(corvane().start()) << qPrintable(session().logs());
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
        m_apps.push_back(InstalledApp::scripted(session(), u"corvane.test."_s + name, steps));
        return *m_apps.back();
    }

    /// 0 when it does not come in time.
    quint32 windowOfApp(const InstalledApp &app, const QString &title)
    {
        quint32 found = 0;
        const auto look = [&] {
            for (const SeenWindow &each : hand().windows()) {
                if (each.application == app.id() && each.title == title)
                    found = each.number;
            }
            return found != 0;
        };
        EXPECT_TRUE(waitUntil(look, 3 * patience));
        return found;
    }

    void moveTo(quint32 window, const Rect &place)
    {
        hand().place(window, place);
        EXPECT_TRUE(waitUntil([&] { return hand().frame(window).origin() == place.origin(); }));
    }

    /// Once none of them changes any more.
    QList<Rect> frames(const QList<quint32> &windows)
    {
        return settled([&] {
            QList<Rect> frames;
            for (const quint32 window : windows)
                frames << hand().frame(window);
            return frames;
        });
    }

    /// Of these windows, the last of which has the focus, once none of that changes any more.
    testing::AssertionResult isStack(const QList<quint32> &expected)
    {
        const auto reading = [&] {
            QList<quint32> stack;
            for (const SeenWindow &each : hand().windows()) {
                if (expected.contains(each.number))
                    stack << each.number;
            }
            return stack << hand().activeWindow();
        };
        const auto withFocus = expected + QList{expected.last()};
        if (waitUntil([&] { return settled(reading, Milliseconds{700}) == withFocus; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
            << testing::PrintToString(reading()) << ", not " << testing::PrintToString(withFocus);
    }

    const QList<Rect> pair{standardDisplay, secondDisplay()};
    std::vector<std::unique_ptr<InstalledApp>> m_apps;
};

/// Programs that nobody wrote for these tests: a terminal with increments, Tk, Qt, and GTK with header
/// bars; on Wayland, all that there are, and the terminal through Xwayland.
class RealDeskTests : public LayoutTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(LayoutTests::SetUp());
        QList<std::pair<QString, QStringList>> programs{
            {terminal, {u"xterm"_s, u"-class"_s, terminal, u"-e"_s, u"cat"_s}},
            {u"linguist"_s, {u"/usr/lib/qt6/bin/linguist"_s}},
            {gtk, {gtk}},
        };
        if (isWayland())
            programs << std::pair{u"org.gtk.Demo4"_s, QStringList{u"gtk4-demo"_s}}
                     << std::pair{u"featherpad"_s, QStringList{u"featherpad"_s}};
        else
            programs << std::pair{planner, QStringList{u"wish"_s, u"-name"_s, planner}};
        if (isSway()) // its release crashes on KWin's displays without a size in millimetres
            programs << std::pair{u"foot"_s, QStringList{u"foot"_s, u"cat"_s}};
        for (const auto &[id, command] : std::as_const(programs))
            m_apps.push_back(std::make_unique<InstalledApp>(session(), id, command));
    }

    void TearDown() override
    {
        closeAll();
        LayoutTests::TearDown();
    }

    void startProgram() override { LiveTests::startProgram(); }

    /// Those of the programs: there are no others.
    QList<quint32> windows()
    {
        QList<quint32> windows;
        for (const SeenWindow &each : hand().windows())
            windows << each.number;
        return windows;
    }
    /// Returns once the program's window is there.
    [[nodiscard]] quint32 start(const InstalledApp &app)
    {
        const QList<quint32> known = windows();
        m_running.push_back(app.start());
        quint32 found = 0;
        const auto look = [&] {
            for (const quint32 window : windows())
                found = known.contains(window) ? found : window;
            return found != 0;
        };
        EXPECT_TRUE(waitUntil(look, 6 * patience));
        return found;
    }

    QList<Rect> framesFromLeftToRight()
    {
        QList<Rect> all = frames(windows());
        std::ranges::sort(all, {}, &Rect::x);
        return all;
    }

    void closeAll()
    {
        for (const quint32 window : windows())
            hand().close(window);
        EXPECT_TRUE(waitUntil([this] { return windows().isEmpty(); }, 3 * patience));
        m_running.clear();
    }

    const QString terminal = u"corvane.real.terminal"_s;
    const QString wide = u"gtk3-widget-factory"_s; ///< wider than half a display
    // sway tells late that a window refuses a size, which the program does not wait for.
    const QString gtk = isSway() ? u"gtk3-demo"_s : wide;
    const QString planner = u"corvane.real.planner"_s;
    std::vector<std::unique_ptr<ChildProcess>> m_running;
};

} // namespace

TEST_F(LayoutTests, anApplicationGetsItsPlaceHoweverItOpens)
{
    struct Habit {
        QString name;
        QStringList steps;
        QString title; ///< of the window that ends up in the pane
    };
    const Habit habits[]{
        {u"handing-over"_s, {u"hand-over"_s, u"open=By another process"_s},
            u"By another process"_s},
        {u"splashing"_s, {u"splash"_s, u"wait=1500"_s, u"open=Main"_s, u"wait=500"_s, u"close"_s},
            u"Main"_s},
        {u"loading"_s,
            {u"open=Loading"_s, u"wait=1500"_s, u"close"_s, u"wait=1500"_s, u"open=Loaded"_s},
            u"Loaded"_s},
    };
    WindowLayout layout{.name = u"Desk"_s, .displays = keysOf({standardDisplay})};
    const auto target = [&](qsizetype pane) {
        return Geometry::frame(layout.panes[pane].rect, standardDisplay, 0);
    };
    for (const Habit &habit : habits)
        layout.panes << paneOf(
            install(habit.name, habit.steps).id(), 0.2 * double(layout.panes.size()));
    layout.panes << paneOf(clientClass, 0.6);
    const quint32 shown = client().show({});
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
    const quint32 users = showFocused();

    pressApply();

    const quint32 pushing = windowOfApp(app, u"Pushing"_s);
    constexpr auto attention = "_NET_WM_STATE_DEMANDS_ATTENTION";
    ASSERT_TRUE(waitUntil([&] { return hand().activeWindow() != pushing; }));
    if (!isWayland()) // where no client can ask for it
        pager().changeState(pushing, Pager::Change::add, attention);
    EXPECT_NE(windowOfApp(app, u"Second"_s), 0U);
    EXPECT_TRUE(isStack({users}));
    EXPECT_TRUE(isWayland() || waitUntil([&] { return !probe().hasState(pushing, attention); }));
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
    const quint32 front = showFocused({.title = "Front"});
    const quint32 back = client().show({.title = "Back"});

    pressApply();

    const Rect target = Geometry::frame(layout.panes[0].rect, standardDisplay, 0);
    EXPECT_TRUE(rests(front, target));
    EXPECT_TRUE(rests(back, target));
    const quint32 slow = windowOfApp(app, u"Slow"_s);
    EXPECT_TRUE(rests(slow, target));
    EXPECT_TRUE(isStack({back, slow, front}));
}

TEST_F(LayoutTests, whatIsSeenOfADeskIsCapturedAndComesBackWithItsStacking)
{
    ASSERT_NO_FATAL_FAILURE(LiveTests::startProgram());
    ASSERT_TRUE(hand().arrange(pair));
    const quint32 minimised = client().show({});
    const quint32 elsewhere = client().show({});
    const auto areUnseen = [&] {
        return hand().window(minimised).value_or(SeenWindow()).isMinimized
            && !hand().window(elsewhere).value_or(SeenWindow()).isHere;
    };
    hand().setMinimized(minimised, true);
    hand().moveElsewhere(elsewhere);
    ASSERT_TRUE(waitUntil(areUnseen));
    QList<quint32> windows;
    for (int i = 0; i < 6; ++i) {
        // sway tells the order on each display only.
        const Rect &display = pair[isSway() ? 0 : i % 2];
        const int step = isSway() ? i : i / 2;
        windows << client().show({.title = "Window " + QByteArray::number(i)});
        moveTo(windows.last(), {display.x + 37 + 211 * step, 41 + 101.0 * step, 613, 377});
        ASSERT_TRUE(focus(windows.last()));
    }
    ASSERT_TRUE(isStack(windows));
    const QList<Rect> before = frames(windows);
    ASSERT_EQ(capture(u"Six"_s), windows.size());

    EXPECT_EQ(apply(u"Six"_s), "placed");
    EXPECT_EQ(frames(windows), before) << "untouched, it stays as it is";
    EXPECT_TRUE(isStack(windows));

    for (qsizetype i = 0; i < windows.size(); ++i) {
        const quint32 window = windows[(i * 5 + 3) % windows.size()];
        moveTo(window, {500.0 + 11 * double(i), 300.0 + 13 * double(i), 300, 200});
        ASSERT_TRUE(focus(window));
    }
    EXPECT_EQ(apply(u"Six"_s), "placed");
    EXPECT_EQ(frames(windows), before);
    EXPECT_TRUE(isStack(windows) && waitUntil(areUnseen));
}

TEST_F(LayoutTests, displaysThatArePluggedInApplyTheirLayout)
{
    if (isSway())
        GTEST_SKIP() << "each display that is plugged in has a new name";
    WindowLayout layout{.name = u"Desk"_s, .displays = keysOf(pair), .applyOnConnect = true};
    QList<quint32> windows;
    for (int i = 0; i < 2; ++i) {
        const QString title = u"Window %1"_s.arg(i);
        windows << client().show({.title = title.toUtf8()});
        layout.panes << paneOf(clientClass, 0.2, title);
        layout.panes.last().display = i;
    }
    const auto applies = [this] { return corvane().log().count(u"layout applied"_s); };

    QList<Rect> others{Rect()};
    if (!isWayland())
        others << Rect{1920, 0, 1280, 1024};
    for (const Rect &other : std::as_const(others)) {
        ASSERT_TRUE(hand().arrange({pair[0], other}));
        keep(layout);
        const qsizetype before = applies();
        // A program that saw no more than the end has seen a change, too.
        for (const Rect &second : {pair[1], other, pair[1]})
            ASSERT_TRUE(hand().arrange({pair[0], second}));

        EXPECT_TRUE(waitUntil([&] { return applies() > before; }, 3 * patience));
        for (int i = 0; i < 2; ++i)
            EXPECT_TRUE(rests(windows[i], Geometry::frame(layout.panes[i].rect, pair[i], 0)));
        // Once for each time that the displays were steady.
        EXPECT_LE(settled(applies, Milliseconds{1500}), before + 2);
    }
}

TEST_F(RealDeskTests, everyProgramLandsExactlyAsFarAsItsLimitsAllow)
{
    using enum Placement;
    for (const auto &app : m_apps) {
        SCOPED_TRACE(qPrintable(app->id()));
        const quint32 window = start(*app);
        ASSERT_TRUE(focus(window));
        const double increment = app->id() == terminal ? 24 : 0;
        for (const Placement placement : {leftThird, leftHalf, rightHalf, maximize}) {
            const Rect target = frameOf(placement, standardDisplay);
            const auto isThere = [&](const Rect &now) {
                const double left = target.width - now.width;
                const double below = target.height - now.height;
                if (app->id() == wide && left < 0)
                    return now
                        == Geometry::anchored(
                            target, now.size(), standardDisplay, Geometry::slackBeyondGap);
                return now.origin() == target.origin() && left >= 0 && left <= increment
                    && below >= 0 && below <= increment;
            };
            press(placement);
            EXPECT_TRUE(waitUntil([&] { return isThere(frame(window)); }))
                << rawValue(placement).data() << ": " << testing::PrintToString(frame(window));
        }
        closeAll();
    }
}

TEST_F(RealDeskTests, aDeskOfRealProgramsComesBackAfterAllWereClosed)
{
    QList<const InstalledApp *> programs{m_apps.front().get()}; // of which there are two windows
    for (const auto &app : m_apps)
        programs << app.get();
    for (const InstalledApp *program : std::as_const(programs)) {
        const quint32 window = start(*program);
        ASSERT_NE(window, 0U) << qPrintable(program->id());
        const auto index = static_cast<double>(m_running.size());
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
