#pragma once

#include "Rect.h"
#include "XConnection.h"

namespace corvane::demo {

/// Writes the whole desktop as a PNG file once its contents have come to rest.
[[nodiscard]] bool writePicture(desktop::XConnection &connection, const QString &path);
/// Writes a picture of that desktop for a page: its displays side by side, made smaller.
[[nodiscard]] bool writeReduced(
    const QString &picture, const QList<Rect> &displays, const QString &path);

} // namespace corvane::demo
