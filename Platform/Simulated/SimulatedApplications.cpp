#include "SimulatedApplications.h"

namespace corvane {

using namespace Qt::StringLiterals;

SimulatedApplications::SimulatedApplications(SimulatedDesktop &desktop) : m_desktop(desktop)
{
    connect(&desktop, &SimulatedDesktop::applicationLaunched, this, &Applications::launched);
    connect(&desktop, &SimulatedDesktop::applicationTerminated, this, &Applications::terminated);
}

QList<RunningApplication> SimulatedApplications::running()
{
    m_desktop.catchUp();
    return m_desktop.running();
}

std::optional<RunningApplication> SimulatedApplications::application(pid_t pid)
{
    m_desktop.catchUp();
    const SimulatedApplication *found = m_desktop.findApplication(pid);
    return found && found->hasShown ? std::optional(found->record()) : std::nullopt;
}

std::optional<RunningApplication> SimulatedApplications::frontmost()
{
    m_desktop.catchUp();
    const auto focused = m_desktop.focused();
    return focused ? application(m_desktop.window(*focused).pid) : std::nullopt;
}

Installation SimulatedApplications::installation(const QString &bundleIdentifier)
{
    const InstalledApplication *found = m_desktop.installed(bundleIdentifier);
    return found ? Installation{found->state, found->name} : Installation{};
}

expected<void, QString> SimulatedApplications::open(const QString &bundleIdentifier)
{
    const Installation found = installation(bundleIdentifier);
    if (found.state == Installation::State::notInstalled)
        return unexpected<QString>(u"\"%1\" is not installed."_s.arg(bundleIdentifier));
    if (found.state == Installation::State::broken)
        return unexpected<QString>(u"\"%1\" cannot be opened."_s.arg(bundleIdentifier));
    m_desktop.launch(bundleIdentifier);
    return {};
}

QList<RunningApplication> SimulatedApplications::rivals()
{
    m_desktop.catchUp();
    return m_desktop.rivals();
}

void SimulatedApplications::quit(pid_t pid)
{
    if (m_desktop.findApplication(pid))
        m_desktop.quit(pid);
}

} // namespace corvane
