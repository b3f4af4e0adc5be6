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

constexpr int cell = 40;
constexpr int cellsPerHairline = 5;

QRect toQRect(const Rect &rect)
{
    return QRectF(rect.x, rect.y, rect.width, rect.height).toRect();
}

QSize boundsOf(const QList<Rect> &displays)
{
    QRect bounds;
    for (const Rect &display : displays)
        bounds |= toQRect(display);
    return bounds.size();
}

} // namespace

QImage boardPicture(const QList<Rect> &displays)
{
    QImage picture(boundsOf(displays), QImage::Format_RGB32);
    picture.fill(QColor(edge));
    QPainter painter(&picture);
    painter.setFont(QFont(u"DejaVu Sans Mono"_s, 12));
    for (int number = 1; number <= displays.size(); ++number) {
        const QRect display = toQRect(displays[number - 1]);
        painter.setClipRect(display);
        painter.fillRect(display, QColor(ground));
        for (int i = 1; i * cell < std::max(display.width(), display.height()); ++i) {
            const int x = display.left() + i * cell;
            const int y = display.top() + i * cell;
            painter.setPen(QColor(i % cellsPerHairline ? grid : hairline));
            painter.drawLine(x, display.top(), x, display.bottom());
            painter.drawLine(display.left(), y, display.right(), y);
        }
        painter.setPen(QColor(muted));
        painter.drawText(display.adjusted(20, 20, -20, -20), Qt::AlignLeft | Qt::AlignBottom,
            u"Display %1 · %2 × %3"_s.arg(number).arg(display.width()).arg(display.height()));
    }
    return picture;
}

QImage panelPicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(sheet));
    QPainter painter(&picture);
    painter.setPen(QColor(edge));
    painter.drawLine(0, size.height() - 1, size.width(), size.height() - 1);
    painter.setPen(QColor(muted));
    painter.setFont(QFont(u"DejaVu Sans"_s, 11));
    painter.drawText(picture.rect().adjusted(16, 0, -16, 0), Qt::AlignRight | Qt::AlignVCenter,
        u"a panel %1 pixels high, which no placement covers"_s.arg(size.height()));
    return picture;
}

void setBackground(desktop::XConnection &connection, xcb_window_t window, const QImage &picture)
{
    xcb_connection_t *raw = connection.raw();
    const auto width = static_cast<quint16>(picture.width());
    const auto height = static_cast<quint16>(picture.height());
    const quint8 depth = connection.screen().root_depth;
    const xcb_pixmap_t pixmap = xcb_generate_id(raw);
    xcb_create_pixmap(raw, depth, pixmap, window, width, height);
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_gc(raw, context, pixmap, 0, nullptr);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, depth,
        static_cast<quint32>(picture.sizeInBytes()), picture.constBits());
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
    constexpr int margin = 28;
    const int count = static_cast<int>(names.size());
    const int gaps = margin * static_cast<int>(displays.size() + 1);
    const QSize page = boundsOf(displays) + QSize(gaps, 2 * margin);
    QImage all(page.width(), page.height() * count, QImage::Format_RGB32);
    all.fill(QColor(ground));
    QPainter painter(&all);
    painter.setPen(QPen(QColor(fore), 4));
    for (const QString &name : names) {
        const QImage whole(folder + u'/' + name);
        for (int i = 0; i < displays.size(); ++i) {
            const QRect source = toQRect(displays[i]);
            const QRect target = source.translated(margin * (i + 1), margin);
            painter.drawRoundedRect(target.adjusted(-4, -4, 4, 4), 6, 6);
            painter.drawImage(target, whole, source);
        }
        painter.translate(0, page.height());
    }
    painter.end();
    QDir().mkpath(QFileInfo(path).path());
    return all.scaledToWidth(count == 1 ? 1400 : 1000, Qt::SmoothTransformation)
        .save(path, "PNG", 0);
}

} // namespace corvane::demo
