#pragma once

#include "AXError.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <unistd.h>
#include <utility>

namespace corvane {

/// Owns an open file and closes it.
class FileDescriptor final
{
public:
    enum class Lock { none, shared, exclusive };

    /// A regular file; new ones are for this user alone. The error is the system's number. Waits for
    /// the lock as long as it takes; the file is then the one that `path` leads to, even where another
    /// process has replaced it meanwhile.
    [[nodiscard]] static expected<FileDescriptor, int> open(
        const QByteArray &path, int flags, Lock lock = Lock::none);

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
    [[nodiscard]] qint64 size() const;

    /// How much was there to fill `buffer` from `offset` on.
    [[nodiscard]] expected<qsizetype, QString> readAt(
        qint64 offset, char *buffer, qsizetype size) const;
    /// Everything, in as many pieces as the system wants.
    [[nodiscard]] expected<void, QString> write(QByteArrayView content) const;

private:
    explicit FileDescriptor(int number) : m_number(number) { }

    int m_number = -1;
};

} // namespace corvane
