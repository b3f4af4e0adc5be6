#pragma once

#include <QtCore/QString>

namespace corvane {

/// The folder of everything that Corvane keeps: "Corvane" in the user's generic data location.
/// Worked out once; it need not exist.
[[nodiscard]] const QString &dataFolder();

/// The path as a user reads it, with the home folder as "~".
[[nodiscard]] QString abbreviatedPath(const QString &path);

} // namespace corvane
