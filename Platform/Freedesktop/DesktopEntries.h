#pragma once

#include "DesktopEntry.h"

#include <QtCore/QHash>

namespace corvane::freedesktop {

/// The applications that are described to the system. They are read when they are first asked for,
/// and when a folder of theirs has changed, those whose files have changed again.
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

    struct File {
        QString path;
        qint64 changed = 0; ///< its contents, name or rights; as above

        bool operator==(const File &) const = default;
    };

    /// What was read at one time.
    struct Reading {
        qint64 at = 0;
        QList<Folder> folders{};
        QHash<QString, File> files{}; ///< by id
        QList<DesktopEntry> entries{}; ///< by id, but for deleted ones
    };

    void renew();
    void read();
    void readFolder(const QString &root, const Reading &before);
    [[nodiscard]] DesktopEntry read(const QString &id, const Reading &before) const;
    [[nodiscard]] bool isCurrent() const;
    void findPrograms();

    Reading m_reading;
    quint64 m_revision = 0;
    std::optional<QMultiHash<QString, qsizetype>> m_programs; ///< indices by name and path
};

} // namespace corvane::freedesktop
