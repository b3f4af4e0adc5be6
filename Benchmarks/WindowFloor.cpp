#include "WindowFloor.h"

#include "Programs.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

/// The program and its window.
struct Floor {
    Floor(VirtualDesktop &desktop, const Size &size)
        : process(desktop.command(windowFloorProgram,
            {QString::number(size.width), QString::number(size.height)},
            ChildProcess::Channel::pipes))
        , isStarted(process.readLine() == "ready")
        , window(desktop, process.pid(), [this] { process.writeLine({}); })
    {
    }

    ChildProcess process;
    bool isStarted;
    WindowStopwatch window;
};

std::optional<Picture> finishedWindow(VirtualDesktop &desktop, const Size &size)
{
    Floor trial(desktop, size);
    return trial.isStarted && trial.window.open() ? std::optional(trial.window.look())
                                                  : std::nullopt;
}

} // namespace

expected<OpeningTimes, QString> timeWindowFloor(
    VirtualDesktop &desktop, const Size &size, int programs, int openings)
{
    const auto picture = finishedWindow(desktop, size);
    OpeningTimes times;
    for (int program = 0; picture && program < programs; ++program) {
        Floor floor(desktop, size);
        const auto first = floor.isStarted ? floor.window.timeToOpen(*picture) : std::nullopt;
        if (!first || !floor.window.close())
            break;
        times.first << *first;
        for (int i = 0; i < openings / programs; ++i) {
            const auto later = floor.window.timeToOpen(*picture);
            if (!later || !floor.window.close())
                break;
            times.later << *later;
        }
    }
    if (times.first.size() < programs || times.later.size() < openings / programs * programs)
        return unexpected<QString>(u"an empty window did not open:\n%1"_s.arg(desktop.logs()));
    return times;
}

} // namespace corvane::bench
