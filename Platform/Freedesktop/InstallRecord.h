#pragma once

#include "InstallKind.h"

#include <QtCore/QDateTime>

#include <optional>

namespace corvane::freedesktop {

/// What is known of a copy of the program since it was built or packed. It stands in the file
/// "share/corvane/install.json" of the copy's folder.
struct InstallRecord {
    InstallKind kind = InstallKind::development;
    qint64 build = 0; ///< what updaters compare; 0 for one that has no number
    std::optional<QDateTime> built;
    QString command; ///< updates it where no program with windows does
    QString maker;

    /// What cannot be read has its default.
    [[nodiscard]] static InstallRecord read(const QString &folder);

    bool operator==(const InstallRecord &) const = default;
};

/// Where copies that update themselves live, below the user's home.
[[nodiscard]] QString bundlesFolder();

/// Of the running program, which stands in the folder "bin" of its copy.
[[nodiscard]] InstallRecord ownRecord();
[[nodiscard]] InstalledCopy ownCopy();
/// The file that starts this program, also once it has been updated.
[[nodiscard]] QString ownProgram();

} // namespace corvane::freedesktop
