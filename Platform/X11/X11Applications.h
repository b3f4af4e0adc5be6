#pragma once

#include "ApplicationMatch.h"
#include "Applications.h"
#include "Launcher.h"
#include "Rivals.h"
#include "WindowRegistry.h"

#include <map>

namespace corvane::x11 {

/// The processes behind the managed windows, and the applications of those that have none here.
class X11Applications final : public Applications
{
    Q_OBJECT

public:
    X11Applications(Connection &connection, WindowRegistry &registry);
    ~X11Applications() override;

    QList<RunningApplication> running() override;
    std::optional<RunningApplication> application(pid_t pid) override;
    std::optional<RunningApplication> frontmost() override;

    Installation installation(const QString &bundleIdentifier) override;
    expected<void, QString> open(const QString &bundleIdentifier) override;
    QList<RunningApplication> rivals() override;
    void quit(pid_t pid) override;

private:
    struct Process {
        explicit Process(pid_t pid) : handle(pid) { }

        freedesktop::ProcessHandle handle;
        freedesktop::ApplicationTraces traces;
        std::optional<freedesktop::DesktopEntry> entry;
        quint64 soughtIn = 0; ///< the revision of the entries in which none was found
        bool isRegular = false; ///< when it last was looked at
        int windowCount = 0;
    };

    void meet(const QList<WindowElement> &windows);
    void lose(const WindowElement &window, const KnownWindow &known);
    void announce(pid_t pid);
    void reviewRegular(std::optional<pid_t> only = {});
    void end(pid_t pid);
    [[nodiscard]] RunningApplication describe(Process &process);
    void identify(Process &process);

    Connection &m_connection;
    WindowRegistry &m_registry;
    freedesktop::DesktopEntries m_entries;
    freedesktop::Launcher m_launcher{m_entries};
    freedesktop::Rivals m_rivals;
    std::map<pid_t, Process> m_processes;
};

} // namespace corvane::x11
