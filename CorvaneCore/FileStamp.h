#pragma once

#include <QtCore/QString>

#include <optional>

namespace corvane {

/// Tells one state of a file from another without reading it.
struct FileStamp {
    qint64 modified = 0; ///< nanoseconds
    qint64 size = 0;
    quint64 inode = 0; ///< a file that took the place of another one has its own
    quint32 mode = 0; ///< it may say whether the file can be read

    /// Of the file that `path` leads to; none where there is nothing to read.
    [[nodiscard]] static std::optional<FileStamp> of(const QString &path);

    bool operator==(const FileStamp &) const = default;
};

} // namespace corvane
