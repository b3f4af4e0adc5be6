#include "LiveDesk.h"

#include <csignal>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;

using ChurnTests = LiveTests;
using HostileClientTests = LiveTests;
using HungProgramTests = LiveTests;
using WindowManagerChangeTests = LiveTests;

} // namespace

TEST_F(HungProgramTests, whateverIsStoppedEveryCommandEndsAndAllWorksAgainAfterwards)
{
    struct Stall {
        const char *name;
        std::function<void()> begin;
        std::function<void()> end;
        std::optional<int> layoutStatus; ///< none: a layout waits until the stall is over
    };
    const Stall stalls[]{
        {"the application", [&] { client().suspend(); }, [&] { client().resume(); }, 0},
        {"the window manager", [&] { manager()->suspend(); }, [&] { manager()->resume(); }, 1},
        {"the server", [&] { desktop().server().suspend(); }, [&] { desktop().server().resume(); },
            {}}};
    // Has the program read the displays again for the next question.
    const auto outdateDisplays = [this] {
        XConnection &other = desktop().connection();
        const char *current = "_NET_CURRENT_DESKTOP";
        other.setNumbers(other.root(), current, "CARDINAL", other.numbers(other.root(), current));
        other.sync();
    };
    const QStringList layout{u"--apply-layout"_s, u"Work"_s};
    ASSERT_TRUE(desktop().displays().arrange({standardDisplay, {1920, 0, 1280, 1024}}));
    const xcb_window_t window = showFocused();
    // The program reads a window's first frame a moment after it opened, and knows all of it then.
    ASSERT_TRUE(waitUntil([&] { return place(original).name() == u"moved"; }));
    ASSERT_EQ(corvane().ask({u"--capture"_s, u"Work"_s}).exitStatus, 0);
    for (const auto &[name, begin, end, layoutStatus] : stalls) {
        SCOPED_TRACE(name);
        for (const Placement placement : {leftHalf, nextDisplay}) {
            outdateDisplays();
            begin();
            const auto answer = place(placement);
            end();

            EXPECT_TRUE(answer.exitStatus) << "no answer";
        }
        // What the window manager was asked for meanwhile, it does first.
        EXPECT_EQ(corvane().ask(layout).exitStatus, 0);
        EXPECT_TRUE(lands(window, bottomRight));

        const qsizetype seen = corvane().log().size();
        begin();
        const auto answer = corvane().ask(layout, layoutStatus ? patience : Milliseconds{2500});
        end();

        EXPECT_EQ(answer.exitStatus, layoutStatus);
        EXPECT_TRUE(corvane().waitForLog(u"layout applied"_s, seen));
        EXPECT_EQ(corvane().ask(layout).exitStatus, 0);
        EXPECT_EQ(place(nextDisplay).name(), u"moved");
    }
}

TEST_F(HungProgramTests, aReportIsSavedWithWhatTheDesktopIsWhileCorvaneHangs)
{
    ::kill(corvane().pid(), SIGSTOP);
    const auto answer = corvane().ask({u"--report"_s, u"It hangs"_s, u"--save"_s, u"-"_s});
    ::kill(corvane().pid(), SIGCONT);

    EXPECT_EQ(answer.exitStatus, 0) << answer.errors.toStdString();
    for (const QString &fact :
        {u"\nIt hangs\n"_s, u"\nSession: X11\n"_s,
            u"\nWindow manager: %1\n"_s.arg(probe().windowManagerName()), u", 1920×1080 at 0,0,"_s})
        EXPECT_TRUE(answer.output.contains(fact.toUtf8())) << answer.output.toStdString();
}

TEST_F(WindowManagerChangeTests, withoutAWindowManagerNothingMovesAndUnderAnyOtherEverythingWorks)
{
    const xcb_window_t window = showFocused({.geometry = {310, 220, 520, 340}});
    const Rect first = frame(window);
    ASSERT_TRUE(waitUntil([&] { return place(original).name() == u"moved"; }));
    const QString other = managerName() == u"openbox" ? u"metacity"_s : u"openbox"_s;
    for (const auto &[crashes, next] : {std::pair(false, other), {true, managerName()}}) {
        SCOPED_TRACE(qPrintable(next));
        ASSERT_TRUE(lands(window, leftHalf));

        crashes ? manager()->crash() : manager()->stop();
        const auto geometry = settled([&] { return probe().clientGeometry(window); });
        const auto answer = place(rightHalf);

        EXPECT_EQ(answer.reason(), u"accessibility not granted"_s);
        EXPECT_EQ(probe().clientGeometry(window), geometry);
        ASSERT_NO_FATAL_FAILURE(ensureManager(next));
        ASSERT_TRUE(waitUntil([&] { return probe().isManaged(window); }));
        ASSERT_TRUE(focus(window));
        // It may be slow to answer while it starts.
        ASSERT_TRUE(waitUntil([&] { return place(bottomHalf).name() == u"moved"; }));
        EXPECT_TRUE(lands(window, rightHalf));
        press(original);
        EXPECT_TRUE(rests(window, first));
    }
}

