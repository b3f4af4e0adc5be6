#pragma once

#include "Rect.h"
#include "XConnection.h"

#include <QtGui/QImage>

namespace corvane::demo {

/// The drawing board behind the windows: every display with its grid and its measures, and a plain
/// edge where no display is.
[[nodiscard]] QImage boardPicture(const QList<Rect> &displays);
/// A panel along the top of a display.
[[nodiscard]] QImage panelPicture(QSize size);

/// Paints the window's background; it stays when other windows come and go.
void setBackground(desktop::XConnection &connection, xcb_window_t window, const QImage &picture);

} // namespace corvane::demo
