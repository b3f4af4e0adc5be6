#pragma once

#include <QtCore/QString>

namespace corvane {

/// Who updates a copy of the program.
enum class InstallKind {
    development, ///< whoever builds it
    package, ///< the system
    flatpak, ///< its maker, by way of the system
    image, ///< its maker
    bundle, ///< it updates itself
};

/// How this copy came to the computer.
struct InstalledCopy {
    InstallKind kind = InstallKind::development;
    QString maker = {}; ///< of a flatpak or an image; may be unknown
    QString command = {}; ///< updates a package where no program with windows does; else empty
    /// Whether it runs from where bundles are installed. From elsewhere, none can update itself.
    bool isInPlace = true;
    qint64 build = 0; ///< what updaters compare; 0 for one that has no number

    [[nodiscard]] bool canUpdateItself() const
    {
        return kind == InstallKind::bundle && isInPlace && build > 0;
    }
    /// Whether another version may come in its place while it runs.
    [[nodiscard]] bool isReplacedByOthers() const
    {
        return kind == InstallKind::package || kind == InstallKind::flatpak
            || kind == InstallKind::image;
    }
    bool operator==(const InstalledCopy &) const = default;
};

} // namespace corvane
