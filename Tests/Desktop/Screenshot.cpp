#include "Screenshot.h"

#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <algorithm>

namespace corvane::desktop {

namespace {

struct Size {
    quint16 width;
    quint16 height;
};

quint32 checksum(const QByteArray &bytes)
{
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    return bigEndian(static_cast<quint32>(data.size())) + type + data
        + bigEndian(checksum(type + data));
}

// Rows of red, green, blue, each behind the number of its filter: none.
QByteArray rowsOf(const quint8 *pixels, Size size)
{
    QByteArray rows;
    rows.reserve(size.height * (size.width * 3 + 1));
    for (int y = 0; y < size.height; ++y) {
        rows += '\0';
        for (int x = 0; x < size.width; ++x, pixels += 4) {
            rows += static_cast<char>(pixels[2]);
            rows += static_cast<char>(pixels[1]);
            rows += static_cast<char>(pixels[0]);
        }
    }
    return rows;
}

QByteArray png(const quint8 *pixels, Size size)
{
    const char *const eightBitRgb = "\x08\x02\x00\x00\x00";
    const QByteArray header =
        bigEndian(size.width) + bigEndian(size.height) + QByteArray(eightBitRgb, 5);
    // qCompress puts the length before the zlib stream.
    const QByteArray data = qCompress(rowsOf(pixels, size), 3).mid(4);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", data) + chunk("IEND", {});
}

} // namespace

bool writeScreenshot(XConnection &connection, const QString &path)
{
    xcb_connection_t *raw = connection.raw();
    const Reply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(raw, xcb_get_geometry(raw, connection.root()), nullptr));
    if (!root)
        return false;
    const auto cookie = xcb_get_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, connection.root(), 0, 0,
        root->width, root->height, 0xFFFFFF);
    const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(raw, cookie, nullptr));
    QFile file(path);
    if (!image || xcb_get_image_data_length(image.get()) < root->width * root->height * 4
        || !file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = png(xcb_get_image_data(image.get()), {root->width, root->height});
    return file.write(bytes) == bytes.size();
}

} // namespace corvane::desktop
