#include "FileDescriptor.h"

#include "FileError.h"

#include <QtCore/QDeadlineTimer>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace corvane {

namespace {

using namespace std::chrono_literals;

constexpr mode_t newFileMode = 0600;
constexpr int mostTurns = 1000;
// A lock is held for some microseconds, or for as long as a disk takes to write.
constexpr std::chrono::microseconds shortestPause = 50us;
constexpr std::chrono::microseconds longestPause = 2ms;

} // namespace

expected<FileDescriptor, int> FileDescriptor::open(
    const QByteArray &path, int flags, Lock lock, std::chrono::milliseconds patience)
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
        if (!file.lock(patience))
            return unexpected<int>(EWOULDBLOCK);
        if (file.isAt(path))
            return file;
    }
    return unexpected<int>(EBUSY);
}

bool FileDescriptor::lock(std::chrono::milliseconds patience) const
{
    const QDeadlineTimer deadline(patience);
    for (auto pause = shortestPause; ::flock(m_number, LOCK_EX | LOCK_NB) != 0;) {
        // A file system without locks is no reason to write nothing.
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true;
        if (deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(pause);
        pause = qMin(2 * pause, longestPause);
    }
    return true;
}

void FileDescriptor::unlock() const
{
    ::flock(m_number, LOCK_UN);
}

qint64 FileDescriptor::size() const
{
    return qMax<qint64>(::lseek(m_number, 0, SEEK_END), 0);
}

bool FileDescriptor::isAt(const QByteArray &path) const
{
    struct stat held;
    struct stat current;
    return ::fstat(m_number, &held) == 0 && ::stat(path.constData(), &current) == 0
        && held.st_ino == current.st_ino && held.st_dev == current.st_dev;
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
