#include "ArchiveDraft.h"
#include "Beneath.h"
#include "Manifest.h"
#include "Require.h"
#include "Unpacker.h"

#include <QtCore/QDirIterator>
#include <QtCore/QTemporaryDir>

#include <array>
#include <fcntl.h>
#include <sys/mman.h>
#include <tuple>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 allowed = 64LL * 1024;

/// An archive that is well made, with what the input's lines say in it: a letter for the type, one for
/// the mode, a name, and after a space the content or where a link leads to.
QByteArray archiveOfLines(const QByteArray &input)
{
    constexpr std::array<unsigned, 6> types{
        AE_IFREG, AE_IFREG, AE_IFDIR, AE_IFDIR, AE_IFLNK, AE_IFIFO};
    constexpr std::array<mode_t, 6> modes{0644, 0755, 0755, 0755, 04755, 0777};
    QList<EntryDraft> entries;
    for (const QByteArray &line : input.split('\n')) {
        if (line.size() < 3)
            continue;
        const qsizetype space = line.indexOf(' ', 2);
        const QByteArray rest = space < 0 ? QByteArray() : line.sliced(space + 1);
        EntryDraft entry{.path = line.sliced(2, (space < 0 ? line.size() : space) - 2)};
        entry.type = types[static_cast<unsigned char>(line[0]) % types.size()];
        entry.mode = modes[static_cast<unsigned char>(line[1]) % modes.size()];
        const bool isHardlink = entry.type == AE_IFREG && rest.startsWith('>');
        (entry.type == AE_IFLNK ? entry.symlink
                : isHardlink    ? entry.hardlink
                                : entry.content) = rest;
        if (entry.type != AE_IFREG)
            entry.content.clear();
        entries << entry;
    }
    return archiveOf(entries, archive_write_add_filter_none);
}

/// Only plain files and folders with plain names, and no more bytes than were allowed.
void requirePlain(const QString &path)
{
    qint64 length = 0;
    QDirIterator found(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (found.hasNext()) {
        found.next();
        const QFileInfo entry = found.fileInfo();
        require(!entry.isSymLink() && (entry.isFile() || entry.isDir()));
        require(Beneath::isPlain(entry.filePath().sliced(path.size() + 1).toUtf8()));
        length += entry.isFile() ? entry.size() : 0;
    }
    require(length <= allowed);
}

void unpack(const QByteArray &archive)
{
    const QTemporaryDir outer(u"/dev/shm/corvane-fuzz-XXXXXX"_s);
    const QString path = outer.filePath(u"staging"_s);
    require(QDir().mkdir(path));
    const FileDescriptor folder(::open(qPrintable(path), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const FileDescriptor file(::memfd_create("fuzz", MFD_CLOEXEC));
    require(file.write(archive).has_value());

    std::ignore = Unpacker(folder.number(), allowed).unpack(file.number());
    requirePlain(path);
    require(QDir(outer.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size() == 1);
    std::ignore = checkTree(folder.number());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(bytes), qsizetype(size));

    // What is not packed is read, too.
    unpack(input);
    unpack(archiveOfLines(input));

    if (const auto manifest = Manifest::fromText(input)) {
        for (const QByteArray &each : manifest->files.keys())
            require(Beneath::isPlain(each));
    }
    return 0;
}
