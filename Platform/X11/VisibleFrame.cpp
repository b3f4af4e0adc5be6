#include "VisibleFrame.h"

#include <algorithm>

namespace corvane::x11 {

namespace {

struct Sides {
    double left;
    double top;
    double right;
    double bottom;
};

void reserve(Sides &visible, const Rect &display, const Strut &strut, Size desk)
{
    const bool isUpright = strut.edge == Strut::Edge::left || strut.edge == Strut::Edge::right;
    const double from = isUpright ? display.minY() : display.minX();
    const double to = isUpright ? display.maxY() : display.maxX();
    if (strut.end < from || strut.start >= to)
        return;

    const auto insideX = [&](double x) { return x > display.minX() && x < display.maxX(); };
    const auto insideY = [&](double y) { return y > display.minY() && y < display.maxY(); };
    switch (strut.edge) {
    case Strut::Edge::left:
        if (insideX(strut.depth))
            visible.left = std::max(visible.left, strut.depth);
        break;
    case Strut::Edge::right:
        if (const double x = desk.width - strut.depth; insideX(x))
            visible.right = std::min(visible.right, x);
        break;
    case Strut::Edge::top:
        if (insideY(strut.depth))
            visible.top = std::max(visible.top, strut.depth);
        break;
    case Strut::Edge::bottom:
        if (const double y = desk.height - strut.depth; insideY(y))
            visible.bottom = std::min(visible.bottom, y);
        break;
    }
}

} // namespace

Rect withoutStruts(const Rect &display, const QList<Strut> &struts, Size desk)
{
    Sides visible{display.minX(), display.minY(), display.maxX(), display.maxY()};
    for (const Strut &strut : struts)
        reserve(visible, display, strut, desk);
    // Panels that leave nothing between them cannot all be believed.
    if (visible.right - visible.left < 1 || visible.bottom - visible.top < 1)
        return display;
    return {visible.left, visible.top, visible.right - visible.left, visible.bottom - visible.top};
}

Rect withoutPanel(const Rect &display, const Rect &visible, const Rect &panel)
{
    if (display.intersectionArea(panel) < panel.width * panel.height)
        return visible;
    Sides sides{visible.minX(), visible.minY(), visible.maxX(), visible.maxY()};
    if (panel.width >= panel.height && panel.maxY() == display.maxY())
        sides.bottom = std::min(sides.bottom, panel.minY());
    else if (panel.width >= panel.height && panel.minY() == display.minY())
        sides.top = std::max(sides.top, panel.maxY());
    else if (panel.maxX() == display.maxX())
        sides.right = std::min(sides.right, panel.minX());
    else if (panel.minX() == display.minX())
        sides.left = std::max(sides.left, panel.maxX());
    return {sides.left, sides.top, sides.right - sides.left, sides.bottom - sides.top};
}

} // namespace corvane::x11
