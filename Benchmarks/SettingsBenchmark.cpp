#include "SettingsBenchmark.h"

#include "GrabProbe.h"
#include "PanelProcess.h"
#include "SampleLayouts.h"
#include "SampleMoves.h"
#include "Samples.h"
#include "SettingsProgram.h"
#include "SettingsStore.h"
#include "WakeUps.h"
#include "WindowFloor.h"

#include <QtCore/QFile>

#include <numeric>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int layoutCount = 50;
constexpr int moveCount = 100'000;
constexpr int coldStarts = 5;
constexpr int paneRounds = 10;
constexpr int recordings = 20;
constexpr quint8 plain = KeyStroke::control | KeyStroke::alt;
/// One that the program has from its start, and that is not recorded anew.
constexpr KeyStroke hotKey{plain | KeyStroke::super, Key::right};

/// Those after the first one, as the rail's keys reach them.
const QStringList laterPanes{u"Shortcuts"_s, u"50 Layouts"_s, u"Tremor Log"_s, u"About"_s};

struct Times {
    QList<double> first;
    QList<double> later;
    QList<double> tremorLog;
    QList<double> layouts;
    QList<double> firstPanes;
    QList<double> panes;
    QList<double> recordings;
    QList<double> added; ///< megabytes, by the first opening
    QList<double> resident; ///< megabytes, after each other one
    double wakeUps = 0;
};

bool add(QList<double> &times, std::optional<double> time)
{
    if (time)
        times << *time;
    return time.has_value();
}

/// The first opening in the life of several programs.
bool timeFirstOpenings(VirtualDesktop &desktop, const SettingsPictures &pictures, Times &times)
{
    for (int i = 0; i < coldStarts; ++i) {
        SettingsProgram program(desktop);
        if (!program.isStarted)
            return false;
        const double before = program.megabytes();
        if (!add(times.first, program.window.timeToOpen(pictures.opened))
            || !program.window.close())
            return false;
        times.added << program.megabytes() - before;
        const auto timeTo = [&program](const QString &pane, const Picture &picture) {
            return program.window.time([&] { program.showPane(pane); }, picture);
        };
        if (!program.window.open()
            || !add(times.tremorLog, timeTo(u"tremorLog"_s, pictures.tremorLog))
            || !add(times.layouts, timeTo(u"layouts"_s, pictures.layouts)))
            return false;
    }
    return true;
}

bool timeOpenings(
    SettingsProgram &program, const SettingsPictures &pictures, int openings, Times &times)
{
    if (!program.window.open() || !program.window.close())
        return false;
    for (int i = 0; i < openings; ++i) {
        if (!add(times.later, program.window.timeToOpen(pictures.opened))
            || !program.window.close())
            return false;
        times.resident << program.megabytes();
    }
    return true;
}

bool timePanes(SettingsProgram &program, const QList<Picture> &panes, Times &times)
{
    for (int round = 0; round <= paneRounds; ++round) {
        for (qsizetype pane = 1; pane < panes.size(); ++pane) {
            if (!add(round == 0 ? times.firstPanes : times.panes,
                    program.window.time(Key::down, panes[pane])))
                return false;
        }
        for (qsizetype pane = panes.size() - 2; pane >= 0; --pane) {
            if (!add(times.panes, program.window.time(Key::up, panes[pane])))
                return false;
        }
    }
    return true;
}

/// Has the first row of the shortcuts record one combination after the other.
bool timeRecordings(SettingsProgram &program, XConnection &connection, Times &times)
{
    program.showPane(u"shortcuts"_s);
    program.window.rest();
    // From the rail over its button and the presets.
    for (int i = 0; i < 3; ++i)
        program.window.press({0, Key::tab});
    for (int i = 0; i < recordings; ++i) {
        program.window.press({0, Key::space});
        const KeyStroke stroke{plain, i % 2 == 0 ? Key::c : Key::o};
        if (!waitUntil([&] { return !isGrabbed(connection, hotKey); })
            || !add(times.recordings,
                program.window.time(stroke, [&] { return isGrabbed(connection, stroke); })))
            return false;
    }
    return true;
}

/// With the focus in the rail, on a desktop that shows the status item: without one, the program
/// waits for it and then says so.
bool countWakeUps(VirtualDesktop &desktop, std::chrono::seconds duration, Times &times)
{
    SettingsProgram program(desktop);
    const auto panel = PanelProcess::start(desktop);
    if (!program.isStarted || !panel || !program.window.open())
        return false;
    times.wakeUps = static_cast<double>(wakeUps(program.corvane.pid(), duration));
    return program.window.close();
}

