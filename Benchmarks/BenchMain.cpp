#include "EditorBenchmark.h"
#include "GeometryBenchmark.h"
#include "IdleBenchmark.h"
#include "KeyBenchmark.h"
#include "LayoutBenchmark.h"
#include "MenuBenchmark.h"
#include "PickerBenchmark.h"
#include "ReportBenchmark.h"
#include "ReportSheetBenchmark.h"
#include "SettingsBenchmark.h"
#include "StartBenchmark.h"
#include "StoreBenchmark.h"
#include "UpdateBenchmark.h"
#include "WaylandBenchmark.h"

#include "Pager.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <cstdio>
#include <functional>

using namespace corvane;
using namespace corvane::bench;
using namespace corvane::desktop;
using namespace Qt::StringLiterals;

namespace {

enum Status : int { everyLimitHolds = 0, failed = 1, misused = 2 };

struct Effort {
    int rounds = 600;
    int starts = 20;
    int openings = 50;
    int layoutRounds = 11;
    int waylandRounds = 150;
    int waylandLayoutRounds = 31;
    int checks = 1000;
    std::chrono::seconds idle{10};
    QString only{}; ///< part of the titles of those to be run
};

struct Benchmark {
    QString title;
    std::function<Measurements()> measure;
};

const Effort quick{100, 8, 20, 3, 30, 3, 100, std::chrono::seconds(3)};

int fail(Status status, const QString &sentence)
{
    std::fprintf(stderr, "corvane-bench: %s\n", qUtf8Printable(sentence));
    return status;
}

/// Prints one benchmark's lines; whether it measured and every limit holds.
bool report(const QString &title, const Measurements &measurements)
{
    std::fputs(qUtf8Printable(heading(title)), stdout);
    bool holds = measurements.has_value();
    if (holds) {
        for (const Measurement &measurement : *measurements) {
            std::fputs(qUtf8Printable(tableLine(measurement)), stdout);
            holds = holds && measurement.holds();
        }
    } else {
        std::printf("  FAILED: %s\n", qUtf8Printable(measurements.error()));
    }
    std::fflush(stdout);
    return holds;
}

QList<Benchmark> onWayland(const QString &compositor, const Effort &effort)
{
    return {
        {u"Idle on %1"_s.arg(compositor),
            [=] { return measureWaylandIdle(compositor, effort.idle); }},
        {u"Key press to the window's new frame on %1, %2 presses each"_s.arg(compositor)
                .arg(effort.waylandRounds),
            [=] { return measureWaylandKeys(compositor, effort.waylandRounds); }},
        {u"Key press to a whole layout on %1, %2 presses each"_s.arg(compositor)
                .arg(effort.waylandLayoutRounds),
            [=] { return measureWaylandLayouts(compositor, effort.waylandLayoutRounds); }},
    };
}

QList<Benchmark> benchmarks(VirtualDesktop &desktop, xcb_window_t window, const Effort &effort)
{
    return {
        {u"A placement's frame"_s, measureGeometry},
        {u"Files"_s, measureStores},
        {u"Problem report"_s, measureReport},
        {u"Start, %1 times"_s.arg(effort.starts),
            [&] { return measureStart(desktop, effort.starts); }},
        {u"Idle, hot keys and status item"_s, [&] { return measureIdle(desktop, effort.idle); }},
        {u"Menu, opened %1 times"_s.arg(effort.starts),
            [&] { return measureMenu(desktop, effort.starts); }},
        {u"Settings window, opened %1 times"_s.arg(effort.openings),
            [&] { return measureSettings(desktop, effort.openings, effort.idle); }},
        {u"Application picker, opened %1 times"_s.arg(effort.starts),
            [&] { return measurePicker(desktop, effort.starts); }},
        {u"Report sheet, opened %1 times"_s.arg(effort.starts),
            [&] { return measureReportSheet(desktop, effort.starts); }},
        {u"Updates, %1 of them"_s.arg(effort.starts),
            [&] { return measureUpdates(desktop, effort.starts, effort.checks); }},
        {u"Layouts pane, an edge dragged %1 times"_s.arg(effort.rounds),
            [&] { return measureEditor(desktop, effort.rounds); }},
        {u"Key press to the window's new frame on openbox, %1 presses each"_s.arg(effort.rounds),
            [&desktop, window, &effort] { return measureKeys(desktop, window, effort.rounds); }},
        {u"Key press to a whole layout on openbox, %1 presses each"_s.arg(effort.layoutRounds),
            [&desktop, window, &effort] {
                // It would hide some of the layout's windows, which are then not captured.
                Pager(desktop.connection()).minimize(window);
                return measureLayouts(desktop, effort.layoutRounds);
            }},
    };
}

int measure(const Effort &effort)
{
    const auto started = VirtualDesktop::start({});
    if (!started)
        return fail(failed, started.error());
    VirtualDesktop &desktop = **started;
    const auto manager = WindowManagerProcess::start(desktop, u"openbox"_s);
    if (!manager)
        return fail(failed, manager.error());
    TestClient client(desktop);
    const xcb_window_t window = client.show({.geometry = {300, 200, 640, 480}});
    WindowProbe probe(desktop.connection());
    Pager(desktop.connection()).activate(window);
    if (!window || !waitUntil([&] { return probe.activeWindow() == window; }))
        return fail(failed, u"the test window did not get the focus"_s);

    bool holds = true;
    const auto all = benchmarks(desktop, window, effort) + onWayland(u"sway"_s, effort)
        + onWayland(u"kwin_wayland"_s, effort);
    for (const Benchmark &benchmark : all) {
        if (benchmark.title.contains(effort.only, Qt::CaseInsensitive))
            holds = report(benchmark.title, benchmark.measure()) && holds;
    }
    std::puts(holds ? "\nEvery limit holds." : "\nA limit is missed.");
    return holds ? everyLimitHolds : failed;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Measures Corvane on a virtual desktop of its own."_s);
    const QCommandLineOption rounds(u"rounds"_s, u"Key presses of each contestant."_s, u"number"_s);
    const QCommandLineOption isQuick(u"quick"_s, u"Less of everything, for a first look."_s);
    const QCommandLineOption only(u"only"_s, u"Those whose title has this text."_s, u"text"_s);
    parser.addOptions({rounds, isQuick, only});
    parser.addHelpOption();
    parser.process(application);

    Effort effort = parser.isSet(isQuick) ? quick : Effort{};
    if (parser.isSet(rounds)) {
        effort.rounds = parser.value(rounds).toInt();
        if (effort.rounds < 1)
            return fail(misused, u"--rounds needs a number above zero."_s);
    }
    effort.only = parser.value(only);
    return measure(effort);
}
