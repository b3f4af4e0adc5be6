#pragma once

#include "DesktopEntry.h"

#include <QtCore/QHash>

namespace corvane::freedesktop {

/// The applications that are described to the system. They are read when they are first asked for,
/// and again when a folder of theirs has changed.
class DesktopEntries final
{
public:
    /// The application of this id, as its file is now. Nothing where there is no such file, or it
    /// says that it is deleted.
    [[nodiscard]] std::optional<DesktopEntry> entry(const QString &id);
    /// Every application whose file does not say that it is deleted, by id.
    [[nodiscard]] const QList<DesktopEntry> &all();
    /// The applications whose own program this is, given by its name, or by its absolute path
    /// without symbolic links.
    [[nodiscard]] QList<DesktopEntry> withProgram(const QString &program);
    /// A number that changes whenever an answer of the calls above may have changed.
    [[nodiscard]] quint64 revision();

private:
    struct Folder {
        QString path;
        qint64 modified = 0; ///< in nanoseconds of the epoch; 0: it is not there

        bool operator==(const Folder &) const = default;
    };

    void renew();
    void read();
    void readFolder(const QString &root);
    [[nodiscard]] bool isCurrent() const;
    void findPrograms();

    QList<Folder> m_folders;
    qint64 m_readAt = 0;
    quint64 m_revision = 0;
    QHash<QString, QString> m_paths; ///< by id
    QList<DesktopEntry> m_entries;
    std::optional<QMultiHash<QString, qsizetype>> m_programs; ///< indices by name and path
};

} // namespace corvane::freedesktop
