#include "SimulatedDesktop.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <ranges>

namespace corvane {

void SimulatedDesktop::install(SimulatedInstallation application)
{
    m_installed << std::move(application);
}

const SimulatedInstallation *SimulatedDesktop::installed(const QString &bundleIdentifier) const
{
    const auto found =
        std::ranges::find(m_installed, bundleIdentifier, &SimulatedInstallation::bundleIdentifier);
    return found == m_installed.end() ? nullptr : &*found;
}

std::optional<pid_t> SimulatedDesktop::launch(const QString &bundleIdentifier)
{
    const SimulatedInstallation *found = installed(bundleIdentifier);
    if (!found)
        return std::nullopt;
    using enum SimulatedInstallation::FurtherStart;
    if (const auto running = processOf(bundleIdentifier);
        running && found->furtherStart != process) {
        if (found->furtherStart == window || !hasWindow(*running, bundleIdentifier))
            openFurther(*running, *found);
        return running;
    }
    const pid_t pid = start(bundleIdentifier, found->name);
    const auto open = [this, pid](const WindowSpec &spec) {
        WindowSpec quiet = spec;
        quiet.takesFocus = false;
        return openWindow(pid, quiet);
    };
    std::optional<WindowElement> splash;
    if (found->splash)
        splash = open(*found->splash);
    const auto openAll = [this, pid, open, splash, windows = found->windows] {
        if (!findApplication(pid))
            return;
        for (const WindowSpec &spec : windows | std::views::reverse)
            open(spec);
        if (splash && findWindow(*splash))
            closeWindow(*splash);
    };
    if (found->opensAfter)
        schedule(*found->opensAfter, openAll);
    if (found->exitsAfter)
        schedule(*found->exitsAfter, [this, pid] {
            if (findApplication(pid))
                quit(pid);
        });
    catchUp();
    return pid;
}

std::optional<pid_t> SimulatedDesktop::processOf(const QString &bundleIdentifier) const
{
    for (const auto &[pid, application] : m_applications) {
        if (application.bundleIdentifier == bundleIdentifier
            || std::ranges::find(
                   application.roles, bundleIdentifier, &RunningApplication::bundleIdentifier)
                != application.roles.end())
            return pid;
    }
    return std::nullopt;
}

bool SimulatedDesktop::hasWindow(pid_t pid, const QString &bundleIdentifier)
{
    return std::ranges::any_of(m_windows, [&](const auto &each) {
        return each.second.pid == pid && each.second.isListed()
            && roleOf(each.second).bundleIdentifier == bundleIdentifier;
    });
}

void SimulatedDesktop::openFurther(pid_t pid, const SimulatedInstallation &application)
{
    if (!application.opensAfter || application.windows.isEmpty())
        return;
    WindowSpec spec = application.windows.first();
    spec.takesFocus = false;
    schedule(*application.opensAfter, [this, pid, spec] {
        if (findApplication(pid))
            openWindow(pid, spec);
    });
    catchUp();
}

pid_t SimulatedDesktop::start(const QString &bundleIdentifier, const QString &name, pid_t pid)
{
    if (pid == 0)
        pid = ++m_lastPid;
    Q_ASSERT(!m_applications.contains(pid));
    m_applications.emplace(pid, SimulatedApplication{pid, bundleIdentifier, name});
    return pid;
}

void SimulatedDesktop::quit(pid_t pid)
{
    for (const WindowElement &element : stack())
        if (window(element).pid == pid)
            closeWindow(element);
    const bool isTold = !application(pid).roles.isEmpty() || application(pid).isRival;
    m_applications.erase(pid);
    if (isTold)
        m_notices.post([this, pid] { Q_EMIT applicationTerminated(pid); });
}

SimulatedApplication &SimulatedDesktop::application(pid_t pid)
{
    SimulatedApplication *found = findApplication(pid);
    Q_ASSERT(found);
    return *found;
}

SimulatedApplication *SimulatedDesktop::findApplication(pid_t pid)
{
    const auto found = m_applications.find(pid);
    return found == m_applications.end() ? nullptr : &found->second;
}

QList<RunningApplication> SimulatedDesktop::running() const
{
    QList<RunningApplication> running;
    for (const auto &[pid, application] : m_applications)
        running << application.records();
    return running;
}

QList<RunningApplication> SimulatedDesktop::rivals() const
{
    QList<RunningApplication> rivals;
    for (const auto &[pid, application] : m_applications)
        if (application.isRival)
            rivals << RunningApplication{.pid = pid,
                .bundleIdentifier = application.bundleIdentifier,
                .localizedName = application.name};
    return rivals;
}

RunningApplication SimulatedDesktop::roleOf(const SimulatedWindow &window)
{
    const SimulatedApplication &owner = application(window.pid);
    const QString &id = window.application;
    const SimulatedInstallation *found = installed(id);
    const QString foreignName = found ? found->name : id;
    return {window.pid, id.isEmpty() ? owner.bundleIdentifier : id,
        id.isEmpty() ? owner.name : foreignName, window.isListed()};
}

void SimulatedDesktop::tellShown(SimulatedApplication &owner, const SimulatedWindow &window)
{
    const RunningApplication role = roleOf(window);
    const auto known = std::ranges::find(
        owner.roles, role.bundleIdentifier, &RunningApplication::bundleIdentifier);
    const bool wasRegular = known != owner.roles.end() && known->isRegular;
    if (known == owner.roles.end())
        owner.roles << role;
    else
        known->isRegular |= role.isRegular;
    if (role.isRegular && !wasRegular)
        m_notices.post([this, role] { Q_EMIT applicationLaunched(role); });
}

void SimulatedDesktop::renameWindow(const WindowElement &element, const QString &bundleIdentifier)
{
    SimulatedWindow &renamed = window(element);
    SimulatedApplication &owner = application(renamed.pid);
    const QString before = roleOf(renamed).bundleIdentifier;
    renamed.formerIdentifiers << before;
    renamed.application = bundleIdentifier;
    const auto belongsToFormer = [&](const auto &each) {
        return each.second.pid == owner.pid && roleOf(each.second).bundleIdentifier == before;
    };
    if (std::ranges::none_of(m_windows, belongsToFormer))
        owner.roles.removeIf(
            [&before](const RunningApplication &role) { return role.bundleIdentifier == before; });
    tellShown(owner, renamed);
}

QList<RunningApplication> SimulatedApplication::records() const
{
    const bool isRegular = std::ranges::any_of(roles, &RunningApplication::isRegular);
    QList<RunningApplication> records = roles;
    records.removeIf(
        [isRegular](const RunningApplication &role) { return role.isRegular != isRegular; });
    return records;
}

} // namespace corvane
