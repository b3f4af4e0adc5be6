#include "Pictures.h"

#include "WindowProbe.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
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

constexpr int reducedWidth = 1400;
constexpr int severalWidth = 1000;
constexpr int margin = 28;
constexpr int between = 28;

// The most frequent colours of the picture, those that look alike counted once.
QList<QRgb> paletteOf(const QImage &picture)
{
    constexpr QRgb alike = 0xFFF8F8F8;
    constexpr qsizetype largest = 256;
    QHash<QRgb, std::pair<int, QRgb>> found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            auto &[count, first] = found[colour & alike];
            if (++count == 1)
                first = colour;
        }
    }
    auto colours = found.values();
    std::ranges::sort(colours, std::ranges::greater());
    QList<QRgb> palette;
    for (const auto &[count, colour] : colours.first(std::min(colours.size(), largest)))
        palette << colour;
    return palette;
}

QImage pageOf(const QImage &whole, const QList<Rect> &displays)
{
    const int gaps = 2 * margin + between * static_cast<int>(displays.size() - 1);
    QImage page(whole.width() + gaps, whole.height() + 2 * margin, QImage::Format_RGB32);
    page.fill(QColor(ground));
    QPainter painter(&page);
    painter.setPen(QPen(QColor(fore), 4));
    for (int i = 0; i < displays.size(); ++i) {
        const QRectF source(displays[i].x, displays[i].y, displays[i].width, displays[i].height);
        const QRectF target = source.translated(margin + i * between, margin);
        painter.drawRoundedRect(target.adjusted(-4, -4, 4, 4), 6, 6);
        painter.drawImage(target, whole, source);
    }
    return page;
}

} // namespace

QImage boardPicture(const QList<Rect> &displays)
{
    QRect bounds;
    for (const Rect &display : displays)
        bounds |= toQRect(display);
    QImage picture(bounds.size(), QImage::Format_RGB32);
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
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_gc(raw, context, pixmap, 0, nullptr);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
        static_cast<quint16>(picture.width()), static_cast<quint16>(picture.height()), 0, 0, 0,
        connection.screen().root_depth, static_cast<quint32>(picture.sizeInBytes()),
        picture.constBits());
    xcb_free_gc(raw, context);
    xcb_change_window_attributes(raw, window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(raw, 0, window, 0, 0, 0, 0);
    xcb_free_pixmap(raw, pixmap);
    connection.sync();
}

bool writePicture(desktop::XConnection &connection, const QString &path)
{
    const auto size = desktop::WindowProbe(connection).clientGeometry(connection.root());
    if (!size)
        return false;
    const auto look = [&] { return desktop::pixelsOn(connection, *size); };
    const QByteArray pixels = desktop::settled(look, desktop::Milliseconds{400});
    return QImage(reinterpret_cast<const uchar *>(pixels.constData()),
        static_cast<int>(size->width), static_cast<int>(size->height), QImage::Format_RGB32)
        .save(path);
}

bool writeReduced(const QString &folder, const QStringList &names, const QList<Rect> &displays,
    const QString &path)
{
    QList<QImage> pages;
    for (const QString &name : names)
        pages << pageOf(QImage(folder + u'/' + name), displays);
    const QSize size = pages.first().size();
    const int count = static_cast<int>(pages.size());
    QImage all(size.width(), size.height() * count, QImage::Format_RGB32);
    QPainter painter(&all);
    for (int i = 0; i < count; ++i)
        painter.drawImage(0, i * size.height(), pages[i]);
    painter.end();
    const QImage small =
        all.scaledToWidth(count == 1 ? reducedWidth : severalWidth, Qt::SmoothTransformation);
    QDir().mkpath(QFileInfo(path).path());
    return small.convertToFormat(QImage::Format_Indexed8, paletteOf(small), Qt::ThresholdDither)
        .save(path, "PNG", 0);
}

} // namespace corvane::demo
