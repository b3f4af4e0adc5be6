#include "Pictures.h"

#include "Screenshot.h"
#include "Waiting.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QHash>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>
#include <functional>

namespace corvane::demo {

namespace {

constexpr int reducedWidth = 1400;
constexpr int severalWidth = 1000;
constexpr int margin = 28;
constexpr int between = 28;
constexpr QRgb ground = 0xF4F2EC;
constexpr QRgb frame = 0x1B1D22;

QByteArray contents(desktop::XConnection &connection)
{
    xcb_connection_t *raw = connection.raw();
    const desktop::Reply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(raw, xcb_get_geometry(raw, connection.root()), nullptr));
    if (!root)
        return {};
    const auto cookie = xcb_get_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, connection.root(), 0, 0,
        root->width, root->height, 0xFFFFFF);
    const desktop::Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(raw, cookie, nullptr));
    if (!image)
        return {};
    return QCryptographicHash::hash(
        QByteArrayView(xcb_get_image_data(image.get()), xcb_get_image_data_length(image.get())),
        QCryptographicHash::Md5);
}

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
    painter.setPen(QPen(QColor(frame), 4));
    for (int i = 0; i < displays.size(); ++i) {
        const QRectF source(displays[i].x, displays[i].y, displays[i].width, displays[i].height);
        const QRectF target = source.translated(margin + i * between, margin);
        painter.drawRoundedRect(target.adjusted(-4, -4, 4, 4), 6, 6);
        painter.drawImage(target, whole, source);
    }
    return page;
}

} // namespace

bool writePicture(desktop::XConnection &connection, const QString &path)
{
    const auto look = [&connection] { return contents(connection); };
    static_cast<void>(desktop::settled(look, desktop::Milliseconds{400}));
    return desktop::writeScreenshot(connection, path);
}

bool writeReduced(const QStringList &pictures, const QList<Rect> &displays, const QString &path)
{
    QList<QImage> pages;
    for (const QString &picture : pictures) {
        const QImage whole(picture);
        if (whole.isNull())
            return false;
        pages << pageOf(whole, displays);
    }
    QImage all(pages.first().width(), pages.first().height() * static_cast<int>(pages.size()),
        QImage::Format_RGB32);
    QPainter painter(&all);
    for (int i = 0; i < pages.size(); ++i)
        painter.drawImage(0, i * pages[i].height(), pages[i]);
    painter.end();
    const int width = pages.size() == 1 ? reducedWidth : severalWidth;
    const QImage small = all.scaledToWidth(width, Qt::SmoothTransformation);
    return small.convertToFormat(QImage::Format_Indexed8, paletteOf(small), Qt::ThresholdDither)
        .save(path, "PNG", 0);
}

} // namespace corvane::demo