TEST_F(ChurnTests, windowsThatComeAndGoWithoutAPauseLeaveNothingBehind)
{
    TestClient busy(desktop());
    const xcb_window_t window = showFocused();
    const auto churn = [&](int count, Placement placement) {
        for (int i = 0; i < count; ++i) {
            const xcb_window_t each = busy.open({});
            ASSERT_TRUE(waitUntil([&] { return probe().isManaged(each); })) << i;
            busy.close(each);
            ASSERT_TRUE(waitUntil([&] { return !probe().clients().contains(each); })) << i;
        }
        const auto active = [this] { return probe().activeWindow(); };
        ASSERT_TRUE(waitUntil([&] { return focus(window) && settled(active) == window; }));
        ASSERT_TRUE(lands(window, placement));
    };
    // The first ones warm every cache and pool up.
    ASSERT_NO_FATAL_FAILURE(churn(200, leftHalf));
    const qint64 memoryBefore = corvane().residentKilobytes();
    const qsizetype filesBefore = corvane().openFiles();

    ASSERT_NO_FATAL_FAILURE(churn(1500, rightHalf));

    // The watcher may hold a few thousand first frames, and the sanitizer takes room of its own.
    constexpr qint64 allowedKilobytes = 2048;
    EXPECT_LE(corvane().residentKilobytes() - memoryBefore, allowedKilobytes);
    EXPECT_TRUE(waitUntil([&] { return corvane().openFiles() <= filesBefore; }));
}

TEST_F(HostileClientTests, absurdWindowsNeitherCrashNorStallTheProgram)
{
    struct Case {
        WindowRequest request;
        const char *property = nullptr; ///< that another client then sets
        const char *type = "CARDINAL";
        QList<quint32> values = {};
    };
    constexpr double huge = 2147483647;
    constexpr quint32 most = 0xFFFFFFFF;
    const QList<quint32> fourHuge(4, 0x7FFFFFFF);
    const xcb_window_t decent = showFocused({.geometry = {500, 300, 400, 300}});
    const Case cases[]{
        {{.title = QByteArray("\xff\xfe\xc3\x28\xf0\x9f\x00\x80", 8)}},
        {{.title = "abcdefghij", .titleRepeats = 100000}},
        {{.title = ""}},
        {{.title = "transient for itself", .transientForItself = true}},
        {{.title = "negative hints", .hints = {.increment = {-5, -7}, .base = {-10, -10}}}},
        {{.title = "huge increments", .hints = {.increment = {huge, huge}}}},
        {{.title = "too small", .hints = {.minimum = {900, 900}, .maximum = {100, 100}}}},
        {{.title = "huge minimum", .hints = {.minimum = {30000, 30000}}}},
        {{.title = "no height", .hints = {.minimumAspect = {1, 0}, .maximumAspect = {0, 1}}}},
        {{.title = "unknown gravity", .hints = {.gravity = 12345}}},
        {{.title = "all shadow", .decorated = false, .shadow = {500, 500, 500, 500}}},
        {{}, "_NET_FRAME_EXTENTS", "CARDINAL", fourHuge},
        {{}, "_NET_FRAME_EXTENTS", "CARDINAL", {1}},
        {{}, "_GTK_FRAME_EXTENTS", "CARDINAL", {most, most, most, most}},
        {{}, "_NET_WM_STATE", "CARDINAL", {1, 2, 3}},
        {{}, "_NET_WM_PID", "CARDINAL", {most}},
        {{}, "_NET_WM_PID", "CARDINAL", {1}},
        {{}, "_NET_WM_WINDOW_TYPE", "ATOM", {0xFFFFFF, 0}},
        {{}, "_NET_WM_STRUT_PARTIAL", "CARDINAL", QList<quint32>(12, most)},
        {{}, "_NET_WM_STRUT", "CARDINAL", {5}},
        {{}, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", {most}},
        {{}, "WM_TRANSIENT_FOR", "WINDOW", {most}},
        {{}, "WM_HINTS", "WM_HINTS"},
        {{.title = "transient for each other", .transientFor = decent}},
    };
    // Some windows end the window manager, and some never get the focus.
    const auto hasFocusInTime = [this](xcb_window_t window) {
        constexpr Milliseconds inTime{2000};
        const auto isManaged = [&] { return probe().isManaged(window); };
        const bool isOver =
            waitUntil([&] { return isManaged() || !manager()->isRunning(); }, inTime);
        pager().activate(window);
        return isOver && manager()->isRunning()
            && waitUntil([&] { return probe().activeWindow() == window; }, inTime);
    };
    for (const auto &[request, property, type, values] : cases) {
        SCOPED_TRACE(property ? property : QByteArray(request.title).left(20).constData());
        std::optional<TestClient> hostile(std::in_place, desktop());
        const xcb_window_t window = hostile->open(request);
        const bool hasFocus = hasFocusInTime(window);
        if (property)
            desktop().connection().setNumbers(window, property, type, values);
        if (request.transientFor == decent)
            desktop().connection().setNumbers(decent, "WM_TRANSIENT_FOR", "WINDOW", {window});
        desktop().connection().sync();
        if (hasFocus) {
            EXPECT_TRUE(place(leftHalf).exitStatus) << "no answer";
        }

        // The display server alone may draw for many seconds at a frame 65541 pixels wide.
        pager().activate(decent);
        ASSERT_TRUE(waitUntil(
            [&] {
                if (!manager()->isRunning()) {
                    hostile.reset();
                    ensureManager();
                    pager().activate(decent);
                }
                return probe().activeWindow() == decent;
            },
            6 * patience));
        const Placement placement = frame(decent).x == 0 ? bottomRight : topLeft;
        press(placement);
        EXPECT_TRUE(rests(decent, frameOf(placement, standardDisplay), 6 * patience));
        ASSERT_TRUE(corvane().isRunning());
    }
    // What they did to it ends with it.
    manager()->stop();
}

} // namespace corvane::desktop