/// Empty when all went well, else a sentence.
QString measure(VirtualDesktop &desktop, int openings, std::chrono::seconds idle,
    const SettingsPictures &pictures, Times &times)
{
    if (!timeFirstOpenings(desktop, pictures, times) || !countWakeUps(desktop, idle, times))
        return u"the window did not open or looked otherwise"_s;
    SettingsProgram program(desktop);
    if (!program.isStarted || !timeOpenings(program, pictures, openings, times)
        || !program.window.open())
        return u"the window did not open again or looked otherwise"_s;
    if (!timePanes(program, pictures.panes, times))
        return u"a pane did not appear or looked otherwise"_s;
    if (!timeRecordings(program, desktop.connection(), times))
        return u"a recorded shortcut did not become a hot key"_s;
    return program.window.close() ? QString() : u"the window did not close"_s;
}

double mean(const QList<double> &values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

QList<Measurement> table(const OpeningTimes &floor, const Times &times)
{
    const auto ms = [](const QString &name, double value, std::optional<double> limit = {}) {
        return Measurement{name, value, u"ms"_s,
            limit ? std::optional(Limit{Limit::Kind::atMost, *limit}) : std::nullopt};
    };
    const auto mb = [](const QString &name, double value, double limit) {
        return Measurement{name, value, u"MB"_s, Limit{Limit::Kind::atMost, limit}};
    };
    const qsizetype compared = std::min<qsizetype>(10, times.resident.size() / 2);
    QList<Measurement> lines{
        ms(u"floor: an empty window of Qt's, first opening"_s, median(floor.first)),
        ms(u"first opening, request to all of it on screen"_s, median(times.first), 120),
        {u"first opening / floor"_s, median(times.first) / median(floor.first), {}},
        ms(u"floor: later opening, median"_s, median(floor.later)),
        ms(u"later opening, median"_s, median(times.later), 40),
        ms(u"later opening, 95th percentile"_s, percentile95(times.later)),
        {u"later opening / floor"_s, median(times.later) / median(floor.later), {}},
    };
    for (qsizetype i = 0; i < laterPanes.size(); ++i)
        lines << ms(u"first showing of %1, by key"_s.arg(laterPanes[i]), times.firstPanes[i]);
    return lines << ms(u"another pane by key, median"_s, median(times.panes), 16)
                 << ms(u"another pane by key, 95th percentile"_s, percentile95(times.panes))
                 << ms(u"Tremor Log by request, 100,000 moves, median"_s, median(times.tremorLog),
                        60)
                 << ms(u"Layouts by request, 50 layouts, median"_s, median(times.layouts), 60)
                 << ms(u"key that is recorded to hot key, median"_s, median(times.recordings), 10)
                 << Measurement{u"wake-ups while it is open"_s, times.wakeUps, {},
                        Limit{Limit::Kind::atMost, 0}}
                 << mb(u"memory that an opening leaves resident"_s, median(times.added), 4)
                 << mb(u"growth, last %1 openings against first %1"_s.arg(compared),
                        mean(times.resident.last(compared)) - mean(times.resident.first(compared)),
                        0.5);
}

} // namespace

Measurements measureSettings(VirtualDesktop &desktop, int openings, std::chrono::seconds idle)
{
    const StoredLayouts layouts(desktop, layoutCount);
    const StoredMoves moves(desktop, moveCount);
    if (!layouts.areWritten() || !moves.areWritten())
        return unexpected<QString>(u"the layouts or the moves could not be written"_s);
    desktop.paintBackground();
    const auto pictures = rehearseSettings(desktop);
    if (!pictures)
        return unexpected<QString>(u"the window did not open:\n%1"_s.arg(desktop.logs()));
    const auto floor =
        timeWindowFloor(desktop, pictures->opened.place.size(), coldStarts, openings);
    if (!floor)
        return unexpected<QString>(floor.error());
    Times times;
    const QString error = measure(desktop, openings, idle, *pictures, times);
    // What was recorded is not for the benchmarks that follow.
    const SettingsStore changed(desktop.dataFolder() + u"/Corvane"_s);
    QFile::remove(changed.url().toLocalFile());
    if (!error.isEmpty())
        return unexpected<QString>(error);
    return table(*floor, times);
}

} // namespace corvane::bench
