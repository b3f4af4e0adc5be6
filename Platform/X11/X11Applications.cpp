#include "X11Applications.h"

#include "ClientProperties.h"
#include "Properties.h"

namespace corvane::x11 {

X11Applications::X11Applications(Connection &connection, WindowRegistry &registry)
    : m_connection(connection), m_registry(registry)
{
    connect(&registry, &WindowRegistry::appeared, this, &X11Applications::meet);
    connect(&registry, &WindowRegistry::destroyed, this, &X11Applications::lose);
    connect(&m_rivals, &freedesktop::Rivals::ended, this, [this](pid_t pid) {
        if (!m_processes.contains(pid))
            Q_EMIT terminated(pid);
    });
    QList<WindowElement> present;
    for (const auto &[window, known] : registry.known().asKeyValueRange())
        present << WindowElement{window, known.generation};
    meet(present);
}

X11Applications::~X11Applications() = default;

QList<RunningApplication> X11Applications::running()
{
    QList<RunningApplication> applications;
    reviewRegular();
    for (auto &[pid, process] : m_processes)
        applications << describe(process);
    return applications;
}

std::optional<RunningApplication> X11Applications::application(pid_t pid)
{
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return std::nullopt;
    reviewRegular(pid);
    return describe(process->second);
}

std::optional<RunningApplication> X11Applications::frontmost()
{
    const xcb_window_t active =
        readList(m_connection, m_connection.root(), Atom::netActiveWindow).value(0);
    const auto known = m_registry.known().constFind(active);
    return known != m_registry.known().cend() ? application(known->pid) : std::nullopt;
}

Installation X11Applications::installation(const QString &bundleIdentifier)
{
    const auto entry = m_entries.entry(bundleIdentifier);
    return entry ? freedesktop::installation(*entry) : Installation{};
}

expected<void, QString> X11Applications::open(const QString &bundleIdentifier)
{
    return m_launcher.open(bundleIdentifier);
}

QList<RunningApplication> X11Applications::rivals()
{
    return m_rivals.running();
}

void X11Applications::quit(pid_t pid)
{
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return m_rivals.terminate(pid);
    const Answers answers(m_connection);
    bool isAsked = false;
    for (const xcb_window_t window : m_registry.frontToBack()) {
        if (m_registry.known().value(window).pid != pid)
            continue;
        m_connection.sendToRoot(
            window, Atom::netCloseWindow, {XCB_CURRENT_TIME, fromPager, 0, 0, 0});
        isAsked = true;
    }
    xcb_flush(m_connection.xcb());
    if (!isAsked && answers.complete())
        process->second.handle.terminate();
}

void X11Applications::meet(const QList<WindowElement> &windows)
{
    for (const WindowElement &window : windows) {
        const KnownWindow *known = m_registry.find(window);
        if (!known)
            continue;
        const pid_t pid = known->pid;
        auto [at, isNew] = m_processes.try_emplace(pid, pid);
        Process &process = at->second;
        ++process.windowCount;
        if (isNew)
            connect(&process.handle, &freedesktop::ProcessHandle::ended, this, [this, pid] {
                // Later, since the handle that tells it goes with the process.
                m_connection.defer([this, pid] { end(pid); });
            });
        // A splash screen or panel does not name the application for good.
        if (isNew || (known->inTaskbar && !process.isRegular)) {
            process.traces = {pid, known->publishedId, known->className, known->instanceName};
            process.entry.reset();
            process.soughtIn = 0;
        }
        if (known->inTaskbar && !std::exchange(process.isRegular, true))
            announce(pid);
    }
}

void X11Applications::announce(pid_t pid)
{
    m_connection.defer([this, pid] {
        const auto launchedApplication = application(pid);
        if (launchedApplication && launchedApplication->isRegular)
            Q_EMIT launched(*launchedApplication);
    });
}

/// Programs take their windows out of the task bar, and put them there, while these are open. One
/// that has no window at the time stays what it was.
void X11Applications::reviewRegular(std::optional<pid_t> only)
{
    QList<std::pair<pid_t, xcb_get_property_cookie_t>> asked;
    for (const xcb_window_t window : m_registry.clients()) {
        const auto known = m_registry.known().constFind(window);
        if (known != m_registry.known().cend() && known->kind == WindowKind::standard
            && only.value_or(known->pid) == known->pid)
            asked.emplace_back(known->pid, requestProperty(m_connection, window, Atom::netWmState));
    }
    QHash<pid_t, bool> regular;
    for (const auto &[pid, cookie] : std::as_const(asked)) {
        if (const auto state = propertyReply(m_connection, cookie))
            regular[pid] = regular.value(pid) || isInTaskbar(m_connection, values32(state));
    }
    for (const auto &[pid, isRegular] : regular.asKeyValueRange()) {
        const auto process = m_processes.find(pid);
        if (process == m_processes.end())
            continue;
        if (std::exchange(process->second.isRegular, isRegular) != isRegular && isRegular)
            announce(pid);
    }
}

void X11Applications::lose(const WindowElement &, const KnownWindow &known)
{
    const auto process = m_processes.find(known.pid);
    if (process == m_processes.end())
        return;
    --process->second.windowCount;
    // Without a descriptor to watch, an application ends with its last window.
    if (process->second.windowCount <= 0 && !process->second.handle.isValid())
        m_connection.defer([this, pid = known.pid] { end(pid); });
}

void X11Applications::end(pid_t pid)
{
    if (m_processes.erase(pid) > 0)
        Q_EMIT terminated(pid);
}

RunningApplication X11Applications::describe(Process &process)
{
    identify(process);
    const auto &[pid, publishedId, className, instanceName] = process.traces;
    const QString &anyName = className.isEmpty() ? instanceName : className;
    return {.pid = pid,
        .bundleIdentifier = process.entry ? process.entry->id : className,
        .localizedName = process.entry ? process.entry->name : anyName,
        .isRegular = process.isRegular};
}

void X11Applications::identify(Process &process)
{
    if (process.entry)
        return;
    const quint64 revision = m_entries.revision();
    if (std::exchange(process.soughtIn, revision) != revision)
        process.entry = freedesktop::findApplication(m_entries, process.traces);
}

} // namespace corvane::x11
