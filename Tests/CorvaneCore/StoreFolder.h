#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <chrono>
#include <csignal>
#include <functional>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

inline const QDateTime noon = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);

/// A folder of a test's own, with what a user or a crash may have left in it.
struct StoreFolder {
    [[nodiscard]] QString path() const { return folder.path(); }
    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }

    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        QDir().mkpath(QFileInfo(file).path());
        if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot prepare %s", qPrintable(name));
    }
    [[nodiscard]] std::optional<QByteArray> read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] mode_t mode(const QString &name) const
    {
        struct stat status {
        };
        ::stat(qPrintable(path(name)), &status);
        return status.st_mode & 07777;
    }

    /// In memory where that can be had: each save waits for the disk.
    [[nodiscard]] static QString place()
    {
        const QString memory = u"/dev/shm"_s;
        return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/corvane-XXXXXX"_s;
    }

    QTemporaryDir folder{place()};
};

/// From now on, the files that this process writes may not grow beyond so many bytes.
inline void limitFileSize(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit limit;
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = qMin(bytes, limit.rlim_max);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

[[nodiscard]] inline pid_t startProcess(const std::function<void()> &action)
{
    const pid_t process = ::fork();
    if (process == 0) {
        action();
        ::_exit(0);
    }
    return process;
}

[[nodiscard]] inline bool waitFor(pid_t process)
{
    int status = 0;
    return ::waitpid(process, &status, 0) == process && status == 0;
}

} // namespace corvane
