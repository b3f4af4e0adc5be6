#pragma once

#include "Rect.h"

#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace corvane::demo {

[[nodiscard]] QRect toQRect(const Rect &rect);

/// The drawing board behind the windows: every display with its grid and its measures, and a plain
/// edge where no display is.
[[nodiscard]] QImage boardPicture(const QList<Rect> &displays);
/// A panel along the top of a display.
[[nodiscard]] QImage panelPicture(QSize size);
/// What the displays show, and the board's edge where no display is.
[[nodiscard]] QImage onBoard(const QImage &seen, const QList<Rect> &displays);
/// Writes pictures of that folder for a page, one below the other: the displays of each side by side,
/// made smaller, several of them smaller still.
[[nodiscard]] bool writeReduced(const QString &folder, const QStringList &names,
    const QList<Rect> &displays, const QString &path);

} // namespace corvane::demo
