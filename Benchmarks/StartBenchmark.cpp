#include "StartBenchmark.h"

#include "GrabProbe.h"
#include "Programs.h"
#include "SampleLayouts.h"
#include "Samples.h"
#include "TimedStart.h"

#include <QtCore/QFile>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int warmUpStarts = 2;
constexpr double millisecondsToStart = 200;
constexpr int layoutCount = 50;
constexpr KeyStroke hotKey{KeyStroke::control | KeyStroke::alt | KeyStroke::super, Key::left};

enum class Tour { seen, unseen };

/// Unseen, it comes up once the keys are live.
expected<double, QString> startCorvane(VirtualDesktop &desktop, Tour tour)
{
    QFile settings(desktop.dataFolder() + u"/Corvane/settings.json"_s);
    if (!settings.open(QFile::WriteOnly)
        || settings.write(tour == Tour::seen ? "{\"onboardingCompleted\": true}" : "{}") < 0)
        return unexpected<QString>(u"the settings could not be written"_s);
    settings.close();
    XConnection &connection = desktop.connection();
    if (!waitUntil([&] { return !isGrabbed(connection, hotKey); }))
        return unexpected<QString>(u"another program holds Corvane's key"_s);
    const TimedStart start(corvaneProgram, {u"--verbose"_s}, desktop.environment());
    if (!start.untilReady())
        return unexpected<QString>(u"corvane did not become ready"_s);
    if (!isGrabbed(connection, hotKey))
        return unexpected<QString>(u"corvane said that it was ready without having its keys"_s);
    return *start.untilReady();
}

expected<double, QString> startFloor(VirtualDesktop &desktop)
{
    const TimedStart start(floorProgram, {}, desktop.environment());
    if (!start.untilReady())
        return unexpected<QString>(u"corvane-floor did not become ready"_s);
    return *start.untilReady();
}

} // namespace

Measurements measureStart(VirtualDesktop &desktop, int starts)
{
    const StoredLayouts layouts(desktop, layoutCount);
    if (!layouts.areWritten())
        return unexpected<QString>(u"the layouts could not be written"_s);
    QList<double> floors;
    QList<double> times;
    QList<double> firstTimes;
    for (int i = 0; i < warmUpStarts + starts; ++i) {
        const auto floor = startFloor(desktop);
        const auto time = startCorvane(desktop, Tour::seen);
        const auto firstTime = startCorvane(desktop, Tour::unseen);
        for (const auto &each : {floor, time, firstTime}) {
            if (!each)
                return unexpected<QString>(each.error());
        }
        if (i < warmUpStarts)
            continue;
        floors << *floor;
        times << *time;
        firstTimes << *firstTime;
    }
    return QList<Measurement>{
        {u"floor: QApplication, its own and our X connection, D-Bus"_s, median(floors), u"ms"_s},
        {u"corvane, hot keys live, 50 layouts, median"_s, median(times), u"ms"_s,
            Limit{Limit::Kind::atMost, millisecondsToStart}},
        {u"corvane / floor"_s, median(times) / median(floors), {}},
        {u"before the tour / without it"_s, median(firstTimes) / median(times), {}},
    };
}

} // namespace corvane::bench
