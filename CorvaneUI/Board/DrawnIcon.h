#pragma once

#include <QtGui/QIcon>

#include <functional>

namespace corvane {

using IconDrawing = std::function<void(QPainter &painter, const QRectF &rect, QIcon::Mode mode)>;

/// An icon that is drawn anew for each size and scale.
[[nodiscard]] QIcon drawnIcon(IconDrawing drawing);

} // namespace corvane
