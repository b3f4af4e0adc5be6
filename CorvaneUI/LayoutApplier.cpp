#include "LayoutApplier.h"

#include "FlightRecorder.h"
#include "Geometry.h"
#include "Pause.h"
#include "Platform.h"
#include "Screens.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr Clock::Duration launchWait = 8s;
constexpr Clock::Duration retryFor = 20s;
// Some window managers move windows back after a display came, a while after they seem done.
constexpr Clock::Duration secondLook = 500ms;
constexpr double toleratedDrift = 4; // points

bool isPlaced(const PaneResult &result)
{
    return std::holds_alternative<PaneStatus::Placed>(result.status.value);
}

} // namespace

LayoutApplier::LayoutApplier(WriteDown writeDown) : m_writeDown(std::move(writeDown)), m_engine(0)
{
    m_engine.onPlaced = [this](const AXWindow &window, const Rect &) {
        if (const auto frame = window.frame())
            m_placed << Placed{window, *frame};
    };
    m_engine.onDiagnostic = [](const QString &line) {
        FlightRecorder::shared().record(u"layout"_s, line);
    };
}

QCoro::Task<QList<PaneResult>> LayoutApplier::apply(WindowLayout layout)
{
    m_placed.clear();
    const QList<PaneResult> results = co_await m_engine.apply(layout, launchWait, retryFor);
    writeDown(layout, results);
    co_return results;
}

QCoro::Task<> LayoutApplier::lookAgain()
{
    const Pause pause{secondLook};
    co_await pause;
    for (const Placed &placed : std::as_const(m_placed)) {
        const auto frame = placed.window.frame();
        if (frame && !Geometry::approximatelyEqual(*frame, placed.frame, toleratedDrift))
            static_cast<void>(placed.window.setFrame(placed.frame, std::nullopt, 0));
    }
}

void LayoutApplier::writeDown(const WindowLayout &layout, const QList<PaneResult> &results) const
{
    const QDateTime now = Platform::current().clock().date();
    const QList<ScreenInfo> screens = Screens::all();
    QList<ActivityEntry> entries;
    for (const PaneResult &result : results) {
        const auto *placed = std::get_if<PaneStatus::Placed>(&result.status.value);
        if (!placed)
            continue;
        const auto screen = Screens::screenContaining(placed->frame, screens);
        entries << ActivityEntry::placedByLayout(layout.name, result.appName(), placed->windowTitle,
            screen ? screen->name : QString(), placed->previous, placed->frame, now);
    }
    m_writeDown(entries);
    FlightRecorder::shared().record(u"layout"_s,
        u"applied: %1 of %2 panes placed"_s.arg(std::ranges::count_if(results, isPlaced))
            .arg(results.size()));
}

} // namespace corvane
