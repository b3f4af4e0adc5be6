#pragma once

#include "Waiting.h"

#include <QtCore/QProcess>

#include <csignal>
#include <optional>
#include <sys/types.h>

namespace corvane::desktop {

/// A program in a process group of its own. It ends with this object, and with this process at the
/// latest.
class ChildProcess
{
public:
    enum class Channel {
        log, ///< standard output goes to the log, too
        pipes, ///< standard input and output are for a dialogue, line by line
    };
    struct Command {
        QString program;
        QStringList arguments;
        QProcessEnvironment environment;
        QString logPath{}; ///< takes standard error; appended to
        Channel channel = Channel::log;
    };

    explicit ChildProcess(const Command &command);
    ~ChildProcess() { stop(); }
    Q_DISABLE_COPY_MOVE(ChildProcess)

    [[nodiscard]] bool isRunning()
    {
        return m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(0);
    }
    [[nodiscard]] pid_t pid() const { return m_pid; }
    /// Of a program that has ended by itself; nothing while it runs or when a signal ended it.
    [[nodiscard]] std::optional<int> waitForExit(Milliseconds deadline = patience);
    /// SIGTERM to the whole group, SIGKILL for what is left of it after two seconds.
    void stop();
    void kill();
    /// SIGSTOP and SIGCONT to the whole group; `suspend` returns once the program has stopped.
    void suspend();
    void resume() { ::kill(-m_pid, SIGCONT); }

    void writeLine(const QByteArray &line)
    {
        m_process.write(line + '\n');
        m_process.waitForBytesWritten();
    }
    /// Without its line feed. Nothing when none came in time.
    [[nodiscard]] std::optional<QByteArray> readLine(Milliseconds deadline = patience);
    [[nodiscard]] QByteArray log() const;

private:
    QProcess m_process;
    pid_t m_pid = 0;
    QString m_logPath;
};

} // namespace corvane::desktop
