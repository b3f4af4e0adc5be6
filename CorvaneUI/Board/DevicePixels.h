#pragma once

#include <QtCore/QRectF>

class QColor;
class QPainter;

/// Lines and edges that stand on whole device pixels, at every scale.
namespace corvane {

/// The nearest rectangle of whole device pixels, in the painter's coordinates.
[[nodiscard]] QRectF snapped(const QPainter &painter, const QRectF &rect);
/// A length of `points` as whole device pixels, at least one; in the painter's coordinates.
[[nodiscard]] double snappedLength(const QPainter &painter, double points);

/// A horizontal hairline, from the rectangle's left to its right, in the middle of its height.
void drawRule(QPainter &painter, const QRectF &rect, const QColor &color);

/// An outline's thickness: `bottom` for the lower edge, `side` for the others.
struct EdgeWidths {
    double side = 1;
    double bottom = 1;
};

/// A rounded field within its outline; neither shows through the other.
void drawField(QPainter &painter, const QRectF &rect, double radius, const QColor &fill,
    const QColor &edge, EdgeWidths widths = {});

} // namespace corvane
