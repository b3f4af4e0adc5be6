#include "ChildProcess.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane::desktop {

ChildProcess::ChildProcess(const Command &command) : m_logPath(command.logPath)
{
    m_process.setProgram(command.program);
    m_process.setArguments(command.arguments);
    m_process.setProcessEnvironment(command.environment);
    if (!m_logPath.isEmpty()) {
        m_process.setStandardErrorFile(m_logPath, QIODevice::Append);
        if (command.channel == Channel::log)
            m_process.setStandardOutputFile(m_logPath, QIODevice::Append);
    }
    if (command.channel == Channel::log)
        m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([] {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    m_process.start();
    if (m_process.waitForStarted())
        m_pid = static_cast<pid_t>(m_process.processId());
}

std::optional<int> ChildProcess::waitForExit(Milliseconds deadline)
{
    if (m_process.state() != QProcess::NotRunning)
        m_process.waitForFinished(static_cast<int>(deadline.count()));
    if (!m_pid || m_process.state() != QProcess::NotRunning
        || m_process.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return m_process.exitCode();
}

void ChildProcess::stop()
{
    if (!m_pid)
        return;
    if (isRunning()) {
        ::kill(-m_pid, SIGTERM);
        ::kill(-m_pid, SIGCONT);
        if (!m_process.waitForFinished(2000))
            kill();
    }
    ::kill(-m_pid, SIGKILL);
    m_pid = 0;
}

void ChildProcess::kill()
{
    if (m_pid && isRunning()) {
        ::kill(-m_pid, SIGKILL);
        m_process.waitForFinished(5000);
    }
}

void ChildProcess::suspend()
{
    ::kill(-m_pid, SIGSTOP);
    const auto hasStopped = [this] {
        siginfo_t child{};
        ::waitid(P_PID, static_cast<id_t>(m_pid), &child, WSTOPPED | WNOHANG);
        return child.si_pid != 0;
    };
    static_cast<void>(waitUntil(hasStopped));
}

std::optional<QByteArray> ChildProcess::readLine(Milliseconds deadline)
{
    const QDeadlineTimer end(deadline);
    while (!m_process.canReadLine()
        && m_process.waitForReadyRead(static_cast<int>(end.remainingTime()))) { }
    if (!m_process.canReadLine())
        return std::nullopt;
    return m_process.readLine().chopped(1);
}

QByteArray ChildProcess::log() const
{
    QFile file(m_logPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace corvane::desktop
