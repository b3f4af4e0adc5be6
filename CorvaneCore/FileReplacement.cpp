#include "FileReplacement.h"

#include "FileError.h"
#include "PrivateFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t newFileMode = 0600;
constexpr int mostLinks = 40;

/// Where the content belongs when `path` is a link, or a link to a link.
expected<QString, QString> finalTarget(const QString &path)
{
    std::filesystem::path target(QFile::encodeName(path).constData());
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code noLink;
        const auto next = std::filesystem::read_symlink(target, noLink);
        if (noLink)
            return QFile::decodeName(target.c_str());
        target = target.parent_path() / next;
    }
    return fileError(ELOOP);
}

/// The mode that the new content takes.
expected<mode_t, QString> modeFor(const QByteArray &target)
{
    struct stat status;
    if (::stat(target.constData(), &status) != 0)
        return errno == ENOENT ? expected<mode_t, QString>(newFileMode) : lastFileError();
    if (!S_ISREG(status.st_mode))
        return fileError(S_ISDIR(status.st_mode) ? EISDIR : ENXIO);
    return status.st_mode & 0777;
}

/// The file that takes the new content, whether a crash left it or not, once no other process
/// writes it.
expected<FileDescriptor, int> openLocked(const QByteArray &path)
{
    return FileDescriptor::open(
        path, O_RDWR | O_CREAT | O_NOFOLLOW, FileDescriptor::Lock::exclusive);
}

expected<void, QString> makeEmpty(const FileDescriptor &file, mode_t mode)
{
    struct stat status;
    if (::fstat(file.number(), &status) != 0)
        return lastFileError();
    if (status.st_uid != ::geteuid())
        return fileError(EPERM);
    if (::ftruncate(file.number(), 0) != 0 || ::fchmod(file.number(), mode) != 0)
        return lastFileError();
    return {};
}

} // namespace

expected<FileReplacement, QString> FileReplacement::begin(const QString &path)
{
    const auto target = finalTarget(path);
    if (!target)
        return unexpected<QString>(target.error());
    const QFileInfo info(*target);
    if (const auto folder = PrivateFile::makeFolder(info.path()); !folder)
        return unexpected<QString>(folder.error());
    const QByteArray targetName = QFile::encodeName(*target);
    const auto mode = modeFor(targetName);
    if (!mode)
        return unexpected<QString>(mode.error());
    const QByteArray name = QFile::encodeName(u"%1/.%2.new"_s.arg(info.path(), info.fileName()));
    auto file = openLocked(name);
    if (!file)
        return fileError(file.error());
    if (const auto empty = makeEmpty(*file, *mode); !empty)
        return unexpected<QString>(empty.error());
    return FileReplacement(*std::move(file), name, targetName);
}

FileReplacement::FileReplacement(FileDescriptor file, QByteArray path, QByteArray target)
    : m_file(std::move(file)), m_path(std::move(path)), m_target(std::move(target))
{
}

FileReplacement::~FileReplacement()
{
    // By the name, so only while the lock says that it is still ours.
    if (m_file.isOpen() && !m_path.isEmpty())
        ::unlink(m_path.constData());
}

expected<void, QString> FileReplacement::write(QByteArrayView content)
{
    return m_file.write(content);
}

expected<void, QString> FileReplacement::sync() const
{
    return ::fsync(m_file.number()) == 0 ? expected<void, QString>() : lastFileError();
}

expected<void, QString> FileReplacement::commit()
{
    if (auto synced = sync(); !synced)
        return synced;
    if (std::rename(m_path.constData(), m_target.constData()) != 0)
        return lastFileError();
    m_path.clear();
    // The content is in place for every process; this makes it last through a loss of power.
    const QByteArray folder = m_target.first(m_target.lastIndexOf('/') + 1);
    const int directory = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory >= 0) {
        ::fsync(directory);
        ::close(directory);
    }
    return {};
}

} // namespace corvane
