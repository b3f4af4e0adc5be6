#include "StoreFolder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <csignal>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

namespace {

constexpr uid_t nobody = 65534;
constexpr int systemCallStop = SIGTRAP | 0x80;

} // namespace

void StoreFolder::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot prepare %s", qPrintable(name));
}

std::optional<QByteArray> StoreFolder::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QFile::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

QStringList StoreFolder::names() const
{
    return QDir(path()).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

mode_t StoreFolder::mode(const QString &name) const
{
    struct stat status {
    };
    ::stat(qPrintable(path(name)), &status);
    return status.st_mode & 07777;
}

void StoreFolder::setMode(const QString &name, mode_t mode) const
{
    static_cast<void>(::chmod(qPrintable(path(name)), mode));
}

void limitFileSize(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit limit;
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = qMin(bytes, limit.rlim_max);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

void runAsUser(const StoreFolder &folder, const std::function<void()> &action)
{
    if (::getuid() != 0)
        return action();
    for (const QString &name : folder.names() + QStringList{QString()})
        static_cast<void>(::lchown(qPrintable(folder.path(name)), nobody, nobody));
    static_cast<void>(::seteuid(nobody));
    action();
    static_cast<void>(::seteuid(::getuid()));
}

pid_t startProcess(const std::function<void()> &action)
{
    const pid_t process = ::fork();
    if (process == 0) {
        action();
        ::_exit(0);
    }
    return process;
}

bool waitFor(pid_t process)
{
    int status = 0;
    return ::waitpid(process, &status, 0) == process && WIFEXITED(status)
        && WEXITSTATUS(status) == 0;
}

std::optional<bool> killAtBoundary(int boundary, const std::function<void()> &action)
{
    const pid_t process = startProcess([&action] {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(1);
        ::raise(SIGSTOP);
        action();
    });
    int status = 0;
    ::waitpid(process, &status, 0);
    if (!WIFSTOPPED(status))
        return std::nullopt;
    ::ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int count = 0; !WIFEXITED(status);) {
        ::ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
        ::waitpid(process, &status, 0);
        if (WIFSTOPPED(status) && WSTOPSIG(status) == systemCallStop && ++count == boundary) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
            return true;
        }
        if (WIFSIGNALED(status))
            return std::nullopt;
    }
    return false;
}

} // namespace corvane
