#include "InstallFolder.h"

#include "Beneath.h"
#include "PrivateFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t folderMode = 0755;
const QByteArray versionsName = "versions";
const QByteArray stagingName = "staging";
const QByteArray removedName = "removed"; ///< what is being removed, a version first of all
const QByteArray linkName = "current";
const QByteArray newLinkName = "current.new";

std::optional<qint64> buildNamed(const QByteArray &name)
{
    const qint64 build = name.toLongLong();
    return build > 0 && QByteArray::number(build) == name ? std::optional(build) : std::nullopt;
}

QByteArray versionName(qint64 build)
{
    return versionsName + '/' + QByteArray::number(build);
}

/// A folder that only this user may change. A link to one is not one.
InstallResult<FileDescriptor> openOwn(int at, const QByteArray &name)
{
    FileDescriptor folder(
        ::openat(at, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status;
    if (!folder.isOpen() && (errno == ELOOP || errno == ENOTDIR))
        return installFailure(InstallProblem::folderNotOurs, QFile::decodeName(name));
    if (!folder.isOpen() || ::fstat(folder.number(), &status) != 0)
        return lastInstallError();
    if (status.st_uid != ::geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0)
        return installFailure(InstallProblem::folderNotOurs, QFile::decodeName(name));
    return folder;
}

bool makeFolder(int at, const QByteArray &name)
{
    return ::mkdirat(at, name.constData(), folderMode) == 0;
}

} // namespace

QString InstallFolder::standardPath()
{
    return pathIn(QDir::homePath());
}

QString InstallFolder::pathIn(const QString &home)
{
    return home + u"/.local/lib/corvane"_s;
}

InstallResult<void> InstallFolder::checkUser(uid_t real, uid_t effective)
{
    if (real == 0 || effective == 0)
        return installFailure(InstallProblem::isRoot);
    return real == effective ? InstallResult<void>()
                             : installFailure(InstallProblem::folderNotOurs);
}

InstallResult<InstallFolder> InstallFolder::open(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (const auto made = PrivateFile::makeFolder(path); !made)
        return installFailure(InstallProblem::cannotWrite, made.error());
    auto folder = openOwn(AT_FDCWD, name);
    if (!folder)
        return unexpected<InstallFailure>(folder.error());
    auto lock = FileDescriptor::open(
        name + "/lock", O_RDWR | O_CREAT | O_NOFOLLOW, FileDescriptor::Lock::exclusive);
    if (!lock && lock.error() == EWOULDBLOCK)
        return installFailure(InstallProblem::busy);
    if (!lock)
        return installError(lock.error());
    if (!makeFolder(folder->number(), versionsName) && errno != EEXIST)
        return lastInstallError();
    if (const auto versions = openOwn(folder->number(), versionsName); !versions)
        return unexpected<InstallFailure>(versions.error());
    InstallFolder opened(name, *std::move(folder), *std::move(lock));
    if (const auto swept = opened.sweep(); !swept)
        return unexpected<InstallFailure>(swept.error());
    return opened;
}

InstallFolder::InstallFolder(QByteArray path, FileDescriptor folder, FileDescriptor lock)
    : m_path(std::move(path)), m_folder(std::move(folder)), m_lock(std::move(lock))
{
}

InstallResult<FileDescriptor> InstallFolder::stage(qint64 unpackedSize)
{
    if (const auto swept = sweep(); !swept)
        return unexpected<InstallFailure>(swept.error());
    struct statvfs disk;
    if (::fstatvfs(m_folder.number(), &disk) != 0)
        return lastInstallError();
    const auto needed = static_cast<quint64>(unpackedSize + reserve);
    // Blocks and not bytes, whose number may be too large for any integer.
    if (disk.f_bavail < needed / disk.f_frsize + 1)
        return installFailure(InstallProblem::noSpace);
    if (!makeFolder(m_folder.number(), stagingName))
        return lastInstallError();
    auto staging = openOwn(m_folder.number(), stagingName);
    if (staging && ::fchmod(staging->number(), folderMode) != 0)
        return lastInstallError();
    return staging;
}

QString InstallFolder::stagingPath() const
{
    return QFile::decodeName(m_path + '/' + stagingName);
}

InstallResult<void> InstallFolder::adopt(qint64 build)
{
    const QByteArray name = versionName(build);
    if (builds().contains(build)) {
        const auto running = current();
        if (!running)
            return unexpected<InstallFailure>(running.error());
        // What runs is not replaced under its own feet.
        if (*running == build)
            return installError(EEXIST);
        if (auto removed = remove(name); !removed)
            return removed;
    }
    if (::renameat(m_folder.number(), stagingName.constData(), m_folder.number(), name.constData())
        != 0)
        return lastInstallError();
    if (auto synced = sync(versionsName); !synced)
        return synced;
    return sync(".");
}

InstallResult<void> InstallFolder::repairCurrent()
{
    const auto build = current();
    if (!build)
        return unexpected<InstallFailure>(build.error());
    if (!*build)
        return installError(ENOENT);
    // At once, since a link to nothing starts less than a damaged version.
    const int folder = m_folder.number();
    if (::renameat2(folder, stagingName.constData(), folder, versionName(**build).constData(),
            RENAME_EXCHANGE)
        != 0)
        return lastInstallError();
    if (auto synced = sync(versionsName); !synced)
        return synced;
    if (auto synced = sync("."); !synced)
        return synced;
    // What was damaged is removed by the next installation where it cannot be now.
    std::ignore = sweep();
    return {};
}

InstallResult<std::optional<qint64>> InstallFolder::current() const
{
    QByteArray target(64, '\0');
    const auto length =
        ::readlinkat(m_folder.number(), linkName.constData(), target.data(), target.size());
    // What is no link has another cause to be there, and is not replaced by one.
    if (length < 0 && errno != ENOENT)
        return lastInstallError();
    target.truncate(qMax<qsizetype>(length, 0));
    if (!target.startsWith(versionsName + '/'))
        return std::nullopt;
    return buildNamed(target.sliced(versionsName.size() + 1));
}

InstallResult<void> InstallFolder::makeCurrent(qint64 build)
{
    const QByteArray name = versionName(build);
    const int folder = m_folder.number();
    if (const auto version = openOwn(folder, name); !version)
        return unexpected<InstallFailure>(version.error());
    if (::unlinkat(folder, newLinkName.constData(), 0) != 0 && errno != ENOENT)
        return lastInstallError();
    if (::symlinkat(name.constData(), folder, newLinkName.constData()) != 0
        || ::renameat(folder, newLinkName.constData(), folder, linkName.constData()) != 0)
        return lastInstallError();
    return sync(".");
}

QList<qint64> InstallFolder::builds() const
{
    QList<qint64> builds;
    const QDir versions(QFile::decodeName(m_path + '/' + versionsName));
    for (const QString &name : versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (const auto build = buildNamed(QFile::encodeName(name)))
            builds << *build;
    }
    std::ranges::sort(builds);
    return builds;
}

InstallResult<void> InstallFolder::keepOnly(const QList<qint64> &builds)
{
    const auto kept = current();
    if (!kept)
        return unexpected<InstallFailure>(kept.error());
    for (const qint64 build : this->builds()) {
        if (build == *kept || builds.contains(build))
            continue;
        if (auto removed = remove(versionName(build)); !removed)
            return removed;
    }
    return {};
}

QString InstallFolder::currentProgram() const
{
    return QFile::decodeName(m_path + '/' + linkName + "/bin/corvane");
}

QString InstallFolder::versionPath(qint64 build) const
{
    return QFile::decodeName(m_path + '/' + versionName(build));
}

InstallResult<void> InstallFolder::sweep()
{
    for (const QByteArray &name : {removedName, stagingName, newLinkName}) {
        if (auto removed = remove(name); !removed)
            return removed;
    }
    return {};
}

InstallResult<void> InstallFolder::remove(const QByteArray &name)
{
    const int folder = m_folder.number();
    // It goes out of sight as a whole: half a version would pass for one. What was being removed before
    // has been removed by then.
    if (name != removedName
        && ::renameat(folder, name.constData(), folder, removedName.constData()) != 0)
        return errno == ENOENT ? InstallResult<void>() : lastInstallError();
    std::error_code error;
    std::filesystem::remove_all((m_path + '/' + removedName).toStdString(), error);
    return error ? installError(error.value()) : InstallResult<void>();
}

InstallResult<void> InstallFolder::sync(const QByteArray &name) const
{
    const auto folder = Beneath::open(m_folder.number(), name, O_RDONLY | O_DIRECTORY);
    if (!folder)
        return installError(folder.error());
    return ::fsync(folder->number()) == 0 ? InstallResult<void>() : lastInstallError();
}

} // namespace corvane
