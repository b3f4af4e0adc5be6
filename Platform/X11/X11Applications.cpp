#include "X11Applications.h"

#include "ActiveWindow.h"
#include "ClientProperties.h"
#include "Properties.h"

#include <QtCore/QFileInfo>

#include <algorithm>
#include <numeric>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using freedesktop::ApplicationTraces;

namespace {

ApplicationTraces tracesOf(pid_t pid, const WindowNames &names)
{
    return {pid, names.publishedId, names.className, names.instanceName};
}

} // namespace

int X11Applications::Process::windowCount() const
{
    return std::accumulate(roles.begin(), roles.end(), 0,
        [](int count, const Role &role) { return count + role.windowCount; });
}

X11Applications::Role *X11Applications::Process::role(const ApplicationTraces &traces)
{
    const auto found = std::ranges::find(roles, traces, &Role::traces);
    return found == roles.end() ? nullptr : &*found;
}

/// A client that names each window differently must not fill our memory.
void X11Applications::Process::forgetTooMany()
{
    constexpr size_t most = 50;
    if (roles.size() > most)
        std::erase_if(roles, [](const Role &role) { return role.windowCount <= 0; });
}

X11Applications::X11Applications(Connection &connection, WindowRegistry &registry)
    : m_connection(connection), m_registry(registry), m_openings(connection, registry)
{
    connect(&registry, &WindowRegistry::appeared, this, &X11Applications::meet);
    connect(&registry, &WindowRegistry::renamed, this, &X11Applications::follow);
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
    reviewRegular();
    QList<RunningApplication> applications;
    for (auto &[pid, process] : m_processes)
        applications << describe(process);
    return applications;
}

std::optional<RunningApplication> X11Applications::application(pid_t pid)
{
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return std::nullopt;
    reviewRegular();
    return describe(process->second).value(0);
}

std::optional<RunningApplication> X11Applications::applicationOf(const WindowElement &window)
{
    const KnownWindow *known = m_registry.find(window);
    Role *role = known ? roleOf(*known) : nullptr;
    return role ? std::optional(describe(*role)) : std::nullopt;
}

QStringList X11Applications::formerIdentifiers(const WindowElement &window)
{
    const KnownWindow *known = m_registry.find(window);
    if (!known)
        return {};
    QStringList identifiers = known->formerNames;
    for (const QString &program : freedesktop::ProcessFiles().programs(known->pid)) {
        const QString name = QFileInfo(program).fileName();
        identifiers << (name.endsWith(".bin"_L1) ? name.chopped(4) : name);
    }
    identifiers.removeDuplicates();
    return identifiers;
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

QList<InstalledApplication> X11Applications::installed()
{
    QList<InstalledApplication> all;
    for (const freedesktop::DesktopEntry &entry : m_entries.all()) {
        if (const auto described = freedesktop::installed(entry))
            all << *described;
    }
    return all;
}

std::optional<InstalledApplication> X11Applications::installed(const QString &bundleIdentifier)
{
    const auto entry = m_entries.entry(bundleIdentifier);
    return entry ? freedesktop::installed(*entry) : std::nullopt;
}

Installation X11Applications::installation(const QString &bundleIdentifier)
{
    const auto entry = m_entries.entry(bundleIdentifier);
    return entry ? freedesktop::installation(*entry) : Installation{};
}

expected<void, QString> X11Applications::open(const QString &bundleIdentifier)
{
    m_openings.begin(bundleIdentifier);
    return m_launcher.open(bundleIdentifier);
}

expected<void, QString> X11Applications::openWindow(const QString &bundleIdentifier)
{
    if (!hasWindow(bundleIdentifier))
        return open(bundleIdentifier);
    m_openings.begin(bundleIdentifier);
    return m_launcher.openFurtherWindow(bundleIdentifier);
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
        if (const KnownWindow *known = m_registry.find(window))
            take(window, *known);
    }
}

void X11Applications::take(const WindowElement &window, const KnownWindow &known)
{
    const auto [at, isNew] = m_processes.try_emplace(known.pid, known.pid);
    Process &process = at->second;
    if (isNew)
        connect(&process.handle, &freedesktop::ProcessHandle::ended, this, [this, pid = known.pid] {
            // Later, since the handle that tells it goes with the process.
            m_connection.defer([this, pid] { end(pid); });
        });
    const auto traces = tracesOf(known.pid, known.names);
    Role *role = process.role(traces);
    if (!role)
        role = &process.roles.emplace_back(Role{.traces = traces});
    ++role->windowCount;
    role->isRegular |= known.inTaskbar;
    if (known.inTaskbar)
        announce(known.pid);
    if (m_openings.areUnderWay())
        m_openings.greet(window, describe(*role).bundleIdentifier);
}

