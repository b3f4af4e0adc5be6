#include "DraftingGrid.h"

#include "DevicePixels.h"

#include <QtGui/QPainter>

#include <cmath>

namespace corvane::DraftingGrid {

void paint(QPainter &painter, const QRectF &rect, double step, const Board::Palette &palette)
{
    const double thickness = snappedLength(painter, 1);
    const auto firstFrom = [step](double start, double center) {
        return center - std::floor((center - start) / step) * step;
    };
    for (double x = firstFrom(rect.left(), rect.center().x()); x < rect.right(); x += step)
        painter.fillRect(snapped(painter, {x, rect.top(), thickness, rect.height()}), palette.grid);
    for (double y = firstFrom(rect.top(), rect.center().y()); y < rect.bottom(); y += step)
        painter.fillRect(snapped(painter, {rect.left(), y, rect.width(), thickness}), palette.grid);
}

} // namespace corvane::DraftingGrid
