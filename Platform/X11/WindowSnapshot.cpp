#include "WindowSnapshot.h"

#include <algorithm>
#include <cmath>

namespace corvane::x11 {

std::optional<Extents> Extents::fromProperty(std::span<const quint32> values)
{
    constexpr quint32 widestBelievable = 1000;
    if (values.size() < 4
        || std::ranges::any_of(values.first(4), [](quint32 v) { return v > widestBelievable; }))
        return std::nullopt;
    return Extents{double(values[0]), double(values[1]), double(values[2]), double(values[3])};
}

Rect WindowSnapshot::frame() const
{
    return {client.x - decoration.left + shadow.left, client.y - decoration.top + shadow.top,
        client.width + decoration.left + decoration.right - shadow.left - shadow.right,
        client.height + decoration.top + decoration.bottom - shadow.top - shadow.bottom};
}

Size WindowSnapshot::clientSizeFor(Size frameSize) const
{
    return hints.constrained({std::round(frameSize.width) - decoration.left - decoration.right
            + shadow.left + shadow.right,
        std::round(frameSize.height) - decoration.top - decoration.bottom + shadow.top
            + shadow.bottom});
}

Rect WindowSnapshot::requestFor(const Rect &frame) const
{
    const Size size = clientSizeFor(frame.size());
    const Point origin{std::round(frame.x) - shadow.left, std::round(frame.y) - shadow.top};
    if (publishesDecoration)
        return {origin.x, origin.y, size.width, size.height};
    // A window manager that publishes no extents takes the client's rectangle, border included.
    return {origin.x + decoration.left - border, origin.y + decoration.top - border,
        size.width + 2 * border, size.height + 2 * border};
}

} // namespace corvane::x11
