#include "WaylandPictures.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusUnixFileDescriptor>

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

/// The bytes that come out of the pipe, so many of them.
QByteArray read(int pipe, qsizetype count)
{
    QByteArray bytes(count, Qt::Uninitialized);
    for (qsizetype done = 0; done < count;) {
        const ssize_t got = ::read(pipe, bytes.data() + done, static_cast<size_t>(count - done));
        if (got <= 0)
            return {};
        done += got;
    }
    return bytes;
}

QImage imageOf(const QVariantMap &description, int pipe)
{
    const auto number = [&](const QString &name) { return description[name].toInt(); };
    const int height = number(u"height"_s);
    const int stride = number(u"stride"_s);
    const QByteArray pixels = read(pipe, qsizetype(stride) * height);
    if (pixels.isEmpty())
        return {};
    return QImage(reinterpret_cast<const uchar *>(pixels.constData()), number(u"width"_s), height,
        stride, static_cast<QImage::Format>(number(u"format"_s)))
        .copy();
}

} // namespace

QImage pictureOfSway(desktop::PrivateSession &session)
{
    const QString path = session.folder() + u"/picture.png"_s;
    return session.run(u"grim"_s, {path}) ? QImage(path) : QImage();
}

QImage pictureOfKWin(desktop::PrivateSession &session)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    auto bus = QDBusConnection::connectToBus(
        session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"pictures"_s);
    auto call = QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
        u"org.kde.KWin.ScreenShot2"_s, u"CaptureWorkspace"_s);
    QDBusUnixFileDescriptor target;
    target.giveFileDescriptor(ends[1]);
    call << QVariantMap() << QVariant::fromValue(target);
    const QDBusMessage answer = bus.call(call);
    const auto description = qdbus_cast<QVariantMap>(answer.arguments().value(0));
    const QImage image = imageOf(description, ends[0]);
    ::close(ends[0]);
    return image;
}

} // namespace corvane::demo
