#include "FileDescriptor.h"

#include "FileError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace corvane {

namespace {

constexpr mode_t newFileMode = 0600;
constexpr int mostTurns = 1000;

bool isCurrent(int number, const QByteArray &path)
{
    struct stat held;
    struct stat current;
    return ::fstat(number, &held) == 0 && ::stat(path.constData(), &current) == 0
        && held.st_ino == current.st_ino && held.st_dev == current.st_dev;
}

void lockFile(int number, FileDescriptor::Lock lock)
{
    const int operation = lock == FileDescriptor::Lock::shared ? LOCK_SH : LOCK_EX;
    while (::flock(number, operation) != 0 && errno == EINTR) { }
}

} // namespace

expected<FileDescriptor, int> FileDescriptor::open(const QByteArray &path, int flags, Lock lock)
{
    for (int turn = 0; turn < mostTurns; ++turn) {
        // Without the flag, a pipe in the file's place would block.
        FileDescriptor file(::open(path.constData(), flags | O_CLOEXEC | O_NONBLOCK, newFileMode));
        struct stat status;
        if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
            return unexpected<int>(errno);
        if (!S_ISREG(status.st_mode))
            return unexpected<int>(S_ISDIR(status.st_mode) ? EISDIR : ENXIO);
        if (lock == Lock::none)
            return file;
        lockFile(file.number(), lock);
        if (isCurrent(file.number(), path))
            return file;
    }
    return unexpected<int>(EBUSY);
}

qint64 FileDescriptor::size() const
{
    return qMax<qint64>(::lseek(m_number, 0, SEEK_END), 0);
}

expected<qsizetype, QString> FileDescriptor::readAt(
    qint64 offset, char *buffer, qsizetype size) const
{
    qsizetype length = 0;
    while (length < size) {
        const ssize_t count = ::pread(m_number, buffer + length, size - length, offset + length);
        if (count < 0 && errno != EINTR)
            return lastFileError();
        if (count == 0)
            break;
        length += qMax<ssize_t>(count, 0);
    }
    return length;
}

expected<void, QString> FileDescriptor::write(QByteArrayView content) const
{
    while (!content.isEmpty()) {
        const ssize_t count = ::write(m_number, content.data(), content.size());
        if (count < 0 && errno != EINTR)
            return lastFileError();
        content = content.sliced(qMax<ssize_t>(count, 0));
    }
    return {};
}

} // namespace corvane
