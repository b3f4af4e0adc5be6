#include "WaylandBenchmark.h"

#include "CorvaneProcess.h"
#include "Crowd.h"
#include "IdleBenchmark.h"
#include "Programs.h"
#include "Samples.h"
#include "Turns.h"
#include "WakeUps.h"
#include "WaylandRival.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int warmUpRounds = 10;
constexpr int windowCount = 50;
constexpr double timesMinimal = 1.25;
constexpr double timesPipelined = 1.3;
constexpr auto patienceForAMove = 2s;
constexpr Milliseconds breath{80};
/// So long Corvane puts back what leaves its new place.
constexpr Milliseconds watch{1000};
constexpr auto heartbeat = 15s; ///< of KWin's agent

using Desktop = expected<std::unique_ptr<WaylandDesktop>, QString>;

Desktop begin(const QString &compositor)
{
    Desktop desktop = WaylandDesktop::start({.compositor = compositor});
    if (desktop)
        endTour(**desktop); // which would have the focus
    return desktop;
}

/// One of those who move windows.
struct Mover {
    QString name;
    WaylandCrowd &crowd;
    std::array<KeyStroke, 2> keys;
    /// For whatever it and the compositor still do after a move.
    Milliseconds breath;
};

using Goals = std::array<QList<Rect>, 2>;
using Times = expected<QList<QList<double>>, QString>;

std::optional<double> timeStroke(
    WaylandDesktop &desktop, const Mover &mover, const KeyStroke &stroke, const QList<Rect> &frames)
{
    Keys &keys = desktop.keys();
    keys.holdModifiers(stroke);
    mover.crowd.expect(frames);
    const auto start = WaylandCrowd::Clock::now();
    keys.key(stroke.key, true);
    const auto end = mover.crowd.arrival(start + patienceForAMove);
    keys.key(stroke.key, false);
    keys.releaseModifiers(stroke);
    const bool stood = mover.crowd.stand(frames);
    std::this_thread::sleep_for(mover.breath);
    if (!end || !stood)
        return std::nullopt;
    return std::chrono::duration<double, std::milli>(*end - start).count();
}

/// In the order of the movers.
Times race(WaylandDesktop &desktop, const QList<Mover> &movers, const Goals &goals, int rounds)
{
    QList<Contestant> contestants;
    for (const Mover &mover : movers)
        contestants << Contestant{mover.name,
            [&](size_t goal) { return timeStroke(desktop, mover, mover.keys[goal], goals[goal]); }};
    auto times = takeTurns(contestants, std::min(warmUpRounds, rounds), rounds);
    if (!times)
        return unexpected<QString>(times.error() + u":\n"_s + desktop.logs());
    return times;
}

QList<Measurement> compare(
    const QString &what, const QList<QList<double>> &times, const QString &rival, double limit)
{
    return {{what + rival, median(times.last()), u"ms"_s},
        {what + u"corvane"_s, median(times.first()), u"ms"_s},
        {u"%1corvane / %2"_s.arg(what, rival), median(times.first()) / median(times.last()), {},
            Limit{Limit::Kind::atMost, limit}}};
}

} // namespace

