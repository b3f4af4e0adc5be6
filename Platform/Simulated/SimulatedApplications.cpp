#include "SimulatedApplications.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

std::optional<InstalledApplication> describe(const SimulatedInstallation &installation)
{
    if (installation.state == Installation::State::broken)
        return std::nullopt;
    return InstalledApplication{.id = installation.bundleIdentifier,
        .name = installation.name,
        .purpose = installation.purpose,
        .keywords = installation.keywords,
        .iconName = installation.iconName,
        .isHidden = installation.state == Installation::State::hidden};
}

} // namespace

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
    const auto records = found ? found->records() : QList<RunningApplication>();
    return records.isEmpty() ? std::nullopt : std::optional(records.first());
}

std::optional<RunningApplication> SimulatedApplications::applicationOf(const WindowElement &window)
{
    m_desktop.catchUp();
    const SimulatedWindow *found = m_desktop.findWindow(window);
    return found ? std::optional(m_desktop.roleOf(*found)) : std::nullopt;
}

QStringList SimulatedApplications::formerIdentifiers(const WindowElement &window)
{
    m_desktop.catchUp();
    const SimulatedWindow *found = m_desktop.findWindow(window);
    return found ? found->formerIdentifiers : QStringList();
}

std::optional<RunningApplication> SimulatedApplications::frontmost()
{
    m_desktop.catchUp();
    const auto focused = m_desktop.focused();
    return focused ? applicationOf(*focused) : std::nullopt;
}

QList<InstalledApplication> SimulatedApplications::installed()
{
    QList<InstalledApplication> all;
    for (const SimulatedInstallation &each : m_desktop.installations()) {
        if (const auto described = describe(each))
            all << *described;
    }
    std::ranges::sort(all, {}, &InstalledApplication::id);
    return all;
}

std::optional<InstalledApplication> SimulatedApplications::installed(
    const QString &bundleIdentifier)
{
    const SimulatedInstallation *found = m_desktop.installed(bundleIdentifier);
    return found ? describe(*found) : std::nullopt;
}

Installation SimulatedApplications::installation(const QString &bundleIdentifier)
{
    const SimulatedInstallation *found = m_desktop.installed(bundleIdentifier);
    return found ? Installation{found->state, found->name} : Installation{};
}

expected<void, QString> SimulatedApplications::open(const QString &bundleIdentifier)
{
    return canBeOpened(bundleIdentifier).map([&] { m_desktop.launch(bundleIdentifier); });
}

expected<void, QString> SimulatedApplications::openWindow(const QString &bundleIdentifier)
{
    if (const auto can = canBeOpened(bundleIdentifier); !can)
        return can;
    m_desktop.catchUp();
    const SimulatedInstallation &found = *m_desktop.installed(bundleIdentifier);
    const auto pid = m_desktop.processOf(bundleIdentifier);
    const bool hasWindow = pid && m_desktop.hasWindow(*pid, bundleIdentifier);
    if (hasWindow && found.opensFurtherWindows) {
        m_desktop.openFurther(*pid, found);
        return {};
    }
    if (hasWindow && found.hasOneWindow)
        return unexpected<QString>(u"\"%1\" shows no more than one window."_s.arg(found.name));
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

expected<void, QString> SimulatedApplications::canBeOpened(const QString &bundleIdentifier)
{
    const Installation found = installation(bundleIdentifier);
    if (found.state == Installation::State::notInstalled)
        return unexpected<QString>(u"\"%1\" is not installed."_s.arg(bundleIdentifier));
    if (found.state == Installation::State::broken)
        return unexpected<QString>(u"\"%1\" cannot be opened."_s.arg(bundleIdentifier));
    return {};
}

} // namespace corvane
