#include "KeyBenchmark.h"

#include "KeyStopwatch.h"
#include "Pager.h"
#include "Rival.h"
#include "Samples.h"
#include "TestClient.h"
#include "Turns.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int warmUpRounds = 20;
constexpr double timesMinimalMedian = 1.5;
constexpr double timesMinimalPercentile = 2.0;
constexpr double timesFasterThanCommand = 3.0;
constexpr double timesFreeMedian = 1.5;

enum Who : qsizetype { corvaneItself, minimal, command };
constexpr std::array names{"corvane"_L1, "minimal program"_L1, "sxhkd + wmctrl"_L1};

/// A window of fixed size keeps it and takes the halves' origins.
enum class Sizing { free, fixed };

std::optional<Rival::Goals> halves(
    VirtualDesktop &desktop, xcb_window_t window, Sizing sizing = Sizing::free)
{
    WindowProbe probe(desktop.connection());
    const auto frame = probe.visibleFrame(window);
    const auto client = probe.clientGeometry(window);
    if (!frame || !client)
        return std::nullopt;
    const Rect display = desktop.displays().displays().first();
    const auto goal = [&](double x) {
        const Size size =
            sizing == Sizing::fixed ? frame->size() : Size{display.width / 2, display.height};
        const Rect half{x, display.y, size.width, size.height};
        return Goal{half,
            {half.x + client->x - frame->x, half.y + client->y - frame->y,
                half.width - frame->width + client->width,
                half.height - frame->height + client->height}};
    };
    return Rival::Goals{goal(display.x), goal(display.midX())};
}

/// The median on a window that keeps its size: what still follows a move holds up the next key.
expected<double, QString> timeFixedSize(VirtualDesktop &desktop, const Rival &rival, int rounds)
{
    constexpr Size fixed{300, 200};
    TestClient client(desktop);
    const xcb_window_t window = client.show({.geometry = {300, 200, fixed.width, fixed.height},
        .hints = {.minimum = fixed, .maximum = fixed}});
    WindowProbe probe(desktop.connection());
    Pager(desktop.connection()).activate(window);
    const auto goals = halves(desktop, window, Sizing::fixed);
    if (!goals || !waitUntil([&] { return probe.activeWindow() == window; }))
        return unexpected<QString>(u"the window of fixed size did not get the focus"_s);
    KeyStopwatch stopwatch(desktop, window);
    return takeTurns({Contestant{names[corvaneItself],
                         [&](size_t goal) {
                             return stopwatch.time(rival.keys()[goal], (*goals)[goal].client);
                         }}},
        warmUpRounds, rounds)
        .map([](const QList<QList<double>> &times) { return median(times.first()); });
}

QList<Measurement> compare(const QList<QList<double>> &times)
{
    QList<Measurement> lines;
    for (const Who who : {minimal, corvaneItself, command}) {
        lines << Measurement{names[who] + u", median"_s, median(times[who]), u"ms"_s}
              << Measurement{
                     names[who] + u", 95th percentile"_s, percentile95(times[who]), u"ms"_s};
    }
    return lines << Measurement{u"corvane / minimal program, median"_s,
               median(times[corvaneItself]) / median(times[minimal]), {},
               Limit{Limit::Kind::atMost, timesMinimalMedian}}
                 << Measurement{u"corvane / minimal program, 95th percentile"_s,
                        percentile95(times[corvaneItself]) / percentile95(times[minimal]), {},
                        Limit{Limit::Kind::atMost, timesMinimalPercentile}}
                 << Measurement{u"sxhkd + wmctrl / corvane, median"_s,
                        median(times[command]) / median(times[corvaneItself]), {},
                        Limit{Limit::Kind::atLeast, timesFasterThanCommand}};
}

} // namespace

Measurements measureKeys(VirtualDesktop &desktop, xcb_window_t window, int rounds)
{
    const auto goals = halves(desktop, window);
    if (!goals)
        return unexpected<QString>(u"the window to be moved is gone"_s);
    std::array rivals{Rival::corvane(desktop), Rival::minimal(desktop, window, *goals),
        Rival::sxhkdWithWmctrl(desktop, *goals)};
    KeyStopwatch stopwatch(desktop, window);
    QList<Contestant> contestants;
    for (size_t who = 0; who < rivals.size(); ++who) {
        Rival &rival = rivals[who];
        if (!rival.isListening(desktop.connection()))
            return unexpected<QString>(u"%1 did not take its keys"_s.arg(names[who]));
        contestants << Contestant{names[who],
            [&](size_t goal) { return stopwatch.time(rival.keys()[goal], (*goals)[goal].client); }};
    }
    const auto times = takeTurns(contestants, warmUpRounds, rounds);
    if (!times)
        return unexpected<QString>(times.error());
    const auto fixed = timeFixedSize(desktop, rivals[corvaneItself], rounds);
    if (!fixed)
        return unexpected<QString>(fixed.error());
    return compare(*times) << Measurement{u"corvane, fixed size / free, median"_s,
               *fixed / median((*times)[corvaneItself]), {},
               Limit{Limit::Kind::atMost, timesFreeMedian}};
}

} // namespace corvane::bench
