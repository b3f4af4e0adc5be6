#include "SimulatedPlatform.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SimulatedDesktopTests : public testing::Test
{
protected:
    SimulatedDesktopTests()
    {
        desktop.plug({.frame = {0, 0, 1000, 800}});
        pid = desktop.start(u"org.example.Editor"_s, u"Editor"_s);
        platform.deliver();
    }

    Rect frameOf(const WindowElement &window) { return windows.frame(window).value_or(Rect{}); }

    SimulatedPlatform platform;
    SimulatedDesktop &desktop = platform.desktop();
    SimulatedWindows &windows = platform.windows();
    ManualClock &clock = platform.manualClock();
    pid_t pid = 0;
};

TEST_F(SimulatedDesktopTests, aRefusedWriteChangesNothingAndSaysWhy)
{
    struct Case {
        const char *name;
        WindowSpec spec;
        bool tiling;
        AXError position;
        AXError size;
        QString detail;
    };
    const auto failure = AXError::failure;
    const auto success = AXError::success;
    for (const Case &each :
        {
            Case{"position", {.refusesPosition = failure, .refusalDetail = u"pinned"_s}, false,
                failure, success, u"pinned"_s},
            Case{"size", {.refusesSize = AXError::cannotComplete}, false, success,
                AXError::cannotComplete, {}},
            Case{"full screen", {.fullScreen = true}, false, failure, failure, u"in full screen"_s},
            Case{"tiled", {}, true, failure, failure, u"tiled by the window manager"_s},
            Case{"floating dialog", {.kind = WindowKind::dialog}, true, success, success, {}},
        }) {
        SCOPED_TRACE(each.name);
        desktop.tiling = each.tiling;
        const auto window = desktop.openWindow(pid, each.spec);
        Rect expected = frameOf(window);
        if (each.size == success)
            expected = {expected.x, expected.y, 600, 500};
        if (each.position == success)
            expected = {50, 40, expected.width, expected.height};
        windows.clearWrites();

        EXPECT_EQ(windows.setSize(window, {600, 500}), each.size);
        EXPECT_EQ(windows.setPosition(window, {50, 40}), each.position);

        EXPECT_EQ(frameOf(window), expected);
        EXPECT_EQ(windows.refusalDetail(window), each.detail);
        EXPECT_THAT(windows.writes(),
            ElementsAre(WindowWrite{window, Size{600, 500}, each.size},
                WindowWrite{window, Point{50, 40}, each.position}));
    }
}

TEST_F(SimulatedDesktopTests, aVanishingWindowAnswersSoManyCallsAndIsGone)
{
    const auto window = desktop.openWindow(pid, {.vanishesAfterCalls = 2});

    EXPECT_EQ(windows.setSize(window, {500, 500}), AXError::success);
    EXPECT_TRUE(windows.frame(window));
    EXPECT_EQ(windows.setPosition(window, {1, 1}), AXError::invalidUIElement);
    EXPECT_EQ(desktop.findWindow(window), nullptr);
}

TEST_F(SimulatedDesktopTests, aHeldSizeIsAskedForAtTheNewPlace)
{
    desktop.fitsSizesToDisplay = true;
    desktop.holdsSizes = true;
    const auto window = desktop.openWindow(pid, {.frame = {700, 500, 200, 200}});
    const WindowOperation operation(windows);

    EXPECT_EQ(windows.setSize(window, {600, 600}), AXError::success);
    EXPECT_EQ(desktop.window(window).frame, (Rect{700, 500, 200, 200}));
    EXPECT_EQ(windows.setPosition(window, {100, 100}), AXError::success);

    EXPECT_EQ(desktop.window(window).frame, (Rect{100, 100, 600, 600}));
}

