#include "FileStamp.h"

#include <QtCore/QFile>

#include <sys/stat.h>

namespace corvane {

std::optional<FileStamp> FileStamp::of(const QString &path)
{
    constexpr qint64 nanosecondsPerSecond = 1'000'000'000;
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    const auto &[seconds, nanoseconds] = status.st_mtim;
    return FileStamp{seconds * nanosecondsPerSecond + nanoseconds, status.st_size, status.st_ino,
        status.st_mode};
}

} // namespace corvane
