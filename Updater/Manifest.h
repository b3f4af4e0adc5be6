#pragma once

#include "InstallProblem.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

namespace corvane {

/// What a release consists of: a line for each file, "path size sha256", in the order of the paths, whose
/// bytes are compared. The list itself, which lies in the release's folder, is not in it.
struct Manifest {
    static constexpr QByteArrayView fileName = "MANIFEST";
    static constexpr qint64 longest = 4LL * 1024 * 1024;

    struct File {
        qint64 size = 0;
        QByteArray sha256; ///< 32 bytes

        bool operator==(const File &) const = default;
    };
    QMap<QByteArray, File> files;

    [[nodiscard]] static InstallResult<Manifest> fromText(const QByteArray &text);
    /// The list that lies in an open folder.
    [[nodiscard]] static InstallResult<Manifest> ofFolder(int folder);

    bool operator==(const Manifest &) const = default;
};

/// Whether the folder holds exactly what its own manifest lists, as files and folders that are nothing
/// else.
[[nodiscard]] InstallResult<void> checkTree(int folder);

} // namespace corvane
