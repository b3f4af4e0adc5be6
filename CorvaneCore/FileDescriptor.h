#pragma once

#include "Expected.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <chrono>
#include <unistd.h>
#include <utility>

namespace corvane {

/// Owns an open file and closes it.
class FileDescriptor final
{
public:
    enum class Lock { none, exclusive };

    /// How long a process that waits for nothing else may wait for a lock. Whoever holds one for longer
    /// has been stopped, or has a disk that has.
    static constexpr std::chrono::milliseconds lockPatience{100};

    /// Opens a regular file; new ones are for this user alone. The error is the system's number,
    /// EWOULDBLOCK when another process has held the lock for all of `patience`. A locked file is
    /// the one that `path` leads to, even where another process has replaced it meanwhile.
    [[nodiscard]] static expected<FileDescriptor, int> open(const QByteArray &path, int flags,
        Lock lock = Lock::none, std::chrono::milliseconds patience = lockPatience);

    FileDescriptor() = default;
    /// Takes an open file over, of any kind; -1 is none.
    explicit FileDescriptor(int number) : m_number(number) { }
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1)) { }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~FileDescriptor()
    {
        if (isOpen())
            ::close(m_number);
    }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }
    /// Locks the file for this process alone, until `unlock` or the end of this object. False when
    /// another process has held the lock for all of `patience`: the system has no lock that waits
    /// for so long only.
    [[nodiscard]] bool lock(std::chrono::milliseconds patience) const;
    void unlock() const;

    [[nodiscard]] qint64 size() const;
    /// Whether `path` leads to this very file.
    [[nodiscard]] bool isAt(const QByteArray &path) const;

    /// Fills `buffer` with what stands from `offset` on. How much that was.
    [[nodiscard]] expected<qsizetype, QString> readAt(
        qint64 offset, char *buffer, qsizetype size) const;
    /// Writes everything, in as many pieces as the system wants.
    [[nodiscard]] expected<void, QString> write(QByteArrayView content) const;

private:
    int m_number = -1;
};

} // namespace corvane
