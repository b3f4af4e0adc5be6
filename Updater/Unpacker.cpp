#include "Unpacker.h"

#include "Beneath.h"

#include <archive.h>
#include <archive_entry.h>

#include <memory>
#include <unistd.h>

namespace corvane {

namespace {

constexpr size_t blockSize = 64UL * 1024;

struct FreeArchive {
    void operator()(archive *archive) const { archive_read_free(archive); }
};

unexpected<InstallFailure> notUnderstood(archive *archive)
{
    const char *const sentence = archive_error_string(archive);
    return installFailure(InstallProblem::archiveNotUnderstood, QString::fromUtf8(sentence));
}

unexpected<InstallFailure> refused(const QByteArray &path)
{
    return installFailure(InstallProblem::entryRefused, QString::fromUtf8(path));
}

/// What the archive calls it, without the "/" at the end of a folder.
QByteArray pathOf(archive_entry *entry)
{
    QByteArray path(archive_entry_pathname(entry));
    if (archive_entry_filetype(entry) == AE_IFDIR && path.endsWith('/'))
        path.chop(1);
    return path;
}

bool mayBeUnpacked(archive_entry *entry)
{
    const auto type = archive_entry_filetype(entry);
    const mode_t mode = archive_entry_mode(entry) & 07777;
    const bool hasGoodMode = type == AE_IFDIR
        ? mode == NewTree::programMode
        : mode == NewTree::plainMode || mode == NewTree::programMode;
    return (type == AE_IFREG || type == AE_IFDIR) && hasGoodMode && !archive_entry_hardlink(entry)
        && !archive_entry_symlink(entry) && Beneath::isPlain(pathOf(entry));
}

} // namespace

Unpacker::Unpacker(int folder, qint64 unpackedSize, Progress onProgress)
    : m_tree(folder), m_allowed(qMin(unpackedSize, mostBytes)), m_onProgress(std::move(onProgress))
{
}

InstallResult<void> Unpacker::unpack(int file)
{
    const std::unique_ptr<archive, FreeArchive> archive(archive_read_new());
    if (!archive || ::lseek(file, 0, SEEK_SET) != 0)
        return lastInstallError();
    if (archive_read_support_filter_zstd(archive.get()) != ARCHIVE_OK
        || archive_read_support_format_tar(archive.get()) != ARCHIVE_OK
        || archive_read_open_fd(archive.get(), file, blockSize) != ARCHIVE_OK)
        return notUnderstood(archive.get());
    const auto unpacked = unpackAll(archive.get());
    return unpacked ? m_tree.sync() : unpacked;
}

InstallResult<void> Unpacker::unpackAll(archive *archive)
{
    for (;;) {
        archive_entry *entry = nullptr;
        const int result = archive_read_next_header(archive, &entry);
        if (result == ARCHIVE_EOF)
            return {};
        // A warning is about what we would not want, either.
        if (result != ARCHIVE_OK)
            return notUnderstood(archive);
        if (++m_entries > mostEntries)
            return installFailure(InstallProblem::tooMuch);
        if (auto unpacked = unpackEntry(archive, entry); !unpacked)
            return unpacked;
    }
}

InstallResult<void> Unpacker::unpackEntry(archive *archive, archive_entry *entry)
{
    const QByteArray path = pathOf(entry);
    if (!mayBeUnpacked(entry))
        return refused(path);
    if (archive_entry_filetype(entry) == AE_IFDIR)
        return m_tree.makeFolder(path);
    if (!archive_entry_size_is_set(entry) || archive_entry_size(entry) < 0)
        return refused(path);
    const qint64 size = archive_entry_size(entry);
    if (size > m_allowed - m_written)
        return installFailure(InstallProblem::tooMuch);
    return writeFile(archive, path, size, archive_entry_mode(entry) & 07777);
}

InstallResult<void> Unpacker::writeFile(
    archive *archive, const QByteArray &path, qint64 size, mode_t mode)
{
    const auto file = m_tree.makeFile(path);
    if (!file)
        return unexpected<InstallFailure>(file.error());
    for (qint64 length = 0;;) {
        const void *block = nullptr;
        size_t blockLength = 0;
        la_int64_t at = 0;
        const int result = archive_read_data_block(archive, &block, &blockLength, &at);
        if (result == ARCHIVE_EOF && length == size)
            break;
        if (result != ARCHIVE_OK)
            return notUnderstood(archive);
        const auto count = static_cast<qsizetype>(blockLength);
        // A hole would let a few bytes stand for very many.
        if (at != length || count > size - length)
            return refused(path);
        const QByteArrayView content(static_cast<const char *>(block), count);
        if (auto written = NewTree::write(*file, content); !written)
            return written;
        length += count;
        m_written += count;
        if (m_onProgress)
            m_onProgress(m_written);
    }
    return NewTree::finish(*file, mode);
}

} // namespace corvane
