#pragma once

#include <QtCore/QTemporaryDir>

#include <functional>

namespace corvane::freedesktop {

/// A user's and a system's folder of desktop entries, and one of programs, in place of this machine's.
class EntryFolders
{
public:
    enum class Place { home, system };

    EntryFolders();

    [[nodiscard]] QString path(const QString &file) const { return m_folder.filePath(file); }
    /// `keys`: lines of the entry's group.
    void write(const QString &id, const QByteArray &keys, Place place = Place::home) const;
    /// The same for an application that can be opened, with more lines for its group.
    void install(const QString &id, const QByteArray &keys = {}, Place place = Place::home) const;
    void remove(const QString &id) const;
    /// A program in the search path. It does nothing.
    [[nodiscard]] QString addProgram(const QString &name) const;
    /// A file with its folders.
    void writeFile(const QString &file, const QByteArray &contents) const;

private:
    QTemporaryDir m_folder;
};

/// Runs the event loop until the condition holds; false when it does not in time.
[[nodiscard]] bool eventually(const std::function<bool()> &condition);

} // namespace corvane::freedesktop
