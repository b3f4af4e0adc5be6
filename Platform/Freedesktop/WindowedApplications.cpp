#include "WindowedApplications.h"

#include "ProcessFiles.h"

#include <QtCore/QFileInfo>

#include <algorithm>
#include <numeric>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {
constexpr auto sharedFor = std::chrono::milliseconds(3);
} // namespace

int WindowedApplications::Process::windowCount() const
{
    return std::accumulate(roles.begin(), roles.end(), 0,
        [](int count, const Role &role) { return count + role.windowCount; });
}

WindowedApplications::Role *WindowedApplications::Process::role(const ApplicationTraces &traces)
{
    const auto found = std::ranges::find(roles, traces, &Role::traces);
    return found == roles.end() ? nullptr : &*found;
}

/// A client that names each window differently must not fill our memory.
void WindowedApplications::Process::forgetTooMany()
{
    constexpr size_t most = 50;
    if (roles.size() > most)
        std::erase_if(roles, [](const Role &role) { return role.windowCount <= 0; });
}

WindowedApplications::WindowedApplications()
{
    connect(&m_rivals, &Rivals::ended, this, [this](pid_t pid) {
        if (!m_processes.contains(pid))
            Q_EMIT terminated(pid);
    });
}

WindowedApplications::~WindowedApplications() = default;

QList<RunningApplication> WindowedApplications::running()
{
    review();
    QList<RunningApplication> applications;
    for (auto &[pid, process] : m_processes)
        applications << describe(process);
    return applications;
}

std::optional<RunningApplication> WindowedApplications::application(pid_t pid)
{
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return std::nullopt;
    review();
    return describe(process->second).value(0);
}

QList<InstalledApplication> WindowedApplications::installed()
{
    QList<InstalledApplication> all;
    for (const DesktopEntry &entry : m_entries.all()) {
        if (const auto described = freedesktop::installed(entry))
            all << *described;
    }
    return all;
}

std::optional<InstalledApplication> WindowedApplications::installed(const QString &bundleIdentifier)
{
    const auto entry = m_entries.entry(bundleIdentifier);
    return entry ? freedesktop::installed(*entry) : std::nullopt;
}

Installation WindowedApplications::installation(const QString &bundleIdentifier)
{
    const auto entry = m_entries.entry(bundleIdentifier);
    return entry ? freedesktop::installation(*entry) : Installation{};
}

expected<void, QString> WindowedApplications::open(const QString &bundleIdentifier)
{
    expect(bundleIdentifier);
    return m_launcher.open(bundleIdentifier);
}

expected<void, QString> WindowedApplications::openWindow(const QString &bundleIdentifier)
{
    if (!hasWindow(bundleIdentifier))
        return open(bundleIdentifier);
    expect(bundleIdentifier);
    return m_launcher.openFurtherWindow(bundleIdentifier);
}

QList<RunningApplication> WindowedApplications::rivals()
{
    return m_rivals.running();
}

void WindowedApplications::quit(pid_t pid)
{
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return m_rivals.terminate(pid);
    if (const auto areAsked = closeWindows(pid); areAsked && !*areAsked)
        process->second.handle.terminate();
}

void WindowedApplications::take(const ApplicationTraces &traces, bool isListed)
{
    const pid_t pid = traces.pid;
    const auto [at, isNew] = m_processes.try_emplace(pid, pid);
    Process &process = at->second;
    if (isNew)
        connect(&process.handle, &ProcessHandle::ended, this, [this, pid] {
            // Later, since the handle that tells it goes with the process.
            defer([this, pid] { end(pid); });
        });
    Role *role = process.role(traces);
    if (!role)
        role = &process.roles.emplace_back(Role{.traces = traces});
    ++role->windowCount;
    role->isRegular |= isListed;
    if (isListed)
        announce(pid);
}

void WindowedApplications::take(
    const ApplicationTraces &traces, bool isListed, const ApplicationTraces &before)
{
    if (Role *left = roleOf(before)) {
        --left->windowCount;
        auto &roles = m_processes.at(before.pid).roles;
        if (left->windowCount <= 0 && !left->isFinal)
            roles.erase(roles.begin() + (left - roles.data()));
    }
    take(traces, isListed);
}

void WindowedApplications::lose(const ApplicationTraces &traces)
{
    const pid_t pid = traces.pid;
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return;
    if (Role *role = process->second.role(traces)) {
        --role->windowCount;
        role->isFinal = true;
    }
    process->second.forgetTooMany();
    // Without a descriptor to watch, an application ends with its last window.
    if (process->second.windowCount() <= 0 && !process->second.handle.isValid())
        defer([this, pid] { end(pid); });
}

void WindowedApplications::setRegular(const ApplicationTraces &traces, bool isRegular)
{
    Role *role = roleOf(traces);
    if (!role || std::exchange(role->isRegular, isRegular) == isRegular)
        return;
    if (isRegular)
        announce(traces.pid);
    else
        m_processes.at(traces.pid).launched.removeOne(describe(*role).bundleIdentifier);
}

std::optional<RunningApplication> WindowedApplications::application(const ApplicationTraces &traces)
{
    Role *role = roleOf(traces);
    return role ? std::optional(describe(*role)) : std::nullopt;
}

QStringList WindowedApplications::identifiers(pid_t pid, QStringList names)
{
    for (const QString &program : ProcessFiles().programs(pid)) {
        const QString name = QFileInfo(program).fileName();
        names << (name.endsWith(".bin"_L1) ? name.chopped(4) : name);
    }
    names.removeDuplicates();
    return names;
}

WindowedApplications::Role *WindowedApplications::roleOf(const ApplicationTraces &traces)
{
    const auto process = m_processes.find(traces.pid);
    return process == m_processes.end() ? nullptr : process->second.role(traces);
}

void WindowedApplications::announce(pid_t pid)
{
    defer([this, pid] {
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

void WindowedApplications::end(pid_t pid)
{
    if (m_processes.erase(pid) > 0)
        Q_EMIT terminated(pid);
}

bool WindowedApplications::hasWindow(const QString &bundleIdentifier)
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

QList<RunningApplication> WindowedApplications::describe(Process &process)
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

RunningApplication WindowedApplications::describe(Role &role)
{
    identify(role);
    return {.pid = role.traces.pid,
        .bundleIdentifier = role.entry ? role.entry->id : role.plainName,
        .localizedName = role.entry ? role.entry->name : role.plainName,
        .isRegular = role.isRegular};
}

void WindowedApplications::identify(Role &role)
{
    if (role.entry)
        return;
    // One look at the folders will do for all windows of a layout.
    const auto now = std::chrono::steady_clock::now();
    if (now - role.soughtAt < sharedFor)
        return;
    role.soughtAt = now;
    const quint64 revision = m_entries.revision();
    if (std::exchange(role.soughtIn, revision) == revision)
        return;
    role.entry = findApplication(m_entries, role.traces);
    if (!role.entry)
        role.plainName = plainName(role.traces);
}

} // namespace corvane::freedesktop