void X11Applications::follow(const WindowElement &window, const WindowNames &before)
{
    const KnownWindow &known = *m_registry.find(window);
    const auto process = m_processes.find(known.pid);
    Role *left =
        process != m_processes.end() ? process->second.role(tracesOf(known.pid, before)) : nullptr;
    // Else it is not listed yet, and will be met under its new names.
    if (!left || !known.wasListed)
        return;
    --left->windowCount;
    if (left->windowCount <= 0 && !left->isFinal)
        process->second.roles.erase(
            process->second.roles.begin() + (left - process->second.roles.data()));
    take(window, known);
}

void X11Applications::announce(pid_t pid)
{
    m_connection.defer([this, pid] {
        const auto process = m_processes.find(pid);
        if (process == m_processes.end())
            return;
        QList<RunningApplication> news = describe(process->second);
        news.removeIf([&](const RunningApplication &application) {
            const QString &id = application.bundleIdentifier;
            return !application.isRegular || process->second.launched.contains(id);
        });
        for (const RunningApplication &application : std::as_const(news))
            process->second.launched << application.bundleIdentifier;
        for (const RunningApplication &application : std::as_const(news))
            Q_EMIT launched(application);
    });
}

void X11Applications::lose(const WindowElement &, const KnownWindow &known)
{
    const auto process = m_processes.find(known.pid);
    if (process == m_processes.end() || !known.wasListed)
        return;
    if (Role *role = process->second.role(tracesOf(known.pid, known.names))) {
        --role->windowCount;
        role->isFinal = true;
    }
    process->second.forgetTooMany();
    // Without a descriptor to watch, an application ends with its last window.
    if (process->second.windowCount() <= 0 && !process->second.handle.isValid())
        m_connection.defer([this, pid = known.pid] { end(pid); });
}

/// Programs take their windows out of the task bar, and put them there, while these are open. What has
/// no window at the time stays what it was.
void X11Applications::reviewRegular()
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
    // Only now, since roles come and go while answers arrive.
    QMap<Role *, bool> regular;
    for (const auto &[window, isListed] : listed.asKeyValueRange()) {
        const auto known = m_registry.known().constFind(window);
        if (Role *role = known != m_registry.known().cend() ? roleOf(*known) : nullptr)
            regular[role] |= isListed;
    }
    for (const auto &[role, isRegular] : regular.asKeyValueRange()) {
        if (std::exchange(role->isRegular, isRegular) == isRegular)
            continue;
        if (isRegular)
            announce(role->traces.pid);
        else
            m_processes.at(role->traces.pid).launched.removeOne(describe(*role).bundleIdentifier);
    }
}

X11Applications::Role *X11Applications::roleOf(const KnownWindow &known)
{
    const auto process = m_processes.find(known.pid);
    return process == m_processes.end() ? nullptr
                                        : process->second.role(tracesOf(known.pid, known.names));
}

void X11Applications::end(pid_t pid)
{
    if (m_processes.erase(pid) > 0)
        Q_EMIT terminated(pid);
}

bool X11Applications::hasWindow(const QString &bundleIdentifier)
{
    for (auto &[pid, process] : m_processes) {
        for (Role &role : process.roles) {
            if (role.isRegular && role.windowCount > 0
                && describe(role).bundleIdentifier == bundleIdentifier)
                return true;
        }
    }
    return false;
}

QList<RunningApplication> X11Applications::describe(Process &process)
{
    const bool isRegular = std::ranges::any_of(process.roles, &Role::isRegular);
    QList<RunningApplication> applications;
    for (Role &role : process.roles) {
        // A splash screen or panel does not name the application for good.
        if (role.isRegular != isRegular)
            continue;
        const RunningApplication application = describe(role);
        const QString &id = application.bundleIdentifier;
        if (std::ranges::find(applications, id, &RunningApplication::bundleIdentifier)
            == applications.end())
            applications << application;
    }
    return applications;
}

RunningApplication X11Applications::describe(Role &role)
{
    identify(role);
    return {.pid = role.traces.pid,
        .bundleIdentifier = role.entry ? role.entry->id : role.plainName,
        .localizedName = role.entry ? role.entry->name : role.plainName,
        .isRegular = role.isRegular};
}

void X11Applications::identify(Role &role)
{
    if (role.entry)
        return;
    const quint64 revision = m_entries.revision();
    if (std::exchange(role.soughtIn, revision) == revision)
        return;
    role.entry = freedesktop::findApplication(m_entries, role.traces);
    if (!role.entry)
        role.plainName = freedesktop::plainName(role.traces);
}

} // namespace corvane::x11
