#pragma once

#include "Rect.h"
#include "XConnection.h"

#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace corvane::demo {

/// The drawing board behind the windows: every display with its grid and its measures, and a plain
/// edge where no display is.
[[nodiscard]] QImage boardPicture(const QList<Rect> &displays);
/// A panel along the top of a display.
[[nodiscard]] QImage panelPicture(QSize size);
/// Paints the window's background; it stays when other windows come and go.
void setBackground(desktop::XConnection &connection, xcb_window_t window, const QImage &picture);

/// Writes the whole desktop as a PNG file once its contents have come to rest.
[[nodiscard]] bool writePicture(desktop::XConnection &connection, const QString &path);
/// Writes pictures of that folder for a page, one below the other: the displays of each side by side,
/// made smaller, several of them smaller still.
[[nodiscard]] bool writeReduced(const QString &folder, const QStringList &names,
    const QList<Rect> &displays, const QString &path);

} // namespace corvane::demo