Measurements measureWaylandKeys(const QString &compositor, int rounds)
{
    const auto desktop = begin(compositor);
    if (!desktop)
        return unexpected<QString>(desktop.error());
    // A window for each, since Corvane puts back what another program moves at once.
    const QString title = u"Window"_s;
    const Rect place{300, 200, 640, 480};
    WaylandCrowd others(**desktop);
    WaylandCrowd crowd(**desktop);
    if (!others.open(title, place) || !crowd.open(u"Corvane's window"_s, place))
        return unexpected<QString>(u"the windows to be moved did not appear"_s);
    const Rect display = (*desktop)->hand().displays().first();
    const std::array goals{Rect{display.x, display.y, display.width / 2, display.height},
        Rect{display.x, display.y, display.width, display.height / 2}};
    CorvaneProcess corvane(**desktop, corvaneProgram);
    if (!corvane.start())
        return unexpected<QString>(u"corvane did not start:\n%1"_s.arg((*desktop)->logs()));
    const auto minimal = MinimalProgram::start(**desktop, moveOne(**desktop, title, goals));
    if (!minimal)
        return unexpected<QString>(minimal.error());
    (*desktop)->hand().activate(crowd.windows().first());
    // The keys that Corvane has for the halves by default.
    constexpr quint8 held = KeyStroke::control | KeyStroke::alt | KeyStroke::super;
    const auto times = race(**desktop,
        {{u"corvane"_s, crowd, {KeyStroke{held, Key::left}, KeyStroke{held, Key::up}}, breath},
            {u"minimal program"_s, others, MinimalProgram::keys(), breath}},
        {QList{goals[0]}, QList{goals[1]}}, rounds);
    if (!times)
        return unexpected<QString>(times.error());
    return compare({}, *times, u"minimal program"_s, timesMinimal);
}

Measurements measureWaylandLayouts(const QString &compositor, int rounds)
{
    const auto desktop = begin(compositor);
    if (!desktop)
        return unexpected<QString>(desktop.error());
    const Crowd plan{windowCount, (*desktop)->hand().displays().first()};
    const auto frames = plan.frames();
    WaylandCrowd crowd(**desktop);
    for (int i = 0; i < windowCount; ++i) {
        if (!crowd.open(Crowd::title(i), frames.front()[i]))
            return unexpected<QString>(u"%1 windows did not appear"_s.arg(windowCount));
    }
    plan.store(**desktop);
    CorvaneProcess corvane(**desktop, corvaneProgram);
    if (!corvane.start())
        return unexpected<QString>(u"corvane did not start:\n%1"_s.arg((*desktop)->logs()));
    const auto pipelined = MinimalProgram::start(**desktop, moveAll(**desktop, frames));
    if (!pipelined)
        return unexpected<QString>(pipelined.error());
    const auto times = race(**desktop,
        {{u"corvane"_s, crowd, Crowd::keys(), watch},
            {u"pipelined program"_s, crowd, MinimalProgram::keys(), breath}},
        frames, rounds);
    if (!times)
        return unexpected<QString>(times.error());
    return compare(
        u"%1 windows: "_s.arg(windowCount), *times, u"pipelined program"_s, timesPipelined);
}

Measurements measureWaylandIdle(const QString &compositor, std::chrono::seconds duration)
{
    const auto desktop = begin(compositor);
    if (!desktop)
        return unexpected<QString>(desktop.error());
    WaylandCrowd crowd(**desktop);
    CorvaneProcess corvane(**desktop, corvaneProgram);
    if (!crowd.open(u"Window"_s, {300, 200, 640, 480}) || !corvane.start())
        return unexpected<QString>(u"corvane did not start:\n%1"_s.arg((*desktop)->logs()));
    if (const auto trial = corvane.place(u"center"_s); trial.exitStatus != 0)
        return unexpected<QString>(u"corvane may not move windows: %1"_s.arg(trial.reason()));
    // Without a tray the program says so once.
    if (!waitUntil([&] { return corvane.log().join(u' ').contains(u"no tray"_s); }, 3 * patience))
        return unexpected<QString>(u"corvane did not look for a tray"_s);
    const bool hasAgent = !(*desktop)->isSway();
    if (hasAgent)
        duration = std::max(duration, std::chrono::seconds(4 * heartbeat));
    const int stirred = stirs(corvane.pid(), duration);
    if (!corvane.isRunning())
        return unexpected<QString>(u"corvane ended by itself"_s);
    const double allowed = hasAgent ? double(duration / heartbeat) : 0;
    return QList<Measurement>{
        {u"times that it stirs in %1 s"_s.arg(duration.count()), double(stirred), {},
            Limit{Limit::Kind::atMost, allowed}},
        {u"resident memory"_s, static_cast<double>(corvane.residentKilobytes()) / 1024, u"MB"_s,
            Limit{Limit::Kind::atMost, megabytesResident}},
    };
}

} // namespace corvane::bench
