#include "ProgramWatch.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <sys/stat.h>

namespace corvane {

ProgramWatch::ProgramWatch(QString program) : m_program(std::move(program))
{
    // The folder tells of a file that comes after the old one went; the file, of one that is renamed.
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &ProgramWatch::look);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &ProgramWatch::look);
}

void ProgramWatch::start()
{
    m_running = identity();
    if (m_running)
        m_watcher.addPaths({m_program, QFileInfo(m_program).path()});
}

std::optional<ProgramWatch::Identity> ProgramWatch::identity() const
{
    struct stat status;
    if (::stat(QFile::encodeName(m_program).constData(), &status) != 0
        || (status.st_mode & S_IXUSR) == 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

void ProgramWatch::look()
{
    const auto now = identity();
    if (!now || now == m_running)
        return;
    m_watcher.removePaths(m_watcher.files() + m_watcher.directories());
    Q_EMIT replaced();
}

} // namespace corvane
