#include "WindowManager.h"

#include "Geometry.h"
#include "Platform.h"
#include "WindowWatcher.h"

#include <QtCore/QDebug>
#include <QtCore/QSet>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

/// What one placement starts from.
struct WindowManager::Scene {
    AXWindow window;
    Rect current;
    QList<ScreenInfo> screens;
    ScreenInfo source;
};

struct WindowManager::Goal {
    Rect target;
    Placement placement; ///< the one to record, which is not always the one pressed
    std::optional<WindowState> state = {}; ///< to return to, beside the frame
};

namespace {

constexpr double untouchedWithin = 4;

template <typename Case>
unexpected<MoveOutcome> without(Case outcome)
{
    return unexpected<MoveOutcome>({std::move(outcome)});
}

/// These two put a window exactly where it was, even partly off screen.
bool isExact(Placement placement)
{
    return placement == Placement::snapBack || placement == Placement::original;
}

} // namespace

WindowManager::WindowManager(Options options) : WindowManager(options, WindowWatcher::shared()) { }

WindowManager::WindowManager(Options options, const WindowWatcher &watcher)
    : m_watcher(watcher), m_options(options)
{
}

MoveOutcome WindowManager::perform(Placement placement)
{
    WindowAccess &windows = Platform::current().windows();
    const WindowOperation operation(windows);
    if (!windows.isTrusted())
        return {MoveOutcome::NotTrusted{}};

    const AXWindow::Focused focused = AXWindow::focused();
    if (focused.status == AXError::cannotComplete)
        return {MoveOutcome::Refused{u"the app did not answer (it may be busy)"_s}};
    if (!focused.window)
        return {MoveOutcome::NoWindow{}};
    const std::optional<Rect> current = focused.window->frame();
    if (!current)
        return {MoveOutcome::NoWindow{}};
    const QList<ScreenInfo> screens = Screens::all();
    const std::optional<ScreenInfo> source = Screens::screenContaining(*current, screens);
    if (!source)
        return {MoveOutcome::NoWindow{}};

    const Scene scene{*focused.window, *current, screens, *source};
    const auto found = goal(placement, scene);
    if (!found)
        return found.error();
    // A snap back that were itself remembered would toggle instead of walking further back.
    if (placement != Placement::snapBack)
        remember(scene.window, scene.current);
    return carryOut(*found, scene);
}

void WindowManager::remember(const AXWindow &window, const Rect &frame)
{
    m_history << HistoryEntry{window, frame, window.endedState()};
    if (m_history.size() > historyLimit)
        m_history.remove(0, m_history.size() - historyLimit);
}

void WindowManager::pruneHistory()
{
    QSet<pid_t> running;
    for (const RunningApplication &application : Platform::current().applications().running())
        running << application.pid;
    m_history.removeIf(
        [&running](const HistoryEntry &entry) { return !running.contains(entry.window.pid); });
}

expected<WindowManager::Goal, MoveOutcome> WindowManager::goal(
    Placement placement, const Scene &scene)
{
    const Rect &area = scene.source.visibleFrame;
    switch (placement) {
    case Placement::center:
        return Goal{Geometry::centered(scene.current, area), placement};
    case Placement::larger:
        return Goal{Geometry::resized(scene.current, m_options.sizeStep, area), placement};
    case Placement::smaller:
        return Goal{Geometry::resized(scene.current, -m_options.sizeStep, area), placement};
    case Placement::nextDisplay:
        return displayGoal(placement, Screens::Direction::next, scene);
    case Placement::previousDisplay:
        return displayGoal(placement, Screens::Direction::previous, scene);
    case Placement::original:
        return originalGoal(scene);
    case Placement::snapBack:
        return snapBackGoal(scene);
    default:
        return regionGoal(placement, scene);
    }
}

expected<WindowManager::Goal, MoveOutcome> WindowManager::displayGoal(
    Placement placement, Screens::Direction direction, const Scene &scene) const
{
    const auto destination = Screens::next(scene.source, direction, scene.screens);
    if (!destination)
        return without(MoveOutcome::SingleDisplay{});
    const Rect &area = destination->visibleFrame;
    if (isUntouched(scene.window, scene.current)) {
        if (const std::optional<UnitRect> unit = unitRect(m_last->placement))
            return Goal{Geometry::frame(*unit, area, m_options.gap), m_last->placement};
    }
    return Goal{Geometry::translated(scene.current, scene.source.visibleFrame, area), placement};
}

expected<WindowManager::Goal, MoveOutcome> WindowManager::originalGoal(const Scene &scene) const
{
    const std::optional<Rect> original = m_watcher.original(scene.window);
    if (!original)
        return without(MoveOutcome::NoOriginal{});
    return Goal{*original, Placement::original};
}

expected<WindowManager::Goal, MoveOutcome> WindowManager::snapBackGoal(const Scene &scene)
{
    const auto newest = std::find_if(m_history.crbegin(), m_history.crend(),
        [&scene](const HistoryEntry &entry) { return entry.window == scene.window; });
    if (newest == m_history.crend())
        return without(MoveOutcome::NothingToSnapBack{});
    const Goal goal{newest->frame, Placement::snapBack, newest->state};
    m_history.erase(std::prev(newest.base()));
    return goal;
}

expected<WindowManager::Goal, MoveOutcome> WindowManager::regionGoal(
    Placement placement, const Scene &scene) const
{
    const Placement effective = cycled(placement, scene.window, scene.current);
    const std::optional<UnitRect> unit = unitRect(effective);
    if (!unit) {
        const QString reason = u"no region for "_s + rawValue(effective);
        qWarning().noquote() << reason;
        return without(MoveOutcome::Refused{reason});
    }
    return Goal{Geometry::frame(*unit, scene.source.visibleFrame, m_options.gap), effective};
}

MoveOutcome WindowManager::carryOut(const Goal &goal, const Scene &scene)
{
    const auto screenOf = [&scene](const Rect &rect) {
        return Screens::screenContaining(rect, scene.screens).value_or(scene.source);
    };
    const AXWindow &window = scene.window;
    const auto moved = isExact(goal.placement)
        ? window.restore(goal.target, goal.state)
        : window.setFrame(goal.target, screenOf(goal.target).visibleFrame,
            m_options.gap + Geometry::slackBeyondGap);
    if (goal.placement != Placement::snapBack)
        m_history.last().state = window.endedState();
    if (!moved)
        return {MoveOutcome::Refused{window.appName() + u": "_s + moved.error().description()}};

    const Rect reached = window.frame().value_or(goal.target);
    m_last = LastMove{window, goal.placement, reached};
    return {MoveOutcome::Moved{{Platform::current().clock().date(), goal.placement,
        window.appName(), window.title(), scene.current, reached, screenOf(reached).name}}};
}

bool WindowManager::isUntouched(const AXWindow &window, const Rect &current) const
{
    return m_last && m_last->window == window
        && Geometry::approximatelyEqual(m_last->frame, current, untouchedWithin);
}

Placement WindowManager::cycled(
    Placement pressed, const AXWindow &window, const Rect &current) const
{
    if (!m_options.cycling)
        return pressed;
    const std::optional<PlacementCycle> walk = cycle(pressed);
    if (!walk || !isUntouched(window, current))
        return pressed;
    const auto found = std::ranges::find(*walk, m_last->placement);
    if (found == walk->end())
        return pressed;
    const auto index = static_cast<std::size_t>(found - walk->begin());
    return (*walk)[(index + 1) % walk->size()];
}

} // namespace corvane
