#pragma once

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QStringList>

namespace corvane {

/// Tells that files may have changed: were written, replaced or made, if need be with their folder.
/// The system wakes it; there is nothing to do meanwhile.
class FileWatch final : public QObject
{
    Q_OBJECT

public:
    /// Absolute paths.
    explicit FileWatch(QStringList paths);

Q_SIGNALS:
    /// The files may have changed. Sent once for what happens within a moment, since editors write
    /// in several steps, and for this program's own changes, too.
    void stirred();

private:
    void arm();
    void awaitMore();
    [[nodiscard]] QStringList places() const;

    QStringList m_paths;
    QFileSystemWatcher m_watcher;
    bool m_isWaiting = false;
};

} // namespace corvane
