#include "LayoutBenchmark.h"

#include "CrowdedDesk.h"
#include "LayoutEngine.h"
#include "LayoutRivals.h"
#include "LayoutStopwatch.h"
#include "Platform.h"
#include "Samples.h"
#include "Turns.h"
#include "X11Platform.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int warmUpRounds = 1;
constexpr std::array windowCounts{10, 50, 200};
constexpr double timesPipelined = 1.5;
constexpr double timesFasterThanScript = 3.0;
constexpr double timesPeersGrowth = 1.3;
constexpr int captures = 11;
constexpr double millisecondsToCapture = 50;

enum Who : qsizetype { corvaneItself, pipelined, script };
constexpr std::array names{"corvane"_L1, "pipelined program"_L1, "sxhkd + wmctrl per window"_L1};

using Medians = QList<double>; ///< by contestant

QList<Rect> clientsOf(const QList<Goal> &goals)
{
    QList<Rect> clients;
    for (const Goal &goal : goals)
        clients << goal.client;
    return clients;
}

expected<Medians, QString> race(VirtualDesktop &desktop, const CrowdedDesk &desk, int rounds)
{
    const auto goals = desk.goals();
    const std::array clients{clientsOf(goals[0]), clientsOf(goals[1])};
    std::array rivals{corvaneWithLayouts(desktop, desk), pipelinedProgram(desktop, desk),
        wmctrlScript(desktop, desk)};
    LayoutStopwatch stopwatch(desktop, desk.windows());
    QList<Contestant> contestants;
    for (size_t who = 0; who < rivals.size(); ++who) {
        Rival &rival = rivals[who];
        if (!rival.isListening(desktop.connection()))
            return unexpected<QString>(u"%1 did not take its keys"_s.arg(names[who]));
        contestants << Contestant{names[who],
            [&](size_t goal) { return stopwatch.time(rival.keys()[goal], clients[goal]); }};
    }
    const auto times = takeTurns(contestants, warmUpRounds, rounds);
    if (!times)
        return unexpected<QString>(times.error() + u":\n"_s + desktop.logs());
    Medians medians;
    for (const QList<double> &samples : *times)
        medians << median(samples);
    return medians;
}

QList<Measurement> compare(int count, const Medians &medians)
{
    QList<Measurement> lines;
    const QString windows = u"%1 windows: "_s.arg(count);
    for (const Who who : {pipelined, corvaneItself, script})
        lines << Measurement{windows + names[static_cast<size_t>(who)], medians[who], u"ms"_s};
    return lines << Measurement{windows + u"corvane / pipelined program"_s,
               medians[corvaneItself] / medians[pipelined], {},
               Limit{Limit::Kind::atMost, timesPipelined}}
                 << Measurement{windows + u"sxhkd + wmctrl / corvane"_s,
                        medians[script] / medians[corvaneItself], {},
                        Limit{Limit::Kind::atLeast, timesFasterThanScript}};
}

expected<double, QString> captureTime(VirtualDesktop &desktop, qsizetype windows)
{
    qputenv("DISPLAY", desktop.displayName().toLocal8Bit());
    const auto platform = openX11Platform([] {});
    if (!platform)
        return unexpected<QString>(platform.error());
    const LayoutEngine engine(0);
    QList<double> samples;
    for (int i = 0; i < captures; ++i) {
        const auto start = std::chrono::steady_clock::now();
        const WindowLayout layout = engine.capture(u"Crowd"_s);
        samples << std::chrono::duration<double, std::milli>(
            std::chrono::steady_clock::now() - start)
                       .count();
        if (layout.panes.size() != windows)
            return unexpected<QString>(
                u"a capture found %1 of %2 windows"_s.arg(layout.panes.size()).arg(windows));
    }
    return median(samples);
}

} // namespace

Measurements measureLayouts(VirtualDesktop &desktop, int rounds)
{
    CrowdedDesk desk(desktop);
    QList<Measurement> lines;
    QHash<int, Medians> times;
    for (const int count : windowCounts) {
        if (!desk.fill(count))
            return unexpected<QString>(u"%1 windows did not appear"_s.arg(count));
        const auto medians = race(desktop, desk, rounds);
        if (!medians)
            return unexpected<QString>(medians.error());
        lines << compare(count, *medians);
        times[count] = *medians;
    }
    const auto capture = captureTime(desktop, desk.windows().size());
    if (!capture)
        return unexpected<QString>(capture.error());
    // The window manager's own work grows faster than the number of windows.
    const auto growth = [&](Who who) { return times[200][who] / times[50][who] / 4; };
    return lines << Measurement{u"50 to 200 windows: corvane's growth / 4"_s, growth(corvaneItself),
               {}}
                 << Measurement{u"50 to 200 windows: growth / pipelined program's growth"_s,
                        growth(corvaneItself) / growth(pipelined), {},
                        Limit{Limit::Kind::atMost, timesPeersGrowth}}
                 << Measurement{u"capture of 200 windows"_s, *capture, u"ms"_s,
                        Limit{Limit::Kind::atMost, millisecondsToCapture}};
}

} // namespace corvane::bench
