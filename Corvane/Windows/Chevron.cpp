#include "Chevron.h"

#include <QtGui/QPainter>

namespace corvane {

void drawChevron(QPainter &painter, const QRectF &rect, bool isOpen, Qt::LayoutDirection direction,
    const QColor &ink)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center());
    painter.rotate(isOpen ? 90 : direction == Qt::RightToLeft ? 180 : 0);
    painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double half = rect.height() / 2;
    painter.drawPolyline(
        QPolygonF{QPointF(-half / 2, -half), QPointF(half / 2, 0), QPointF(-half / 2, half)});
    painter.restore();
}

} // namespace corvane
