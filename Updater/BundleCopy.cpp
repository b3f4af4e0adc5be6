#include "BundleCopy.h"

#include "Beneath.h"
#include "NewTree.h"

#include <QtCore/QSet>

#include <fcntl.h>
#include <sys/stat.h>

namespace corvane {

namespace {

constexpr qsizetype pieceSize = 256LL * 1024;

class BundleCopy final
{
public:
    BundleCopy(int from, int to) : m_from(from), m_tree(to) { }

    InstallResult<void> addFile(const QByteArray &path, qint64 longest)
    {
        if (auto made = makeFolders(path); !made)
            return made;
        const auto source = Beneath::open(m_from, path, O_RDONLY | O_NONBLOCK);
        struct stat status;
        if (!source)
            return installError(source.error());
        if (::fstat(source->number(), &status) != 0)
            return lastInstallError();
        const auto copy = m_tree.makeFile(path);
        if (!copy)
            return unexpected<InstallFailure>(copy.error());
        if (auto written = writeAll(*source, *copy, longest); !written)
            return written;
        const bool isProgram = (status.st_mode & S_IXUSR) != 0;
        return NewTree::finish(*copy, isProgram ? NewTree::programMode : NewTree::plainMode);
    }

    [[nodiscard]] InstallResult<void> sync() const { return m_tree.sync(); }

private:
    InstallResult<void> makeFolders(const QByteArray &path)
    {
        for (qsizetype slash = path.indexOf('/'); slash >= 0;
             slash = path.indexOf('/', slash + 1)) {
            const QByteArray folder = path.first(slash);
            if (m_folders.contains(folder))
                continue;
            if (auto made = m_tree.makeFolder(folder); !made)
                return made;
            m_folders << folder;
        }
        return {};
    }

    /// At most so many bytes: a file that grows meanwhile would have no end.
    static InstallResult<void> writeAll(
        const FileDescriptor &source, const FileDescriptor &copy, qint64 longest)
    {
        QByteArray piece(qMin(pieceSize, longest), Qt::Uninitialized);
        for (qint64 at = 0; at < longest;) {
            const auto length = source.readAt(at, piece.data(), qMin(pieceSize, longest - at));
            if (!length)
                return installFailure(InstallProblem::cannotWrite, length.error());
            if (*length == 0)
                break;
            if (auto written = NewTree::write(copy, QByteArrayView(piece).first(*length)); !written)
                return written;
            at += *length;
        }
        return {};
    }

    int m_from;
    NewTree m_tree;
    QSet<QByteArray> m_folders;
};

} // namespace

InstallResult<void> copyBundle(int from, const Manifest &manifest, int to)
{
    BundleCopy copy(from, to);
    for (auto file = manifest.files.cbegin(); file != manifest.files.cend(); ++file) {
        if (auto added = copy.addFile(file.key(), file->size); !added)
            return added;
    }
    if (auto added = copy.addFile(Manifest::fileName.toByteArray(), Manifest::longest); !added)
        return added;
    return copy.sync();
}

} // namespace corvane
