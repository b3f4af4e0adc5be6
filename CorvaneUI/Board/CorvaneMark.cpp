#include "CorvaneMark.h"

#include "DevicePixels.h"
#include "Drawing.h"
#include "DrawnIcon.h"

#include <QtGui/QPainter>

namespace corvane::CorvaneMark {

void paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette)
{
    // Drawn on a field of 32 by 32.
    const double unit = std::min(rect.width(), rect.height()) / 32;
    const QPointF origin = snapped(painter, rect).topLeft();
    const auto pane = [&](double x, double y, double width, double height, double radius) {
        const QRectF drawn(x * unit, y * unit, width * unit, height * unit);
        painter.drawRoundedRect(
            snapped(painter, drawn.translated(origin)), radius * unit, radius * unit);
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.accent);
    pane(0, 0, 32, 32, 8);
    QColor ink = palette.onAccent;
    painter.setBrush(ink);
    pane(7, 7, 8, 18, 2);
    ink.setAlphaF(0.5F);
    painter.setBrush(ink);
    pane(17, 7, 8, 8, 2);
    pane(17, 17, 8, 8, 2);
    painter.restore();
}

QIcon icon()
{
    return drawnIcon([](QPainter &painter, const QRectF &rect, QIcon::Mode) {
        paint(painter, rect, Board::palette({}));
    });
}

QWidget *widget(double side)
{
    return new Drawing({side, side}, paint);
}

} // namespace corvane::CorvaneMark
