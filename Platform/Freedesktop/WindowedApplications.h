#pragma once

#include "ApplicationMatch.h"
#include "Applications.h"
#include "Launcher.h"
#include "ProcessHandle.h"
#include "Rivals.h"

#include <chrono>
#include <functional>
#include <map>
#include <vector>

namespace corvane::freedesktop {

/// The processes behind the windows of a desktop, and the applications that they are. A back end tells
/// of the windows by what they say of themselves.
class WindowedApplications : public Applications
{
    Q_OBJECT

public:
    QList<RunningApplication> running() override;
    std::optional<RunningApplication> application(pid_t pid) override;

    QList<InstalledApplication> installed() override;
    std::optional<InstalledApplication> installed(const QString &bundleIdentifier) override;
    Installation installation(const QString &bundleIdentifier) override;
    expected<void, QString> open(const QString &bundleIdentifier) override;
    expected<void, QString> openWindow(const QString &bundleIdentifier) override;
    QList<RunningApplication> rivals() override;
    void quit(pid_t pid) override;

protected:
    WindowedApplications();
    ~WindowedApplications() override;

    /// Runs the action soon, from the event loop, in the order of all notices.
    virtual void defer(std::function<void()> action) = 0;
    /// Asks the windows of the process to close. Nothing when the desktop did not answer; false when
    /// there are none.
    [[nodiscard]] virtual std::optional<bool> closeWindows(pid_t pid) = 0;
    /// The application is about to be asked for a window.
    virtual void expect(const QString &bundleIdentifier) = 0;
    /// Has `setRegular` called for what may have changed.
    virtual void review() = 0;

    /// A window has come.
    void take(const ApplicationTraces &traces, bool isListed);
    /// A window that came says something else of itself now.
    void take(const ApplicationTraces &traces, bool isListed, const ApplicationTraces &before);
    /// A window that came has gone.
    void lose(const ApplicationTraces &traces);
    /// Whether the task bar lists any window that says this of itself.
    void setRegular(const ApplicationTraces &traces, bool isRegular);
    /// Whether some window has come that says this of itself.
    [[nodiscard]] bool has(const ApplicationTraces &traces) { return roleOf(traces) != nullptr; }
    [[nodiscard]] std::optional<RunningApplication> application(const ApplicationTraces &traces);
    /// What a window of the process may be known by beside these names of it.
    [[nodiscard]] static QStringList identifiers(pid_t pid, QStringList names);

private:
    /// One application of a process: what windows that say the same of themselves make of it.
    struct Role {
        ApplicationTraces traces;
        std::optional<DesktopEntry> entry{};
        quint64 soughtIn = 0; ///< the revision of the entries in which none was found
        std::chrono::steady_clock::time_point soughtAt{};
        QString plainName{}; ///< without an entry
        bool isRegular = false; ///< when it last was looked at
        int windowCount = 0;
        bool isFinal = false; ///< a window closed in it: it was no passing name
    };
    struct Process {
        explicit Process(pid_t pid) : handle(pid) { }

        [[nodiscard]] int windowCount() const;
        [[nodiscard]] Role *role(const ApplicationTraces &traces);
        void forgetTooMany();

        ProcessHandle handle;
        std::vector<Role> roles; ///< in the order of their first windows
        QStringList launched; ///< the identifiers that were told
    };

    [[nodiscard]] Role *roleOf(const ApplicationTraces &traces);
    void announce(pid_t pid);
    void end(pid_t pid);
    [[nodiscard]] bool hasWindow(const QString &bundleIdentifier);
    [[nodiscard]] QList<RunningApplication> describe(Process &process);
    [[nodiscard]] RunningApplication describe(Role &role);
    void identify(Role &role);

    DesktopEntries m_entries;
    Launcher m_launcher{m_entries};
    Rivals m_rivals;
    std::map<pid_t, Process> m_processes;
};

} // namespace corvane::freedesktop
