#include "WindowRequest.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <array>
#include <tuple>

namespace corvane {

QDataStream &operator<<(QDataStream &stream, const Size &size)
{
    return stream << size.width << size.height;
}

QDataStream &operator>>(QDataStream &stream, Size &size)
{
    return stream >> size.width >> size.height;
}

} // namespace corvane

namespace corvane::desktop {

namespace {

// One list for both directions.
template <typename Request>
auto fieldsOf(Request &request)
{
    auto &[x, y, width, height] = request.geometry;
    auto &[minimum, maximum, increment, base, minimumAspect, maximumAspect, gravity] =
        request.hints;
    auto &[left, right, top, bottom] = request.shadow;
    return std::tie(x, y, width, height, request.title, request.titleRepeats, request.className,
        request.kind, request.decorated, request.placed, minimum, maximum, increment, base,
        minimumAspect, maximumAspect, gravity, left, right, top, bottom, request.shadowDelay,
        request.strut, request.transientFor, request.transientForItself, request.number);
}

} // namespace

QByteArray WindowRequest::toBytes() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    std::apply([&](const auto &...field) { (stream << ... << field); }, fieldsOf(*this));
    return bytes;
}

WindowRequest WindowRequest::fromBytes(const QByteArray &bytes)
{
    WindowRequest request;
    QDataStream stream(bytes);
    std::apply([&](auto &...field) { (stream >> ... >> field); }, fieldsOf(request));
    return request;
}

WindowRequest WindowRequest::panel(const Rect &display, Side side, int thickness, const Rect &desk)
{
    const double t = thickness;
    const bool isUpright = side == Side::left || side == Side::right;
    const std::array reserved{display.x + t, desk.maxX() - display.maxX() + t, display.y + t,
        desk.maxY() - display.maxY() + t};
    const auto at = static_cast<qsizetype>(side);
    WindowRequest request;
    request.kind = Kind::dock;
    request.title = "Panel";
    request.geometry = {side == Side::right ? display.maxX() - t : display.x,
        side == Side::bottom ? display.maxY() - t : display.y, isUpright ? t : display.width,
        isUpright ? display.height : t};
    request.strut.resize(12);
    request.strut[at] = static_cast<quint32>(reserved[static_cast<size_t>(side)]);
    request.strut[4 + 2 * at] = static_cast<quint32>(isUpright ? display.y : display.x);
    request.strut[5 + 2 * at] =
        static_cast<quint32>((isUpright ? display.maxY() : display.maxX()) - 1);
    return request;
}

} // namespace corvane::desktop
