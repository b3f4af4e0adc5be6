#pragma once

#include <QtCore/Qt>

class QColor;
class QPainter;
class QRectF;

namespace corvane {

/// Draws, in the middle of the rectangle, what points along the line, and down once something is open.
void drawChevron(QPainter &painter, const QRectF &rect, bool isOpen, Qt::LayoutDirection direction,
    const QColor &ink);

} // namespace corvane
