#include "EditorBenchmark.h"

#include "Programs.h"
#include "Samples.h"
#include "TimedLines.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

Measurements measureEditor(VirtualDesktop &desktop, int rounds)
{
    const auto times = timedLines(desktop, editorProgram, {u"50"_s, QString::number(rounds)});
    if (!times)
        return unexpected<QString>(times.error());
    const auto ms = [](const QString &name, double value, std::optional<double> limit = {}) {
        return Measurement{name, value, u"ms"_s,
            limit ? std::optional(Limit{Limit::Kind::atMost, *limit}) : std::nullopt};
    };
    const QList<double> frames = (*times)["frame"];
    const QList<double> painted = (*times)["painted"];
    const QList<double> saves = (*times)["save"];
    const QList<double> floor = (*times)["floor"];
    return QList<Measurement>{
        ms(u"frame of a drag, own time, median"_s, median(frames)),
        ms(u"frame of a drag, own time, 95th percentile"_s, percentile95(frames)),
        ms(u"frame of a drag, own time, longest"_s, std::ranges::max(frames), 8),
        ms(u"frame of a drag, move to painted, median"_s, median(painted)),
        ms(u"floor: a file of the layouts' size"_s, median(floor)),
        ms(u"save a layout, median"_s, median(saves), 20),
        ms(u"save a layout, 95th percentile"_s, percentile95(saves)),
        {u"save / floor"_s, median(saves) / median(floor), {}},
    };
}

} // namespace corvane::bench
