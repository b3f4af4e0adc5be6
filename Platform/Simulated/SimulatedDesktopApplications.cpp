#include "SimulatedDesktop.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <ranges>

namespace corvane {

void SimulatedDesktop::install(InstalledApplication application)
{
    m_installed << std::move(application);
}

const InstalledApplication *SimulatedDesktop::installed(const QString &bundleIdentifier) const
{
    const auto found =
        std::ranges::find(m_installed, bundleIdentifier, &InstalledApplication::bundleIdentifier);
    return found == m_installed.end() ? nullptr : &*found;
}

std::optional<pid_t> SimulatedDesktop::launch(const QString &bundleIdentifier)
{
    const InstalledApplication *found = installed(bundleIdentifier);
    if (!found)
        return std::nullopt;
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
    const bool isTold = application(pid).hasShown || application(pid).isRival;
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
        if (application.hasShown)
            running << application.record();
    return running;
}

QList<RunningApplication> SimulatedDesktop::rivals() const
{
    QList<RunningApplication> rivals;
    for (const auto &[pid, application] : m_applications)
        if (application.isRival)
            rivals << application.record();
    return rivals;
}

void SimulatedDesktop::noteShown(SimulatedApplication &owner, const SimulatedWindow &window)
{
    owner.hasShown = true;
    if (owner.isRegular || !window.isListed())
        return;
    owner.isRegular = true;
    m_notices.post([this, record = owner.record()] { Q_EMIT applicationLaunched(record); });
}

} // namespace corvane
