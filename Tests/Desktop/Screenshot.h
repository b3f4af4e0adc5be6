#pragma once

#include "XConnection.h"

namespace corvane::desktop {

/// Writes the whole desktop as a PNG picture. False when it could not be read or written.
[[nodiscard]] bool writeScreenshot(XConnection &connection, const QString &path);

} // namespace corvane::desktop
