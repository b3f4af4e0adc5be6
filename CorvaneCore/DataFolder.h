#pragma once

#include <QtCore/QString>

namespace corvane {

/// Where everything that Corvane keeps lies: the folder "Corvane" in the user's generic data location.
/// Worked out once; it need not exist.
[[nodiscard]] const QString &dataFolder();

/// For the user's eyes: the home folder as "~".
[[nodiscard]] QString abbreviatedPath(const QString &path);

} // namespace corvane
