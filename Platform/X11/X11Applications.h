#pragma once

#include "Applications.h"
#include "DesktopEntries.h"
#include "WindowRegistry.h"

#include <map>
#include <memory>

class QSocketNotifier;

namespace corvane::x11 {

/// The processes behind the managed windows.
class X11Applications final : public Applications
{
    Q_OBJECT

public:
    X11Applications(
        Connection &connection, WindowRegistry &registry, freedesktop::DesktopEntries &entries);
    ~X11Applications() override;

    QList<RunningApplication> running() override;
    std::optional<RunningApplication> application(pid_t pid) override;
    std::optional<RunningApplication> frontmost() override;

private:
    /// Watches one process for its end without polling (pidfd, Linux 5.3).
    struct Process {
        Process() = default;
        ~Process();
        Q_DISABLE_COPY_MOVE(Process)

        QString className;
        QString instanceName;
        bool isRegular = false;
        int windowCount = 0;
        int pidfd = -1;
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void meet(const QList<WindowElement> &windows);
    void lose(const WindowElement &window, const KnownWindow &known);
    void watchExit(pid_t pid, Process &process);
    void end(pid_t pid);
    [[nodiscard]] RunningApplication describe(pid_t pid, const Process &process);

    Connection &m_connection;
    WindowRegistry &m_registry;
    freedesktop::DesktopEntries &m_entries;
    std::map<pid_t, Process> m_processes;
};

} // namespace corvane::x11