TEST_F(SimulatedDesktopTests, launchedApplicationsOpenTheirWindowsTheirOwnWay)
{
    struct Case {
        const char *name;
        InstalledApplication application;
        int windowsAtOnce;
        int windowsLater;
        bool runsLater;
    };
    const WindowSpec main{.title = u"Main"_s};
    const WindowSpec splash{.kind = WindowKind::splash};
    for (const Case &each : {
             Case{"at once", {.windows = {main, main}}, 2, 2, true},
             Case{"slowly", {.windows = {main}, .opensAfter = 3s}, 0, 1, true},
             Case{"never", {.windows = {main}, .opensAfter = std::nullopt}, 0, 0, true},
             Case{"splash", {.windows = {main, main}, .opensAfter = 3s, .splash = splash}, 1, 2,
                 true},
             Case{"exits at once", {.opensAfter = 3s, .exitsAfter = 0s}, 0, 0, false},
             Case{"exits early", {.windows = {main}, .opensAfter = 3s, .exitsAfter = 1s}, 0, 0,
                 false},
         }) {
        SCOPED_TRACE(each.name);
        InstalledApplication application = each.application;
        application.bundleIdentifier = QString::fromLatin1(each.name);
        desktop.install(application);

        const pid_t launched = desktop.launch(application.bundleIdentifier).value_or(0);

        EXPECT_THAT(*windows.windows(launched), SizeIs(each.windowsAtOnce));
        clock.advance(4s);
        EXPECT_THAT(*windows.windows(launched), SizeIs(each.windowsLater));
        EXPECT_EQ(desktop.findApplication(launched) != nullptr, each.runsLater);
        EXPECT_EQ(desktop.focused(), std::nullopt);
    }
    EXPECT_EQ(desktop.launch(u"not installed"_s), std::nullopt);
}

TEST_F(SimulatedDesktopTests, aFurtherWindowComesInTheApplicationsOwnWay)
{
    using enum InstalledApplication::FurtherStart;
    struct Case {
        const char *name;
        InstalledApplication application;
        int processes; ///< in the end
        int windows;
    };
    const QList<WindowSpec> main{{.title = u"Main"_s}};
    for (const Case &each : {
             Case{"processes", {.windows = main}, 2, 2},
             Case{"windows", {.windows = main, .furtherStart = window}, 1, 2},
             Case{"one", {.windows = main, .furtherStart = windowIfItHasNone}, 1, 1},
             Case{"action",
                 {.windows = main, .furtherStart = windowIfItHasNone, .opensFurtherWindows = true},
                 1, 2},
             Case{"says so", {.windows = main, .hasOneWindow = true}, 1, 1},
         }) {
        SCOPED_TRACE(each.name);
        InstalledApplication application = each.application;
        application.bundleIdentifier = QString::fromLatin1(each.name);
        desktop.install(application);
        const pid_t first = desktop.launch(application.bundleIdentifier).value_or(0);
        const auto shown = windows.windows(first).value_or(QList<WindowElement>());
        for (const WindowElement &element : shown)
            desktop.closeWindow(element);

        const auto openWindow = [&] {
            return platform.applications().openWindow(application.bundleIdentifier);
        };
        // Living on without a window, an application shows its first one at a start.
        if (application.furtherStart == process)
            desktop.openWindow(first, application.windows.first());
        else
            EXPECT_TRUE(openWindow());
        EXPECT_THAT(*windows.windows(first), SizeIs(1));
        EXPECT_EQ(openWindow().has_value(), !application.hasOneWindow);

        qsizetype count = 0;
        qsizetype processes = 0;
        for (const RunningApplication &running : desktop.running()) {
            if (running.bundleIdentifier != application.bundleIdentifier)
                continue;
            ++processes;
            count += windows.windows(running.pid)->size();
        }
        EXPECT_EQ(processes, each.processes);
        EXPECT_EQ(count, each.windows);
    }
}

TEST_F(SimulatedDesktopTests, noticesComeAtTheirTimeOnTheManualClock)
{
    QList<Clock::Duration> times;
    desktop.install({.bundleIdentifier = u"slow"_s, .windows = {{}}, .opensAfter = 3s});
    QObject::connect(
        &platform.applications(), &Applications::launched, [&] { times << clock.now(); });

    desktop.launch(u"slow"_s);
    clock.advance(10s);

    EXPECT_THAT(times, ElementsAre(3s));
}

} // namespace corvane
