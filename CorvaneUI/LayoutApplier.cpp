#include "LayoutApplier.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "Screens.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

bool isPlaced(const PaneResult &result)
{
    return std::holds_alternative<PaneStatus::Placed>(result.status.value);
}

} // namespace

LayoutApplier::LayoutApplier(WriteDown road) : m_writeDown(std::move(road)), m_engine(0)
{
    m_engine.onPassed = [this](const QList<PaneResult> &placed) { writeDown(placed); };
    m_engine.onDiagnostic = [](const QString &line) {
        FlightRecorder::shared().record(u"layout"_s, line);
    };
}

QCoro::Task<QList<PaneResult>> LayoutApplier::apply(
    WindowLayout layout, LayoutEngine::Follow follow)
{
    const quint64 number = ++m_applies;
    m_layoutName = layout.name;
    if (onBegun)
        onBegun(layout.id);
    const QList<PaneResult> results = co_await m_engine.apply(layout, launchWait, retryFor, follow);
    const bool isLatest = number == m_applies;
    FlightRecorder::shared().record(u"layout"_s,
        u"%1: %2 of %3 panes placed"_s.arg(isLatest ? u"applied"_s : u"gave way to the next one"_s)
            .arg(std::ranges::count_if(results, isPlaced))
            .arg(results.size()));
    if (isLatest && onApplied)
        onApplied(layout.id, results);
    co_return results;
}

void LayoutApplier::writeDown(const QList<PaneResult> &placed) const
{
    const QDateTime now = Platform::current().clock().date();
    const QList<ScreenInfo> screens = Screens::all();
    QList<ActivityEntry> entries;
    for (const PaneResult &result : placed) {
        const auto &outcome = std::get<PaneStatus::Placed>(result.status.value);
        const auto screen = Screens::screenContaining(outcome.frame, screens);
        entries << ActivityEntry::placedByLayout(m_layoutName, result.appName(),
            outcome.windowTitle, screen ? screen->name : QString(), outcome.previous, outcome.frame,
            now);
    }
    m_writeDown(entries);
}

} // namespace corvane
