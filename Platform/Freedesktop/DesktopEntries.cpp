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

qint64 modified(const QString &path)
{
    struct stat status {
    };
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? inNanoseconds(status.st_mtim)
                                                                   : 0;
}

qint64 now()
{
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    return inNanoseconds(time);
}

QStringList roots()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

} // namespace

std::optional<DesktopEntry> DesktopEntries::entry(const QString &id)
{
    renew();
    const auto path = m_paths.constFind(id);
    if (path == m_paths.cend())
        return std::nullopt;
    const DesktopEntry entry = readDesktopEntry(*path, id);
    return entry.isDeleted ? std::nullopt : std::optional(entry);
}

const QList<DesktopEntry> &DesktopEntries::all()
{
    renew();
    return m_entries;
}

QList<DesktopEntry> DesktopEntries::withProgram(const QString &program)
{
    renew();
    if (!m_programs)
        findPrograms();
    QList<DesktopEntry> entries;
    for (const qsizetype index : m_programs->values(program))
        entries << m_entries[index];
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
    return std::ranges::all_of(m_folders, [this](const Folder &folder) {
        return modified(folder.path) == folder.modified
            && std::abs(m_readAt - folder.modified) > tick;
    });
}

void DesktopEntries::read()
{
    ++m_revision;
    m_readAt = now();
    m_folders.clear();
    m_paths.clear();
    m_entries.clear();
    m_programs.reset();
    for (const QString &root : roots())
        readFolder(root);
    m_entries.removeIf([](const DesktopEntry &entry) { return entry.isDeleted; });
    std::ranges::sort(m_entries, {}, &DesktopEntry::id);
}

void DesktopEntries::readFolder(const QString &root)
{
    m_folders << Folder{root, modified(root)};
    QDirIterator files(root, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext()) {
        const QString path = files.next();
        if (!path.endsWith(".desktop"_L1)) {
            if (files.fileInfo().isDir())
                m_folders << Folder{path, modified(path)};
            continue;
        }
        QString id = path.mid(root.size() + 1).chopped(8);
        id.replace(u'/', u'-');
        // The first folder that has the id decides, even where it says that it is deleted.
        if (!m_paths.contains(id)) {
            m_paths.insert(id, path);
            m_entries << readDesktopEntry(path, id);
        }
    }
}

void DesktopEntries::findPrograms()
{
    m_programs.emplace();
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        for (const QByteArray &program : ownPrograms(m_entries[i])) {
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
