#include "AppModel.h"

#include "FlightRecorder.h"
#include "Geometry.h"
#include "Pause.h"
#include "Platform.h"
#include "Screens.h"

#include <QtCore/QFileInfo>

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

AppModel::AppModel(SettingsStore store, LayoutStore layoutStore, ActivityLog activityLog)
    : m_store(std::move(store))
    , m_layoutStore(std::move(layoutStore))
    , m_activityLog(std::move(activityLog))
    , m_layoutEngine(0)
{
    auto [settings, problem] = m_store.loadKeepingUnreadable();
    m_settings = std::move(settings);
    note(problem);
    loadLayouts();
    m_layoutEngine.gap = m_settings.gap;
    m_layoutEngine.onPlaced = [this](const AXWindow &window, const Rect &) {
        if (const auto frame = window.frame())
            m_placed << Placed{window, *frame};
    };
    m_layoutEngine.onDiagnostic = [](const QString &line) {
        FlightRecorder::shared().record(u"layout"_s, line);
    };
}

void AppModel::note(const std::optional<StoreProblem> &problem)
{
    if (!problem)
        return;
    FlightRecorder::shared().record(u"settings-unreadable"_s, detail(*problem));
    m_problems << *problem;
}

void AppModel::loadLayouts()
{
    m_layoutsStamp = layoutsStamp();
    auto [layouts, problem] = m_layoutStore.loadKeepingUnreadable();
    m_layouts = std::move(layouts);
    note(problem);
}

AppModel::FileStamp AppModel::layoutsStamp() const
{
    const QFileInfo file(m_layoutStore.url().toLocalFile());
    return {file.lastModified(), file.size()};
}

void AppModel::refreshLayouts()
{
    if (layoutsStamp() == m_layoutsStamp)
        return;
    loadLayouts();
    Q_EMIT layoutsChanged();
}

std::optional<WindowLayout> AppModel::layout(const QString &nameOrID) const
{
    auto found = std::ranges::find(m_layouts, QUuid(nameOrID), &WindowLayout::id);
    if (found == m_layouts.end())
        found = std::ranges::find(m_layouts, nameOrID, &WindowLayout::name);
    return found == m_layouts.end() ? std::nullopt : std::optional(*found);
}

expected<WindowLayout, QString> AppModel::captureCurrentWindows(const QString &name)
{
    refreshLayouts();
    const WindowLayout captured = m_layoutEngine.capture(uniqueName(name, m_layouts));
    m_layouts << captured;
    FlightRecorder::shared().record(u"layout"_s, u"captured %1 panes"_s.arg(captured.panes.size()));
    Q_EMIT layoutsChanged();
    const auto saved = m_layoutStore.save(m_layouts);
    m_layoutsStamp = layoutsStamp();
    if (!saved) {
        FlightRecorder::shared().record(u"save-failed"_s, u"layouts.json: "_s + saved.error());
        return unexpected<QString>(u"Corvane could not save to %1: %2"
                                   " Changes work until Corvane quits."_s.arg(
                                       m_layoutStore.url().toLocalFile(), saved.error()));
    }
    return captured;
}

QCoro::Task<QList<PaneResult>> AppModel::apply(WindowLayout layout)
{
    m_placed.clear();
    const QList<PaneResult> results = co_await m_layoutEngine.apply(layout, launchWait, retryFor);
    writeDown(layout, results);
    m_lastApply = LastApply{layout.id, results, Platform::current().clock().date()};
    Q_EMIT layoutApplied(*m_lastApply);
    co_return results;
}

void AppModel::applyOnConnect()
{
    m_displayWatch.emplace();
    connect(
        &*m_displayWatch, &DisplayWatch::settled, this, [this](const QList<DisplayKey> &connected) {
            refreshLayouts();
            const auto found = std::ranges::find_if(m_layouts, [&](const WindowLayout &each) {
                return each.applyOnConnect && each.matches(connected);
            });
            if (found != m_layouts.end())
                restore(*found);
        });
}

QCoro::Task<> AppModel::restore(WindowLayout layout)
{
    FlightRecorder::shared().record(u"layout"_s, u"its displays have connected"_s);
    co_await apply(layout);
    const Pause pause{secondLook};
    co_await pause;
    putBackWhatWasMoved();
}

void AppModel::putBackWhatWasMoved()
{
    for (const Placed &placed : std::as_const(m_placed)) {
        const auto frame = placed.window.frame();
        if (frame && !Geometry::approximatelyEqual(*frame, placed.frame, toleratedDrift))
            static_cast<void>(placed.window.setFrame(placed.frame, std::nullopt, 0));
    }
}

void AppModel::writeDown(const WindowLayout &layout, const QList<PaneResult> &results) const
{
    const QDateTime now = Platform::current().clock().date();
    const QList<ScreenInfo> screens = Screens::all();
    for (const PaneResult &result : results) {
        const auto *placed = std::get_if<PaneStatus::Placed>(&result.status.value);
        if (!placed)
            continue;
        const auto screen = Screens::screenContaining(placed->frame, screens);
        m_activityLog.append(
            ActivityEntry::placedByLayout(layout.name, result.appName(), placed->windowTitle,
                screen ? screen->name : QString(), placed->previous, placed->frame, now));
    }
    FlightRecorder::shared().record(u"layout"_s,
        u"applied: %1 of %2 panes placed"_s.arg(std::ranges::count_if(results, isPlaced))
            .arg(results.size()));
}

} // namespace corvane
