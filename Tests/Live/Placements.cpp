#include "Placements.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane::desktop {

namespace {

constexpr double third = 1.0 / 3.0;

using namespace strokes;

constexpr std::array table{
    Region{u"leftHalf", {0, 0, 0.5, 1}, {hyper, Key::left}},
    Region{u"rightHalf", {0.5, 0, 0.5, 1}, {hyper, Key::right}},
    Region{u"topHalf", {0, 0, 1, 0.5}, {hyper, Key::up}},
    Region{u"bottomHalf", {0, 0.5, 1, 0.5}, {hyper, Key::down}},
    Region{u"topLeft", {0, 0, 0.5, 0.5}, {shifted, Key::left}},
    Region{u"topRight", {0.5, 0, 0.5, 0.5}, {shifted, Key::up}},
    Region{u"bottomLeft", {0, 0.5, 0.5, 0.5}, {shifted, Key::down}},
    Region{u"bottomRight", {0.5, 0.5, 0.5, 0.5}, {shifted, Key::right}},
    Region{u"leftThird", {0, 0, third, 1}, {plain, Key::d}},
    Region{u"centerThird", {third, 0, third, 1}, {plain, Key::f}},
    Region{u"rightThird", {2 * third, 0, third, 1}, {plain, Key::g}},
    Region{u"leftTwoThirds", {0, 0, 2 * third, 1}, {plain, Key::e}},
    Region{u"rightTwoThirds", {third, 0, 2 * third, 1}, {plain, Key::t}},
    Region{u"topLeftSixth", {0, 0, third, 0.5}},
    Region{u"topCenterSixth", {third, 0, third, 0.5}},
    Region{u"topRightSixth", {2 * third, 0, third, 0.5}},
    Region{u"bottomLeftSixth", {0, 0.5, third, 0.5}},
    Region{u"bottomCenterSixth", {third, 0.5, third, 0.5}},
    Region{u"bottomRightSixth", {2 * third, 0.5, third, 0.5}},
    Region{u"maximize", {0, 0, 1, 1}, {hyper, Key::m}},
    Region{u"almostMaximize", {0.05, 0.05, 0.9, 0.9}},
};

Rect withRoundedEdges(const Rect &rect)
{
    const double x = std::round(rect.x);
    const double y = std::round(rect.y);
    return {x, y, std::round(rect.maxX()) - x, std::round(rect.maxY()) - y};
}

} // namespace

std::span<const Region> regions()
{
    return table;
}

const Region &region(QStringView placement)
{
    return *std::ranges::find(table, placement, &Region::placement);
}

Rect frameOf(const Region &region, const Rect &area)
{
    const Rect &unit = region.unit;
    return withRoundedEdges({area.x + unit.x * area.width, area.y + unit.y * area.height,
        unit.width * area.width, unit.height * area.height});
}

Rect centredIn(const Rect &area, const Rect &frame)
{
    return withRoundedEdges(
        {area.midX() - frame.width / 2, area.midY() - frame.height / 2, frame.width, frame.height});
}

Rect grownIn(const Rect &area, const Rect &frame, double pixels)
{
    const double width = std::min(frame.width + pixels, area.width);
    const double height = std::min(frame.height + pixels, area.height);
    return withRoundedEdges({std::clamp(frame.midX() - width / 2, area.x, area.maxX() - width),
        std::clamp(frame.midY() - height / 2, area.y, area.maxY() - height), width, height});
}

} // namespace corvane::desktop
