#include "PickerBenchmark.h"

#include "Programs.h"
#include "Samples.h"
#include "TimedLines.h"

#include <algorithm>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

Measurements measurePicker(VirtualDesktop &desktop, int openings)
{
    const auto lines =
        timedLines(desktop, pickerProgram, {u"500"_s, QString::number(std::max(2, openings))});
    if (!lines)
        return unexpected<QString>(lines.error());
    const TimedLines &times = *lines;
    const auto ms = [](const QString &name, double value, double limit) {
        return Measurement{name, value, u"ms"_s, Limit{Limit::Kind::atMost, limit}};
    };
    return QList<Measurement>{
        ms(u"first opening, request to the list's painting"_s, times["first"].first(), 50),
        ms(u"later opening, median"_s, median(times["later"]), 50),
        ms(u"key to what it finds, median"_s, median(times["search"]), 50),
        ms(u"key to what it finds, longest"_s, std::ranges::max(times["search"]), 50),
        ms(u"longest own time of an event"_s, times["longest"].first(), 16),
    };
}

} // namespace corvane::bench
