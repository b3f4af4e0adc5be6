#pragma once

#include "Expected.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

/// Files that belong to one user and survive a crash at any moment. Errors are one sentence each.
namespace corvane::PrivateFile {

/// The largest file that is read. No file that people write by hand comes near it.
inline constexpr qint64 sizeLimit = 16LL * 1024 * 1024;

/// The file's content; nothing when there is no such file. A file above the limit is refused
/// unread.
[[nodiscard]] expected<std::optional<QByteArray>, QString> read(const QString &path);

/// Replaces the file's content: at any moment the old or the new content stands on the disk, whole.
/// Makes the folder when it is missing; a link stays, and the file that it leads to is replaced.
[[nodiscard]] expected<void, QString> replace(const QString &path, const QByteArray &content);

/// Copies a file of any size, and even one that may not be read, as long as its owner is this user.
/// Nothing may stand at `to` yet.
[[nodiscard]] expected<void, QString> keepCopy(const QString &from, const QString &to);

/// Makes a folder, and those above it, for this user alone. An existing one stays as it is.
[[nodiscard]] expected<void, QString> makeFolder(const QString &path);

} // namespace corvane::PrivateFile
