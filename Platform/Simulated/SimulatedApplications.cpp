#include "SimulatedApplications.h"

namespace corvane {

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

} // namespace corvane
