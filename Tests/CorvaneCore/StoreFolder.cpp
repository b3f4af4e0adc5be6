#include "StoreFolder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <csignal>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

namespace {

constexpr uid_t nobody = 65534;
constexpr int systemCallStop = SIGTRAP | 0x80;

void limitFileSize(rlim_t bytes)
{
    struct rlimit limit;
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = qMin(bytes, limit.rlim_max);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

bool kill(pid_t process)
{
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    return true;
}

} // namespace

QByteArray StoreFolder::encoded(const QString &name) const
{
    return QFile::encodeName(path(name));
}

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
    ::stat(encoded(name).constData(), &status);
    return status.st_mode & 07777;
}

void StoreFolder::clear() const
{
    for (const QString &name : names())
        QFile::remove(path(name));
}

FileSizeLimit::FileSizeLimit(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    limitFileSize(bytes);
}

FileSizeLimit::~FileSizeLimit()
{
    limitFileSize(RLIM_INFINITY);
}

WithoutPrivileges::WithoutPrivileges(const StoreFolder &folder)
{
    if (::getuid() != 0)
        return;
    QStringList names = folder.names();
    names << QString();
    for (const QString &name : names)
        static_cast<void>(::chown(folder.encoded(name).constData(), nobody, nobody));
    static_cast<void>(::seteuid(nobody));
}

WithoutPrivileges::~WithoutPrivileges()
{
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
        if (WIFSTOPPED(status) && WSTOPSIG(status) == systemCallStop && ++count == boundary)
            return kill(process);
        if (WIFSIGNALED(status))
            return std::nullopt;
    }
    return false;
}

} // namespace corvane
