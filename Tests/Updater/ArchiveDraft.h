#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <archive.h>
#include <archive_entry.h>

namespace corvane {

/// An entry of an archive, good or bad.
struct EntryDraft {
    QByteArray path;
    QByteArray content{};
    mode_t mode = 0644;
    unsigned type = AE_IFREG;
    QByteArray symlink{};
    QByteArray hardlink{};
};

inline const EntryDraft binFolder{.path = "bin", .mode = 0755, .type = AE_IFDIR};
inline const EntryDraft program{.path = "bin/corvane", .content = "program", .mode = 0755};

/// What packs an archive.
using Filter = int (*)(archive *);

inline QByteArray archiveOf(
    const QList<EntryDraft> &entries, Filter filter = &archive_write_add_filter_zstd)
{
    // A header of two blocks for each, at least, and what stands for a long name.
    qsizetype room = 64LL * 1024;
    for (const EntryDraft &each : entries)
        room += 8192 + 2 * each.path.size() + each.content.size();
    QByteArray bytes(room, '\0');
    size_t length = 0;
    archive *writer = archive_write_new();
    filter(writer);
    archive_write_set_format_pax_restricted(writer);
    archive_write_open_memory(writer, bytes.data(), size_t(bytes.size()), &length);
    for (const EntryDraft &each : entries) {
        archive_entry *entry = archive_entry_new();
        archive_entry_set_pathname(entry, each.path.constData());
        archive_entry_set_mode(entry, each.type | each.mode);
        archive_entry_set_size(entry, each.content.size());
        if (!each.symlink.isEmpty())
            archive_entry_set_symlink(entry, each.symlink.constData());
        if (!each.hardlink.isEmpty())
            archive_entry_set_hardlink(entry, each.hardlink.constData());
        archive_write_header(writer, entry);
        archive_write_data(writer, each.content.constData(), size_t(each.content.size()));
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
    bytes.truncate(qsizetype(length));
    return bytes;
}

} // namespace corvane
