#include "Board.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb ground = 0xF4F2EC;
constexpr QRgb sheet = 0xFBFAF6;
constexpr QRgb grid = 0xE9E6DD;
constexpr QRgb hairline = 0xDEDAD0;
constexpr QRgb edge = 0xCBC7BC;
constexpr QRgb fore = 0x1B1D22;
constexpr QRgb muted = 0x5C6069;
constexpr QRgb accent = 0x2B55D9;

constexpr int cell = 40;
constexpr int cellsPerHairline = 5;

void drawGrid(QPainter &painter, const QRect &area)
{
    for (int i = 1; i * cell < std::max(area.width(), area.height()); ++i) {
        painter.setPen(QColor(i % cellsPerHairline ? grid : hairline));
        if (i * cell < area.width())
            painter.drawLine(
                area.left() + i * cell, area.top(), area.left() + i * cell, area.bottom());
        if (i * cell < area.height())
            painter.drawLine(
                area.left(), area.top() + i * cell, area.right(), area.top() + i * cell);
    }
}

void drawDisplay(QPainter &painter, const QRect &display, int number)
{
    painter.fillRect(display, QColor(ground));
    drawGrid(painter, display);
    painter.setPen(QColor(muted));
    painter.setFont(QFont(u"DejaVu Sans Mono"_s, 12));
    painter.drawText(display.adjusted(20, 20, -20, -20), Qt::AlignLeft | Qt::AlignBottom,
        u"Display %1 · %2 × %3"_s.arg(number).arg(display.width()).arg(display.height()));
}

QRect toQRect(const Rect &rect)
{
    return {static_cast<int>(rect.x), static_cast<int>(rect.y), static_cast<int>(rect.width),
        static_cast<int>(rect.height)};
}

QSize boundsOf(const QList<Rect> &displays)
{
    QRect bounds;
    for (const Rect &display : displays)
        bounds |= toQRect(display);
    return bounds.size();
}

void putImage(desktop::XConnection &connection, xcb_drawable_t drawable, const QImage &picture)
{
    constexpr int rowsAtOnce = 64; // keeps each request within the protocol's limit
    xcb_connection_t *raw = connection.raw();
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_gc(raw, context, drawable, 0, nullptr);
    for (int y = 0; y < picture.height(); y += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, picture.height() - y);
        xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, context,
            static_cast<quint16>(picture.width()), static_cast<quint16>(rows), 0,
            static_cast<qint16>(y), 0, connection.screen().root_depth,
            static_cast<quint32>(picture.bytesPerLine() * rows), picture.constScanLine(y));
    }
    xcb_free_gc(raw, context);
}

} // namespace

QImage boardPicture(const QList<Rect> &displays)
{
    QImage picture(boundsOf(displays), QImage::Format_RGB32);
    picture.fill(QColor(edge));
    QPainter painter(&picture);
    for (int i = 0; i < displays.size(); ++i)
        drawDisplay(painter, toQRect(displays[i]), i + 1);
    return picture;
}

QImage panelPicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(sheet));
    QPainter painter(&picture);
    painter.setPen(QColor(edge));
    painter.drawLine(0, size.height() - 1, size.width(), size.height() - 1);
    painter.fillRect(QRect(16, 11, 5, 10), QColor(accent));
    painter.fillRect(QRect(23, 11, 5, 10), QColor(accent).lighter(150));
    QFont font(u"DejaVu Sans"_s, 11);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(fore));
    const QRect inside = picture.rect().adjusted(38, 0, -16, 0);
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, u"Corvane"_s);
    font.setBold(false);
    painter.setFont(font);
    painter.setPen(QColor(muted));
    painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter,
        u"a panel %1 pixels high, which no placement covers"_s.arg(size.height()));
    return picture;
}

void setBackground(desktop::XConnection &connection, xcb_window_t window, const QImage &picture)
{
    xcb_connection_t *raw = connection.raw();
    const xcb_pixmap_t pixmap = xcb_generate_id(raw);
    xcb_create_pixmap(raw, connection.screen().root_depth, pixmap, window,
        static_cast<quint16>(picture.width()), static_cast<quint16>(picture.height()));
    putImage(connection, pixmap, picture);
    xcb_change_window_attributes(raw, window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(raw, 0, window, 0, 0, 0, 0);
    xcb_free_pixmap(raw, pixmap);
    connection.sync();
}

} // namespace corvane::demo
