#pragma once

#include "Applications.h"
#include "SimulatedDesktop.h"

namespace corvane {

class SimulatedApplications final : public Applications
{
    Q_OBJECT

public:
    explicit SimulatedApplications(SimulatedDesktop &desktop);

    QList<RunningApplication> running() override;
    std::optional<RunningApplication> application(pid_t pid) override;
    std::optional<RunningApplication> applicationOf(const WindowElement &window) override;
    QStringList formerIdentifiers(const WindowElement &window) override;
    std::optional<RunningApplication> frontmost() override;

    QList<InstalledApplication> installed() override;
    std::optional<InstalledApplication> installed(const QString &bundleIdentifier) override;
    Installation installation(const QString &bundleIdentifier) override;
    expected<void, QString> open(const QString &bundleIdentifier) override;
    QList<RunningApplication> rivals() override;
    expected<void, QString> openWindow(const QString &bundleIdentifier) override;
    void quit(pid_t pid) override;

private:
    [[nodiscard]] expected<void, QString> canBeOpened(const QString &bundleIdentifier);

    SimulatedDesktop &m_desktop;
};

} // namespace corvane
