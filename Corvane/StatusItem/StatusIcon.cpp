#include "StatusIcon.h"

#include "DevicePixels.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtGui/QImageWriter>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace corvane::StatusIcon {

using namespace Qt::StringLiterals;

namespace {

constexpr double grid = 16; // the drawing's side
constexpr double rimWidth = 0.75; // on that grid
constexpr std::array iconSizes{16, 22, 24, 32, 48, 64};
constexpr int renderedSize = 64;

QPainterPath rounded(const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

QPainterPath disc(const QPointF &center, double radius)
{
    QPainterPath path;
    path.addEllipse(center, radius, radius);
    return path;
}

} // namespace

Colors colors(const DesktopLook &panel)
{
    const Board::Palette &palette = Board::palette(panel);
    QColor rim = palette.ground;
    rim.setAlphaF(0.8F);
    return {palette.fore, palette.attention, rim};
}

void paint(QPainter &painter, const QRectF &rect, Form form, const Colors &colors)
{
    const double unit = std::min(rect.width(), rect.height()) / grid;
    const QPointF origin = rect.center() - QPointF(grid, grid) * unit / 2;
    const auto on = [&](double x, double y, double width, double height) {
        const QRectF drawn(x * unit, y * unit, width * unit, height * unit);
        return snapped(painter, drawn.translated(origin));
    };
    QPainterPath shape = rounded(on(1, 2, 14, 12), 3 * unit)
                             .subtracted(rounded(on(3, 4, 10, 8), 1 * unit))
                             .united(rounded(on(4, 5, 4, 6), 0.5 * unit));
    const QPointF badge = origin + QPointF(12.5, 3.5) * unit;
    if (form == Form::attention)
        shape = shape.subtracted(disc(badge, 4.5 * unit));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(shape, QPen(colors.rim, 2 * rimWidth * unit));
    painter.fillPath(shape, colors.ink);
    if (form == Form::attention)
        painter.fillPath(disc(badge, 3.25 * unit), colors.badge);
    painter.restore();
}

QIcon icon(Form form, const Colors &colors)
{
    QIcon icon;
    for (const int size : iconSizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(painter, pixmap.rect(), form, colors);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QString description(Form form)
{
    return form == Form::ordinary
        ? QCoreApplication::translate("StatusIcon", "Corvane")
        : QCoreApplication::translate("StatusIcon", "Corvane, needs attention");
}

expected<void, QString> render(const QString &path)
{
    QImage image(renderedSize, renderedSize, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter, image.rect(), Form::ordinary, {.ink = Qt::black, .badge = Qt::black});
    painter.end();
    QImageWriter writer(path, "png");
    if (writer.write(image))
        return {};
    return unexpected(
        QCoreApplication::translate("StatusIcon", "The status icon could not be written to %1: %2.")
            .arg(QDir::toNativeSeparators(path), writer.errorString()));
}

} // namespace corvane::StatusIcon
