#include "FileWatch.h"

#include "Platform.h"

#include <QtCore/QFileInfo>

namespace corvane {

using namespace std::chrono_literals;

namespace {

constexpr Clock::Duration moment = 200ms;

QString nearestFolder(const QString &path)
{
    const QFileInfo info(path);
    return info.isDir() || info.isRoot() ? path : nearestFolder(info.path());
}

} // namespace

FileWatch::FileWatch(QStringList paths) : m_paths(std::move(paths))
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatch::awaitMore);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatch::awaitMore);
    arm();
}

void FileWatch::awaitMore()
{
    if (std::exchange(m_isWaiting, true))
        return;
    Platform::current().clock().after(moment, this, [this] {
        m_isWaiting = false;
        arm();
        Q_EMIT stirred();
    });
}

void FileWatch::arm()
{
    // The system follows a file under whatever name, so the one that has taken the name is a new one.
    if (const QStringList old = m_watcher.files() + m_watcher.directories(); !old.isEmpty())
        m_watcher.removePaths(old);
    // A folder that is made in between would be made unseen.
    constexpr int mostTurns = 10;
    QStringList watched;
    for (int turn = 0; turn < mostTurns && watched != places(); ++turn) {
        watched = places();
        m_watcher.addPaths(watched);
    }
}

QStringList FileWatch::places() const
{
    QStringList places;
    for (const QString &path : m_paths) {
        places << nearestFolder(QFileInfo(path).path());
        const QFileInfo file(path);
        if (!file.exists())
            continue;
        places << path;
        // A link is not touched when the file that it leads to is replaced.
        places << QFileInfo(file.canonicalFilePath()).path();
    }
    places.removeDuplicates();
    return places;
}

} // namespace corvane
