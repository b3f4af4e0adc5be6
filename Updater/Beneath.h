#pragma once

#include "FileDescriptor.h"

#include <QtCore/QByteArray>

/// Files and folders of an unpacked release, which never lie outside of its folder.
namespace corvane::Beneath {

/// Whether a path is relative, short, and made of letters, digits and "._+-" only, with neither "." nor
/// ".." among its names.
[[nodiscard]] bool isPlain(QByteArrayView path);

/// Opens what lies beneath the folder, on the same file system, without following a link on the way.
/// The error is the system's number.
[[nodiscard]] expected<FileDescriptor, int> open(
    int folder, const QByteArray &path, int flags, mode_t mode = 0);

/// The SHA-256 of all that is in the file. The error is one sentence.
[[nodiscard]] expected<QByteArray, QString> sha256(const FileDescriptor &file);

} // namespace corvane::Beneath
