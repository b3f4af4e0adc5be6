#pragma once

#include "FileDescriptor.h"
#include "InstallProblem.h"

#include <QtCore/QList>

#include <optional>
#include <sys/types.h>

namespace corvane {

/// Where a copy that updates itself lives: "versions/<build>", each with a whole program in it, and the
/// link "current" to one of them. At any moment, whatever ends this process, the link leads to a
/// whole version.
class InstallFolder final
{
public:
    /// What must stay free of the disk, besides what is unpacked.
    static constexpr qint64 reserve = 32LL * 1024 * 1024;

    /// "~/.local/lib/corvane".
    [[nodiscard]] static QString standardPath();
    /// The same in another home folder.
    [[nodiscard]] static QString pathIn(const QString &home);
    /// Whether a process of this user may install. What root had put there, its user could not replace.
    [[nodiscard]] static InstallResult<void> checkUser(uid_t real, uid_t effective);
    /// Makes the folder where it is missing, keeps other installations out of it while this object
    /// exists, and removes what one that was ended has left.
    [[nodiscard]] static InstallResult<InstallFolder> open(const QString &path = standardPath());

    /// A new, empty folder for a version that takes so many bytes.
    [[nodiscard]] InstallResult<FileDescriptor> stage(qint64 unpackedSize);
    [[nodiscard]] QString stagingPath() const;
    /// Makes the staged folder, all of which is on the disk, the version of this build.
    [[nodiscard]] InstallResult<void> adopt(qint64 build);
    /// Puts the staged folder, all of which is on the disk, in the place of the current version, which
    /// is of the same build and damaged.
    [[nodiscard]] InstallResult<void> repairCurrent();

    /// What the link leads to. A failure is no absence: what is taken for none would be removed.
    [[nodiscard]] InstallResult<std::optional<qint64>> current() const;
    /// Lets the link lead to a version, which is there.
    [[nodiscard]] InstallResult<void> makeCurrent(qint64 build);
    /// The versions, the oldest first.
    [[nodiscard]] QList<qint64> builds() const;
    /// Removes every version but these and the current one.
    [[nodiscard]] InstallResult<void> keepOnly(const QList<qint64> &builds);

    /// The program that the link leads to. Names the link, so it stays right.
    [[nodiscard]] QString currentProgram() const;
    [[nodiscard]] QString versionPath(qint64 build) const;

private:
    InstallFolder(QByteArray path, FileDescriptor folder, FileDescriptor lock);

    [[nodiscard]] InstallResult<void> sweep();
    [[nodiscard]] InstallResult<void> remove(const QByteArray &name);
    [[nodiscard]] InstallResult<void> sync(const QByteArray &name) const;

    QByteArray m_path;
    FileDescriptor m_folder;
    FileDescriptor m_lock;
};

} // namespace corvane
