#include "GeometryBenchmark.h"

#include "Geometry.h"
#include "Placement.h"
#include "WindowAssignment.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <map>

namespace corvane::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int repetitions = 5;
constexpr double nanosecondsForAFrame = 100;
constexpr double millisecondsForAssignment = 5;
constexpr int windowCount = 200;

const char *const frameName = "placement's frame";
const char *const assignmentName = "200 windows for 200 panes of one application";
const char *const floorName = "floor: four calls of std::round";

QList<Placement> placementsWithRegion()
{
    QList<Placement> placements;
    for (const Placement placement : allPlacements()) {
        if (unitRect(placement))
            placements << placement;
    }
    return placements;
}

void placementFrame(benchmark::State &state)
{
    const QList<Placement> placements = placementsWithRegion();
    Rect area{0, 25, 1919, 1055};
    double gap = 10;
    qsizetype next = 0;
    for (auto step : state) {
        benchmark::DoNotOptimize(area);
        benchmark::DoNotOptimize(gap);
        Rect frame = Geometry::frame(*unitRect(placements[next]), area, gap);
        benchmark::DoNotOptimize(frame);
        next = next + 1 == placements.size() ? 0 : next + 1;
    }
}

void fourRounds(benchmark::State &state)
{
    Rect rect{10.25, 25.5, 959.75, 527.5};
    for (auto step : state) {
        benchmark::DoNotOptimize(rect);
        Rect rounded{std::round(rect.x), std::round(rect.y), std::round(rect.width),
            std::round(rect.height)};
        benchmark::DoNotOptimize(rounded);
    }
}

/// Every document is another one, and every window elsewhere.
QList<WindowTraits> desk(int firstDocument)
{
    QList<WindowTraits> windows;
    for (int i = 0; i < windowCount; ++i) {
        const double spread = (i * 7919 + firstDocument) % 1500;
        windows << WindowTraits{
            u"document %1 in folder %2 - Editor"_s.arg(firstDocument + i).arg(i % 17), i,
            {spread, spread / 2, 400, 300}};
    }
    return windows;
}

void assignment(benchmark::State &state)
{
    const QList<WindowTraits> wishes = desk(0);
    const QList<WindowTraits> windows = desk(windowCount / 2);
    for (auto step : state)
        benchmark::DoNotOptimize(bestAssignment(wishes, windows));
}

/// Keeps the medians instead of printing them.
class MedianReporter final : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.aggregate_name == "median")
                m_medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
    }
    /// In nanoseconds.
    [[nodiscard]] double median(const char *name) const { return m_medians.at(name); }

private:
    std::map<std::string, double> m_medians;
};

} // namespace

Measurements measureGeometry()
{
    for (auto *each : {benchmark::RegisterBenchmark(frameName, placementFrame),
             benchmark::RegisterBenchmark(floorName, fourRounds),
             benchmark::RegisterBenchmark(assignmentName, assignment)})
        each->Repetitions(repetitions)->MinTime(0.1)->Unit(benchmark::kNanosecond);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    const double frame = reporter.median(frameName);
    const double floor = reporter.median(floorName);
    return QList<Measurement>{
        {QString::fromLatin1(floorName), floor, u"ns"_s},
        {QString::fromLatin1(frameName), frame, u"ns"_s,
            Limit{Limit::Kind::atMost, nanosecondsForAFrame}},
        {u"frame / floor"_s, frame / floor, {}},
        {QString::fromLatin1(assignmentName), reporter.median(assignmentName) / 1e6, u"ms"_s,
            Limit{Limit::Kind::atMost, millisecondsForAssignment}},
    };
}

} // namespace corvane::bench
