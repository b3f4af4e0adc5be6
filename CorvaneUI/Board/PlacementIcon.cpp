#include "PlacementIcon.h"

#include "DevicePixels.h"
#include "DrawnIcon.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace corvane::PlacementIcon {

namespace {

constexpr QSizeF drawnSize(20, 16);

/// One drawing under way: where it stands and how large one drawn unit is.
class Drawing
{
public:
    Drawing(QPainter &painter, const QRectF &rect, const Colors &colors)
        : m_painter(painter)
        , m_colors(colors)
        , m_unit(std::min(rect.width() / drawnSize.width(), rect.height() / drawnSize.height()))
    {
        const QRectF whole(QPointF(), drawnSize * m_unit);
        m_bounds = snapped(painter, whole.translated(rect.center() - whole.center()));
        painter.setRenderHint(QPainter::Antialiasing);
    }

    void display()
    {
        const double line = snappedLength(m_painter, m_unit);
        const double half = line / 2;
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(QPen(m_colors.display, line));
        m_painter.drawRoundedRect(
            m_bounds.adjusted(half, half, -half, -half), 3 * m_unit, 3 * m_unit);
    }

    /// `part` is a share of the display.
    void window(const UnitRect &part)
    {
        const double margin =
            snappedLength(m_painter, m_unit) + snappedLength(m_painter, 2 * m_unit);
        const QRectF area = m_bounds.adjusted(margin, margin, -margin, -margin);
        const QRectF shown(area.x() + part.x * area.width(), area.y() + part.y * area.height(),
            part.w * area.width(), part.h * area.height());
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(m_colors.window);
        m_painter.drawRoundedRect(snapped(m_painter, shown), m_unit, m_unit);
    }

    /// Of open lines, each through points on the drawing's 20 by 16.
    void lines(std::initializer_list<QPolygonF> polygons, double width = 1.5)
    {
        QPainterPath path;
        for (const QPolygonF &polygon : polygons)
            path.addPolygon(polygon);
        stroke(path, width);
    }

    void stroke(const QPainterPath &path, double width = 1.5)
    {
        m_painter.save();
        m_painter.translate(m_bounds.topLeft());
        m_painter.scale(m_unit, m_unit);
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(QPen(m_colors.window, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawPath(path);
        m_painter.restore();
    }

private:
    QPainter &m_painter;
    const Colors &m_colors;
    double m_unit;
    QRectF m_bounds;
};

void drawTurnedBack(Drawing &drawing)
{
    QPainterPath path(QPointF(7.5, 2.5));
    path.lineTo(3.75, 6.25);
    path.lineTo(7.5, 10);
    path.moveTo(3.75, 6.25);
    path.lineTo(12.5, 6.25);
    path.arcTo(QRectF(8.75, 6.25, 7.5, 7.5), 90, -180);
    path.lineTo(8.5, 13.75);
    drawing.stroke(path);
}

// The way back, within the display where the window opened.
void drawOriginal(Drawing &drawing)
{
    drawing.display();
    QPainterPath path(QPointF(8, 3.75));
    path.lineTo(5.5, 6.25);
    path.lineTo(8, 8.75);
    path.moveTo(5.5, 6.25);
    path.lineTo(11.25, 6.25);
    path.arcTo(QRectF(8.25, 6.25, 6, 6), 90, -180);
    path.lineTo(8.5, 12.25);
    drawing.stroke(path, 1.25);
}

void drawWithoutRect(Drawing &drawing, Placement placement)
{
    if (placement == Placement::snapBack)
        return drawTurnedBack(drawing);
    if (placement == Placement::original)
        return drawOriginal(drawing);
    drawing.display();
    switch (placement) {
    case Placement::center:
        return drawing.window({0.25, 0.2, 0.5, 0.6});
    case Placement::larger:
        return drawing.lines({{{11.25, 4.5}, {14.5, 4.5}, {14.5, 7.5}}, {{14, 5}, {11, 7.25}},
                                 {{8.75, 11.5}, {5.5, 11.5}, {5.5, 8.5}}, {{6, 11}, {9, 8.75}}},
            1.25);
    case Placement::smaller:
        return drawing.lines(
            {{{11.25, 4.25}, {11.25, 7.25}, {14.5, 7.25}}, {{11.5, 7}, {14.75, 4.5}},
                {{8.75, 11.75}, {8.75, 8.75}, {5.5, 8.75}}, {{8.5, 9}, {5.25, 11.5}}},
            1.25);
    case Placement::nextDisplay:
        return drawing.lines({{{5.5, 8}, {14.25, 8}}, {{11, 4.75}, {14.25, 8}, {11, 11.25}}});
    case Placement::previousDisplay:
        return drawing.lines({{{14.5, 8}, {5.75, 8}}, {{9, 4.75}, {5.75, 8}, {9, 11.25}}});
    default:
        return;
    }
}

} // namespace

Colors colors(const Board::Palette &palette, Form form)
{
    switch (form) {
    case Form::plain:
        return {palette.muted, palette.accent};
    case Form::lit:
        return {palette.onAccent, palette.onAccent};
    case Form::dimmed:
        return {palette.faint, palette.faint};
    }
    return {};
}

void paint(QPainter &painter, const QRectF &rect, Placement placement, const Colors &colors)
{
    painter.save();
    Drawing drawing(painter, rect, colors);
    if (const auto part = unitRect(placement)) {
        drawing.display();
        drawing.window(*part);
    } else {
        drawWithoutRect(drawing, placement);
    }
    painter.restore();
}

QIcon icon(Placement placement, const Board::Palette &palette)
{
    return drawnIcon([placement, palette](QPainter &painter, const QRectF &rect, QIcon::Mode mode) {
        const Form form = mode == QIcon::Selected ? Form::lit
            : mode == QIcon::Disabled             ? Form::dimmed
                                                  : Form::plain;
        paint(painter, rect, placement, colors(palette, form));
    });
}

} // namespace corvane::PlacementIcon
