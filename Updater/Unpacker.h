#pragma once

#include "NewTree.h"

#include <functional>

struct archive;
struct archive_entry;

namespace corvane {

/// Unpacks a release, which is a tar archive packed with zstd. A library reads it; every file and folder
/// is made here, so that nothing in an archive decides where it lies.
class Unpacker final
{
public:
    static constexpr int mostEntries = 4000;
    static constexpr qint64 mostBytes = 512LL * 1024 * 1024;
    /// Told how many bytes have been unpacked.
    using Progress = std::function<void(qint64 done)>;

    /// Into an open, empty folder.
    Unpacker(int folder, qint64 unpackedSize, Progress onProgress = {});

    /// Everything in the open file, which is on the disk afterwards. Called once.
    [[nodiscard]] InstallResult<void> unpack(int file);

private:
    [[nodiscard]] InstallResult<void> unpackAll(archive *archive);
    [[nodiscard]] InstallResult<void> unpackEntry(archive *archive, archive_entry *entry);
    [[nodiscard]] InstallResult<void> writeFile(
        archive *archive, const QByteArray &path, qint64 size, mode_t mode);

    NewTree m_tree;
    qint64 m_allowed;
    Progress m_onProgress;
    int m_entries = 0;
    qint64 m_written = 0;
};

} // namespace corvane
