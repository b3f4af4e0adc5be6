#pragma once

#include "Rect.h"
#include "XConnection.h"

namespace corvane::demo {

/// Writes the whole desktop as a PNG file once its contents have come to rest.
[[nodiscard]] bool writePicture(desktop::XConnection &connection, const QString &path);
/// Writes pictures of that desktop for a page, one below the other: the displays of each side by
/// side, made smaller, several of them smaller still.
[[nodiscard]] bool writeReduced(
    const QStringList &pictures, const QList<Rect> &displays, const QString &path);

} // namespace corvane::demo
