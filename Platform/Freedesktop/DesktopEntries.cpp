#include "DesktopEntries.h"

#include "CommandLines.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <sys/stat.h>
#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 nanoseconds = 1'000'000'000;
// A file system's clock ticks slowly: two changes may bear the same time.
constexpr qint64 tick = nanoseconds / 20;

qint64 inNanoseconds(const timespec &time)
{
    return time.tv_sec * nanoseconds + time.tv_nsec;
}

struct stat statusOf(const QString &path)
{
    struct stat status {
    };
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        status = {};
    return status;
}

qint64 modified(const QString &path)
{
    return inNanoseconds(statusOf(path).st_mtim);
}

qint64 now()
{
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    return inNanoseconds(time);
}

/// Flatpak and Snap add theirs to the variables only in a new session, and some sessions not at all.
QStringList roots()
{
    QStringList roots = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    roots << data + u"/flatpak/exports/share/applications"_s
          << u"/var/lib/flatpak/exports/share/applications"_s
          << u"/var/lib/snapd/desktop/applications"_s;
    roots.removeDuplicates();
    return roots;
}

} // namespace

std::optional<DesktopEntry> DesktopEntries::entry(const QString &id)
{
    renew();
    const auto file = m_reading.files.constFind(id);
    if (file == m_reading.files.cend())
        return std::nullopt;
    const DesktopEntry entry = readDesktopEntry(file->path, id);
    return entry.isDeleted ? std::nullopt : std::optional(entry);
}

const QList<DesktopEntry> &DesktopEntries::all()
{
    renew();
    return m_reading.entries;
}

QList<DesktopEntry> DesktopEntries::withProgram(const QString &program)
{
    renew();
    if (!m_programs)
        findPrograms();
    QList<DesktopEntry> entries;
    for (const qsizetype index : m_programs->values(program))
        entries << m_reading.entries[index];
    return entries;
}

quint64 DesktopEntries::revision()
{
    renew();
    return m_revision;
}

void DesktopEntries::renew()
{
    if (m_revision == 0 || !isCurrent())
        read();
}

bool DesktopEntries::isCurrent() const
{
    return std::ranges::all_of(m_reading.folders, [this](const Folder &folder) {
        return modified(folder.path) == folder.modified
            && std::abs(m_reading.at - folder.modified) > tick;
    });
}

void DesktopEntries::read()
{
    ++m_revision;
    const Reading before = std::exchange(m_reading, {.at = now()});
    m_programs.reset();
    for (const QString &root : roots())
        readFolder(root, before);
    m_reading.entries.removeIf([](const DesktopEntry &entry) { return entry.isDeleted; });
    std::ranges::sort(m_reading.entries, {}, &DesktopEntry::id);
}

/// Most files are as they were, and reading hundreds of them takes longer than a key press may.
DesktopEntry DesktopEntries::read(const QString &id, const Reading &before) const
{
    const File file = m_reading.files.value(id);
    const auto known = std::ranges::lower_bound(before.entries, id, {}, &DesktopEntry::id);
    const bool isKnown = known != before.entries.end() && known->id == id
        && before.files.value(id) == file && before.at - file.changed > tick;
    return isKnown ? *known : readDesktopEntry(file.path, id);
}

void DesktopEntries::readFolder(const QString &root, const Reading &before)
{
    m_reading.folders << Folder{root, modified(root)};
    QDirIterator files(root, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext()) {
        const QString path = files.next();
        if (!path.endsWith(".desktop"_L1)) {
            if (files.fileInfo().isDir())
                m_reading.folders << Folder{path, modified(path)};
            continue;
        }
        QString id = path.mid(root.size() + 1).chopped(8);
        id.replace(u'/', u'-');
        // The first folder that has the id decides, even where it says that it is deleted.
        if (!m_reading.files.contains(id)) {
            m_reading.files.insert(id, {path, inNanoseconds(statusOf(path).st_ctim)});
            m_reading.entries << read(id, before);
        }
    }
}

void DesktopEntries::findPrograms()
{
    m_programs.emplace();
    for (qsizetype i = 0; i < m_reading.entries.size(); ++i) {
        for (const QByteArray &program : ownPrograms(m_reading.entries[i])) {
            const QString name = QFileInfo(QFile::decodeName(program)).fileName();
            const QString path =
                QFileInfo(QFile::decodeName(programPath(program))).canonicalFilePath();
            for (const QString &key : {name, path}) {
                if (!key.isEmpty() && !m_programs->contains(key, i))
                    m_programs->insert(key, i);
            }
        }
    }
}

} // namespace corvane::freedesktop
