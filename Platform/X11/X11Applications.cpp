#include "X11Applications.h"

#include "ActiveWindow.h"
#include "ClientProperties.h"
#include "Properties.h"

#include <algorithm>

namespace corvane::x11 {

using freedesktop::ApplicationTraces;

namespace {

ApplicationTraces tracesOf(pid_t pid, const WindowNames &names)
{
    return {pid, names.publishedId, names.className, names.instanceName};
}

ApplicationTraces tracesOf(const KnownWindow &known)
{
    return tracesOf(known.pid, known.names);
}

} // namespace

X11Applications::X11Applications(Connection &connection, WindowRegistry &registry)
    : m_connection(connection), m_registry(registry), m_openings(connection, registry)
{
    connect(&registry, &WindowRegistry::appeared, this, &X11Applications::meet);
    connect(&registry, &WindowRegistry::renamed, this, &X11Applications::follow);
    connect(&registry, &WindowRegistry::destroyed, this, &X11Applications::lose);
    QList<WindowElement> present;
    for (const auto &[window, known] : registry.known().asKeyValueRange())
        present << WindowElement{window, known.generation};
    meet(present);
}

std::optional<RunningApplication> X11Applications::applicationOf(const WindowElement &window)
{
    const KnownWindow *known = m_registry.find(window);
    return known ? application(tracesOf(*known)) : std::nullopt;
}

QStringList X11Applications::formerIdentifiers(const WindowElement &window)
{
    const KnownWindow *known = m_registry.find(window);
    return known ? identifiers(known->pid, known->formerNames) : QStringList();
}

std::optional<RunningApplication> X11Applications::frontmost()
{
    const xcb_window_t active = activeWindow(m_connection);
    const auto known = m_registry.known().constFind(active);
    if (known == m_registry.known().cend())
        return std::nullopt;
    const auto owner = applicationOf({active, known->generation});
    return owner ? owner : application(known->pid);
}

void X11Applications::defer(std::function<void()> action)
{
    m_connection.defer(std::move(action));
}

std::optional<bool> X11Applications::closeWindows(pid_t pid)
{
    const Answers answers(m_connection);
    bool areAsked = false;
    for (const xcb_window_t window : m_registry.frontToBack()) {
        if (m_registry.known().value(window).pid != pid)
            continue;
        m_connection.sendToRoot(
            window, Atom::netCloseWindow, {XCB_CURRENT_TIME, fromPager, 0, 0, 0});
        areAsked = true;
    }
    xcb_flush(m_connection.xcb());
    return answers.complete() ? std::optional(areAsked) : std::nullopt;
}

/// Programs take their windows out of the task bar, and put them there, while these are open. What has
/// no window at the time stays what it was.
void X11Applications::review()
{
    m_connection.drain();
    const quint64 revision = m_registry.statesRevision();
    if (revision == m_reviewed)
        return;
    const Answers answers(m_connection);
    QList<std::pair<xcb_window_t, xcb_get_property_cookie_t>> asked;
    for (const xcb_window_t window : m_registry.clients()) {
        const auto known = m_registry.known().constFind(window);
        if (known != m_registry.known().cend() && known->kind == WindowKind::standard)
            asked.emplace_back(window, requestProperty(m_connection, window, Atom::netWmState));
    }
    QHash<xcb_window_t, bool> listed;
    for (const auto &[window, cookie] : std::as_const(asked)) {
        if (const auto state = propertyReply(m_connection, cookie))
            listed.insert(window, isInTaskbar(m_connection, values32(state)));
    }
    if (answers.complete())
        m_reviewed = revision;
    // Only now, since windows come and go while answers arrive.
    QList<std::pair<ApplicationTraces, bool>> regular;
    for (const auto &[window, isListed] : listed.asKeyValueRange()) {
        const auto known = m_registry.known().constFind(window);
        if (known == m_registry.known().cend())
            continue;
        const ApplicationTraces traces = tracesOf(*known);
        const auto told = std::ranges::find(
            regular, traces, [](const auto &each) -> const auto & { return each.first; });
        if (told == regular.end())
            regular.emplace_back(traces, isListed);
        else
            told->second |= isListed;
    }
    for (const auto &[traces, isRegular] : std::as_const(regular))
        setRegular(traces, isRegular);
}

void X11Applications::meet(const QList<WindowElement> &windows)
{
    for (const WindowElement &window : windows) {
        const KnownWindow *known = m_registry.find(window);
        if (!known)
            continue;
        take(tracesOf(*known), known->inTaskbar);
        greet(window);
    }
}

void X11Applications::follow(const WindowElement &window, const WindowNames &before)
{
    const KnownWindow &known = *m_registry.find(window);
    const ApplicationTraces left = tracesOf(known.pid, before);
    // Else it is not listed yet, and will be met under its new names.
    if (!known.wasListed || !has(left))
        return;
    take(tracesOf(known), known.inTaskbar, left);
    greet(window);
}

void X11Applications::lose(const WindowElement &, const KnownWindow &known)
{
    if (known.wasListed)
        WindowedApplications::lose(tracesOf(known));
}

void X11Applications::greet(const WindowElement &window)
{
    if (!m_openings.areUnderWay())
        return;
    if (const auto owner = applicationOf(window))
        m_openings.greet(window, owner->bundleIdentifier);
}

} // namespace corvane::x11
