#include "Geometry.h"

#include <algorithm>
#include <cmath>

namespace corvane::Geometry {

namespace {

constexpr double nearlyFull = 0.9;
constexpr Size smallest{200, 150};
constexpr double overshootAllowance = 2;

/// Adding zero turns -0 into 0, which reads better in files.
double rounded(double value)
{
    return std::round(value) + 0.0;
}

Rect centeredOn(Point middle, Size size)
{
    return {middle.x - size.width * 0.5, middle.y - size.height * 0.5, size.width, size.height};
}

struct Span {
    double start;
    double length;

    double end() const { return start + length; }
    double middle() const { return start + length * 0.5; }
};

bool isInside(double x, double y, const UnitRect &rect)
{
    return x >= rect.x && x <= rect.x + rect.w && y >= rect.y && y <= rect.y + rect.h;
}

double anchoredStart(Span target, double length, Span area, double slack)
{
    if (target.length + overshootAllowance >= length)
        return target.start;
    const bool startFlush = target.start - area.start <= slack;
    const bool endFlush = area.end() - target.end() <= slack;
    if (startFlush == endFlush)
        return target.middle() - length * 0.5;
    return startFlush ? target.start : target.end() - length;
}

} // namespace

Rect inset(const Rect &rect, double distance)
{
    const double dx = std::min(distance, rect.width * 0.5);
    const double dy = std::min(distance, rect.height * 0.5);
    return {rect.x + dx, rect.y + dy, rect.width - 2 * dx, rect.height - 2 * dy};
}

Rect snapped(const Rect &rect)
{
    const double minX = rounded(rect.minX());
    const double minY = rounded(rect.minY());
    return {minX, minY, rounded(rect.maxX()) - minX, rounded(rect.maxY()) - minY};
}

Rect frame(const UnitRect &unit, const Rect &area, double gap)
{
    const double half = gap * 0.5;
    const Rect inner = inset(area, half);
    const Rect cell{inner.x + unit.x * inner.width, inner.y + unit.y * inner.height,
        unit.w * inner.width, unit.h * inner.height};
    return snapped(inset(cell, half));
}

Rect centered(const Rect &frame, const Rect &area)
{
    const bool fills =
        frame.width >= nearlyFull * area.width && frame.height >= nearlyFull * area.height;
    const Size size = fills
        ? Size{2 * area.width / 3, 2 * area.height / 3}
        : Size{std::min(frame.width, area.width), std::min(frame.height, area.height)};
    return snapped(centeredOn({area.midX(), area.midY()}, size));
}

Rect resized(const Rect &frame, double step, const Rect &area)
{
    const Size size{std::max(std::min(frame.width + step, area.width), smallest.width),
        std::max(std::min(frame.height + step, area.height), smallest.height)};
    return snapped(clamp(centeredOn({frame.midX(), frame.midY()}, size), area));
}

Rect clamp(const Rect &frame, const Rect &area)
{
    Rect inside{std::max(frame.x, area.x), std::max(frame.y, area.y),
        std::min(frame.width, area.width), std::min(frame.height, area.height)};
    if (inside.maxX() > area.maxX())
        inside.x = area.maxX() - inside.width;
    if (inside.maxY() > area.maxY())
        inside.y = area.maxY() - inside.height;
    return inside;
}

Rect translated(const Rect &frame, const Rect &from, const Rect &to)
{
    if (from.width <= 0 || from.height <= 0)
        return snapped(clamp(frame, to));
    const UnitRect share{(frame.x - from.x) / from.width, (frame.y - from.y) / from.height,
        frame.width / from.width, frame.height / from.height};
    const Rect mapped{to.x + share.x * to.width, to.y + share.y * to.height, share.w * to.width,
        share.h * to.height};
    return snapped(clamp(mapped, to));
}

Rect anchored(const Rect &target, const Size &size, const Rect &area, double slack)
{
    const double x =
        anchoredStart({target.x, target.width}, size.width, {area.x, area.width}, slack);
    const double y =
        anchoredStart({target.y, target.height}, size.height, {area.y, area.height}, slack);
    return snapped(clamp({x, y, size.width, size.height}, area));
}

bool fallsShort(const Rect &actual, const Rect &target)
{
    return actual.width < nearlyFull * target.width || actual.height < nearlyFull * target.height;
}

bool approximatelyEqual(const Rect &a, const Rect &b, double tolerance)
{
    return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance
        && std::abs(a.width - b.width) <= tolerance && std::abs(a.height - b.height) <= tolerance;
}

double visibleFraction(const UnitRect &rect, const QList<UnitRect> &others, int samples)
{
    Q_ASSERT(samples > 0);
    if (others.isEmpty())
        return 1;
    int uncovered = 0;
    for (int i = 0; i < samples; ++i) {
        const double x = rect.x + rect.w * (i + 0.5) / samples;
        for (int j = 0; j < samples; ++j) {
            const double y = rect.y + rect.h * (j + 0.5) / samples;
            const bool isCovered = std::ranges::any_of(
                others, [x, y](const UnitRect &other) { return isInside(x, y, other); });
            uncovered += isCovered ? 0 : 1;
        }
    }
    return double(uncovered) / (double(samples) * samples);
}

} // namespace corvane::Geometry
