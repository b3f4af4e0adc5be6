#include "WaylandApplications.h"

#include <algorithm>
#include <tuple>

namespace corvane::wayland {

using Scope = Compositor::Scope;

namespace {

bool isListed(const Toplevel &window)
{
    return window.kind == ToplevelKind::standard && window.listed;
}

} // namespace

WaylandApplications::WaylandApplications(ToplevelRegistry &registry)
    : m_registry(registry), m_openings(registry)
{
    connect(&registry, &ToplevelRegistry::appeared, this, [this](const Toplevel &window) {
        take(window.traces, isListed(window));
        greet(window);
    });
    connect(&registry, &ToplevelRegistry::changed, this,
        [this](const Toplevel &window, const Toplevel &before) {
            if (window.traces != before.traces)
                take(window.traces, isListed(window), before.traces);
            greet(window);
        });
    connect(&registry, &ToplevelRegistry::vanished, this,
        [this](const Toplevel &window) { lose(window.traces); });
    std::ignore = registry.desk(Scope::all);
}

std::optional<RunningApplication> WaylandApplications::applicationOf(const WindowElement &window)
{
    // Not every compositor tells that a window has another name now.
    const auto known = m_registry.toplevel(window);
    return known ? application(known->traces) : std::nullopt;
}

QStringList WaylandApplications::formerIdentifiers(const WindowElement &window)
{
    const Toplevel *known = m_registry.known(window);
    return known ? identifiers(known->traces.pid, m_registry.formerNames(window)) : QStringList();
}

std::optional<RunningApplication> WaylandApplications::frontmost()
{
    const auto desk = m_registry.desk(Scope::focused);
    if (!desk || !desk->focused)
        return std::nullopt;
    const auto owner = applicationOf(*desk->focused);
    const Toplevel *known = m_registry.known(*desk->focused);
    return owner || !known ? owner : application(known->traces.pid);
}

void WaylandApplications::defer(std::function<void()> action)
{
    m_registry.defer(std::move(action));
}

std::optional<bool> WaylandApplications::closeWindows(pid_t pid)
{
    const auto desk = m_registry.desk(Scope::all);
    if (!desk)
        return std::nullopt;
    bool areAsked = false;
    for (const Toplevel &window : desk->windows) {
        if (window.traces.pid != pid)
            continue;
        m_registry.compositor().close(window.element);
        areAsked = true;
    }
    return areAsked;
}

void WaylandApplications::review()
{
    const auto desk = m_registry.desk(Scope::all);
    if (!desk)
        return;
    QList<std::pair<freedesktop::ApplicationTraces, bool>> regular;
    for (const Toplevel &window : desk->windows) {
        const auto told = std::ranges::find_if(
            regular, [&](const auto &each) { return each.first == window.traces; });
        if (told == regular.end())
            regular.emplace_back(window.traces, isListed(window));
        else
            told->second |= isListed(window);
    }
    for (const auto &[traces, isRegular] : std::as_const(regular))
        setRegular(traces, isRegular);
}

void WaylandApplications::greet(const Toplevel &window)
{
    if (!m_openings.areUnderWay())
        return;
    if (const auto owner = application(window.traces))
        m_openings.greet(window.element, owner->bundleIdentifier);
}

} // namespace corvane::wayland
