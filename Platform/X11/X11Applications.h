#pragma once

#include "ApplicationMatch.h"
#include "Applications.h"
#include "Launcher.h"
#include "QuietOpenings.h"
#include "Rivals.h"
#include "WindowRegistry.h"

#include <map>
#include <vector>

namespace corvane::x11 {

/// The processes behind the managed windows, and the applications that they are; an application on
/// another machine has a stand-in for its process.
class X11Applications final : public Applications
{
    Q_OBJECT

public:
    X11Applications(Connection &connection, WindowRegistry &registry);
    ~X11Applications() override;

    QList<RunningApplication> running() override;
    std::optional<RunningApplication> application(pid_t pid) override;
    std::optional<RunningApplication> applicationOf(const WindowElement &window) override;
    QStringList formerIdentifiers(const WindowElement &window) override;
    std::optional<RunningApplication> frontmost() override;

    QList<InstalledApplication> installed() override;
    std::optional<InstalledApplication> installed(const QString &bundleIdentifier) override;
    Installation installation(const QString &bundleIdentifier) override;
    expected<void, QString> open(const QString &bundleIdentifier) override;
    expected<void, QString> openWindow(const QString &bundleIdentifier) override;
    QList<RunningApplication> rivals() override;
    void quit(pid_t pid) override;

private:
    /// One application of a process: what windows that say the same of themselves make of it.
    struct Role {
        freedesktop::ApplicationTraces traces;
        std::optional<freedesktop::DesktopEntry> entry{};
        quint64 soughtIn = 0; ///< the revision of the entries in which none was found
        QString plainName{}; ///< without an entry
        bool isRegular = false; ///< when it last was looked at
        int windowCount = 0;
        bool isFinal = false; ///< a window closed in it: it was no passing name
    };
    struct Process {
        explicit Process(pid_t pid) : handle(pid) { }

        [[nodiscard]] int windowCount() const;
        [[nodiscard]] Role *role(const freedesktop::ApplicationTraces &traces);
        void forgetTooMany();

        freedesktop::ProcessHandle handle;
        std::vector<Role> roles; ///< in the order of their first windows
        QStringList launched; ///< the identifiers that were told
    };

    void meet(const QList<WindowElement> &windows);
    void follow(const WindowElement &window, const WindowNames &before);
    void take(const WindowElement &window, const KnownWindow &known);
    void announce(pid_t pid);
    void lose(const WindowElement &window, const KnownWindow &known);
    void reviewRegular();
    [[nodiscard]] Role *roleOf(const KnownWindow &known);
    void end(pid_t pid);
    [[nodiscard]] bool hasWindow(const QString &bundleIdentifier);
    [[nodiscard]] QList<RunningApplication> describe(Process &process);
    [[nodiscard]] RunningApplication describe(Role &role);
    void identify(Role &role);

    Connection &m_connection;
    WindowRegistry &m_registry;
    freedesktop::DesktopEntries m_entries;
    freedesktop::Launcher m_launcher{m_entries};
    freedesktop::Rivals m_rivals;
    QuietOpenings m_openings;
    quint64 m_reviewed = 0; ///< the revision of the windows' states that regularity is known for
    std::map<pid_t, Process> m_processes;
};

} // namespace corvane::x11
