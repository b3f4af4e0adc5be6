#include "NewTree.h"

#include "Beneath.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace corvane {

namespace {

/// What made the system refuse a new file: the entry, or the disk.
unexpected<InstallFailure> refusal(int number, const QByteArray &path)
{
    for (const int fault : {EEXIST, EISDIR, ELOOP, ENOENT, ENOTDIR, EXDEV}) {
        if (number == fault)
            return installFailure(InstallProblem::entryRefused, QString::fromUtf8(path));
    }
    return installError(number);
}

} // namespace

InstallResult<void> NewTree::makeFolder(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const auto parent =
        Beneath::open(m_folder, slash < 0 ? "." : path.first(slash), O_PATH | O_DIRECTORY);
    if (!parent)
        return refusal(parent.error(), path);
    if (::mkdirat(parent->number(), path.sliced(slash + 1).constData(), programMode) != 0)
        return refusal(errno, path);
    const auto made = Beneath::open(m_folder, path, O_RDONLY | O_DIRECTORY);
    if (!made)
        return installError(made.error());
    // Whatever the umask is.
    if (::fchmod(made->number(), programMode) != 0)
        return lastInstallError();
    m_folders << path;
    return {};
}

InstallResult<FileDescriptor> NewTree::makeFile(const QByteArray &path) const
{
    auto file = Beneath::open(m_folder, path, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (!file)
        return refusal(file.error(), path);
    return *std::move(file);
}

InstallResult<void> NewTree::write(const FileDescriptor &file, QByteArrayView content)
{
    errno = 0;
    return file.write(content) ? InstallResult<void>() : lastInstallError();
}

InstallResult<void> NewTree::finish(const FileDescriptor &file, mode_t mode)
{
    if (::fchmod(file.number(), mode) != 0 || ::fsync(file.number()) != 0)
        return lastInstallError();
    return {};
}

InstallResult<void> NewTree::sync() const
{
    for (const QByteArray &path : m_folders + QByteArrayList{"."}) {
        const auto folder = Beneath::open(m_folder, path, O_RDONLY | O_DIRECTORY);
        if (!folder)
            return installError(folder.error());
        if (::fsync(folder->number()) != 0)
            return lastInstallError();
    }
    return {};
}

} // namespace corvane
