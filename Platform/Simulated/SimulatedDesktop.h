#pragma once

#include "Applications.h"
#include "NoticeQueue.h"
#include "SimulatedApplication.h"
#include "SimulatedDisplay.h"

#include <QtCore/QHash>

#include <map>

namespace corvane {

/// The world behind the simulated back end: what a person, a plug or another program does to a
/// desk. Its operations take effect at once; its signals wait for `deliver`, the event loop or the
/// next advance of the manual clock. Naming a window, application or display that is not there is
/// an error of the caller's.
class SimulatedDesktop final : public QObject
{
    Q_OBJECT

public:
    using Duration = Clock::Duration;

    explicit SimulatedDesktop(Clock &clock);

    bool tiling = false; ///< standard windows refuse every write
    bool holdsSizes = false; ///< a size waits inside an operation, as the interface allows
    bool sharesReads = false; ///< a frame is read once in an operation, unless it is written
    bool fitsSizesToDisplay = false; ///< a size is cut where the window would leave its display
    bool bringsOneForward = true; ///< one window can come forward without its application's others

    // Displays. The first one plugged in is the primary one; nothing else moves when they change.
    quint32 plug(SimulatedDisplay display);
    void unplug(quint32 displayID);
    void makePrimary(quint32 displayID);
    void addPanel(quint32 displayID, SimulatedPanel panel);
    [[nodiscard]] QList<ScreenInfo> screens() const;

    // Applications
    void install(SimulatedInstallation application);
    [[nodiscard]] const QList<SimulatedInstallation> &installations() const { return m_installed; }
    [[nodiscard]] const SimulatedInstallation *installed(const QString &bundleIdentifier) const;
    /// Starts an installed application, without taking the focus; one that runs does what it does
    /// at a further start. Nothing if it is not installed.
    std::optional<pid_t> launch(const QString &bundleIdentifier);
    /// The first process that is this application.
    [[nodiscard]] std::optional<pid_t> processOf(const QString &bundleIdentifier) const;
    [[nodiscard]] bool hasWindow(pid_t pid, const QString &bundleIdentifier);
    /// The running application opens its first window once more, as late as it opens them.
    void openFurther(pid_t pid, const SimulatedInstallation &application);
    /// Starts a process, which has no window yet. Its number, unless one is given, is none of this
    /// machine's.
    pid_t start(const QString &bundleIdentifier, const QString &name, pid_t pid = 0);
    void quit(pid_t pid);
    [[nodiscard]] SimulatedApplication &application(pid_t pid);
    [[nodiscard]] SimulatedApplication *findApplication(pid_t pid);
    /// The applications that have shown a window, in the order of their start.
    [[nodiscard]] QList<RunningApplication> running() const;
    /// The rivals that run, with a window or without, in the order of their start.
    [[nodiscard]] QList<RunningApplication> rivals() const;
    /// The application that the window belongs to.
    [[nodiscard]] RunningApplication roleOf(const SimulatedWindow &window);

    // Windows
    /// Opens a window in front of all others (a desktop: behind), with the focus where it takes it.
    WindowElement openWindow(pid_t pid, const WindowSpec &spec);
    void closeWindow(const WindowElement &element);
    /// From now on the window belongs to another application of its process.
    void renameWindow(const WindowElement &element, const QString &bundleIdentifier);
    [[nodiscard]] SimulatedWindow &window(const WindowElement &element);
    /// Null once the window is closed.
    [[nodiscard]] SimulatedWindow *findWindow(const WindowElement &element);
    /// Every window, front to back.
    [[nodiscard]] QList<WindowElement> stack() const;
    void raise(const WindowElement &element);
    void raiseApplication(pid_t pid);
    void focus(const WindowElement &element);
    void focusNothing();
    [[nodiscard]] std::optional<WindowElement> focused() const;
    /// Hides the window in the task bar and passes the focus on.
    void minimise(const WindowElement &element);
    void maximise(const WindowElement &element);
    void moveWindow(SimulatedWindow &window, Point origin);
    /// Gives the window its frame at once, without regard to its limits, and then the state, if
    /// any.
    void restoreWindow(
        SimulatedWindow &window, const Rect &frame, const std::optional<WindowState> &state);
    /// Resizes the window within its limits, and as late as it follows.
    void resizeWindow(SimulatedWindow &window, Size size);

    // Trust
    [[nodiscard]] bool isTrusted() const { return m_distrustReason.isEmpty(); }
    [[nodiscard]] QString distrustReason() const { return m_distrustReason; }
    void loseTrust(const QString &reason = QStringLiteral("No window manager is running."));
    void regainTrust();

    // Time and notices
    [[nodiscard]] Clock &clock() { return m_clock; }
    [[nodiscard]] NoticeQueue &notices() { return m_notices; }
    /// Lets happen what has fallen due by now: late sizes, launches, exits.
    void catchUp();

Q_SIGNALS:
    void displaysChanged();
    void applicationLaunched(const corvane::RunningApplication &application);
    void applicationTerminated(pid_t pid);
    void windowOpened(const corvane::WindowElement &window, pid_t pid);
    void windowClosed(const corvane::WindowElement &window);
    void trustChanged(bool trusted);

private:
    SimulatedDisplay &display(quint32 displayID);
    void tellDisplayChange();
    void schedule(Duration delay, std::function<void()> event);
    void tellShown(SimulatedApplication &owner, const SimulatedWindow &window);
    void endMaximised(SimulatedWindow &window);
    [[nodiscard]] ScreenInfo screenOf(const Rect &frame) const;
    void passFocusOn();

    Clock &m_clock;
    NoticeQueue m_notices;
    std::multimap<Duration, std::function<void()>> m_timeline;
    QString m_distrustReason;

    QList<SimulatedDisplay> m_displays; ///< the primary one first
    quint32 m_lastDisplayID = 0;
    bool m_displayChangePending = false;

    QList<SimulatedInstallation> m_installed;
    std::map<pid_t, SimulatedApplication> m_applications;
    pid_t m_lastPid = 1 << 22; ///< the kernel's own numbers end there

    std::map<quint64, SimulatedWindow> m_windows; ///< by number
    QHash<quint64, quint64> m_generations; ///< the last one of each number
    quint64 m_lastNumber = 0;
    QList<quint64> m_stack; ///< numbers, front to back
    std::optional<WindowElement> m_focused;
};

} // namespace corvane
