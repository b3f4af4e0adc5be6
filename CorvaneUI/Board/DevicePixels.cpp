#include "DevicePixels.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

QPainterPath rounded(const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

} // namespace

QRectF snapped(const QPainter &painter, const QRectF &rect)
{
    const QTransform device = painter.deviceTransform();
    const QRectF mapped = device.mapRect(rect);
    const QPointF topLeft(std::round(mapped.left()), std::round(mapped.top()));
    const QPointF bottomRight(std::round(mapped.right()), std::round(mapped.bottom()));
    return device.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double snappedLength(const QPainter &painter, double points)
{
    const double scale = painter.deviceTransform().m22();
    return std::max(1.0, std::floor(points * scale + 0.25)) / scale;
}

void drawRule(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const double thickness = snappedLength(painter, 1);
    const QRectF line(rect.left(), rect.center().y() - thickness / 2, rect.width(), thickness);
    painter.fillRect(snapped(painter, line), color);
}

void drawField(QPainter &painter, const QRectF &rect, double radius, const QColor &fill,
    const QColor &edge, EdgeWidths widths)
{
    const QRectF outer = snapped(painter, rect);
    const double side = snappedLength(painter, widths.side);
    const QRectF inner = outer.adjusted(side, side, -side, -snappedLength(painter, widths.bottom));
    const QPainterPath field = rounded(inner, std::max(0.0, radius - side));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // Two antialiased curves that only meet would let the ground through between them.
    const QPainterPath whole = rounded(outer, radius);
    painter.fillPath(fill.alpha() == 255 ? whole : whole.subtracted(field), edge);
    painter.fillPath(field, fill);
    painter.restore();
}

} // namespace corvane
