#pragma once

#include "FileDescriptor.h"
#include "InstallProblem.h"

#include <QtCore/QByteArrayList>

#include <sys/types.h>

namespace corvane {

/// Makes the files and folders of a version in an open folder that is empty at first: each beneath it,
/// never through a link, never over another.
class NewTree final
{
public:
    static constexpr mode_t plainMode = 0644;
    static constexpr mode_t programMode = 0755; ///< of folders, too

    explicit NewTree(int folder) : m_folder(folder) { }

    [[nodiscard]] InstallResult<void> makeFolder(const QByteArray &path);
    /// Still empty, and for this user alone.
    [[nodiscard]] InstallResult<FileDescriptor> makeFile(const QByteArray &path) const;
    [[nodiscard]] static InstallResult<void> write(
        const FileDescriptor &file, QByteArrayView content);
    /// Lets the file that is written have its mode, and waits until it is on the disk.
    [[nodiscard]] static InstallResult<void> finish(const FileDescriptor &file, mode_t mode);
    /// Waits until the disk knows what is in which folder.
    [[nodiscard]] InstallResult<void> sync() const;

private:
    int m_folder;
    QByteArrayList m_folders;
};

} // namespace corvane
