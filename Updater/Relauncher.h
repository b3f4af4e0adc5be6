#pragma once

#include "InstallFolder.h"
#include "ProcessHandle.h"
#include "UpdateState.h"

#include <QtCore/QDeadlineTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <chrono>
#include <functional>
#include <memory>

namespace corvane {

/// Starts the version that has just become the current one, and goes back to the one before when it does
/// not say on the session bus that it is there. The program inherits what this process has: its
/// environment, its limits, its umask.
class Relauncher final : public QObject
{
public:
    struct Step {
        qint64 build = 0; ///< is current
        QString version; ///< as the program of that build calls it
        std::optional<qint64> previous; ///< what was current before
    };
    struct Patience {
        std::chrono::milliseconds quit = std::chrono::seconds(20); ///< for the version before
        std::chrono::milliseconds answer = std::chrono::seconds(20);
        std::chrono::milliseconds pause{100}; ///< between two questions
    };
    using End = InstallResult<void>;

    Relauncher(
        InstallFolder &folder, QDBusConnection bus, QString stateFolder, const Patience &patience);

    /// Waits until no version runs, then starts the current one. Calls `onEnd` once, never from within.
    void start(const Step &step, std::function<void(const End &)> onEnd);

private:
    void awaitQuit();
    void launch();
    void ask();
    void hear(const QDBusMessage &answer);
    void goBack();
    void startPrevious();
    void finish(const End &end);
    [[nodiscard]] bool isRunning() const;
    /// Whether who has the program's name on the bus is the build that was started.
    [[nodiscard]] bool isRightBuild() const;
    [[nodiscard]] uint ownerNumber() const;
    std::unique_ptr<freedesktop::ProcessHandle> startCurrent() const;
    void after(std::chrono::milliseconds pause, void (Relauncher::*next)()) const;

    InstallFolder &m_folder;
    QDBusConnection m_bus;
    QString m_stateFolder;
    Patience m_patience;
    Step m_step;
    std::function<void(const End &)> m_onEnd;
    QDeadlineTimer m_deadline;
    std::unique_ptr<freedesktop::ProcessHandle> m_process; ///< what was started
    InstallFailure m_failure{InstallProblem::doesNotAnswer};
};

} // namespace corvane
