#pragma once

namespace corvane {

struct Point {
    double x = 0;
    double y = 0;

    constexpr bool operator==(const Point &) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    constexpr bool operator==(const Size &) const = default;
};

/// A rectangle in accessibility coordinates: points, origin at the top left of the primary display,
/// y downward. Comparison is exact, which QRectF's is not.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    constexpr double minX() const { return x; }
    constexpr double minY() const { return y; }
    constexpr double maxX() const { return x + width; }
    constexpr double maxY() const { return y + height; }
    constexpr double midX() const { return x + width * 0.5; }
    constexpr double midY() const { return y + height * 0.5; }
    constexpr Point origin() const { return {x, y}; }
    constexpr Size size() const { return {width, height}; }

    constexpr double intersectionArea(const Rect &other) const
    {
        const double w =
            (maxX() < other.maxX() ? maxX() : other.maxX()) - (x > other.x ? x : other.x);
        const double h =
            (maxY() < other.maxY() ? maxY() : other.maxY()) - (y > other.y ? y : other.y);
        return w > 0 && h > 0 ? w * h : 0;
    }

    constexpr bool operator==(const Rect &) const = default;
};

} // namespace corvane
