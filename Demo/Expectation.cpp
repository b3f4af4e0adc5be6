#include "Expectation.h"

#include "Geometry.h"

#include <algorithm>
#include <xcb/xcb_icccm.h>

namespace corvane::demo {

namespace {

// The program's own defaults.
constexpr double gap = 0;
constexpr double slack = 6;
constexpr double sizeStep = 60;

bool fallsShortByLess(double reached, double wanted, double cell)
{
    return reached <= wanted && wanted - reached < cell;
}

} // namespace

SizeLimits sizeLimits(desktop::XConnection &connection, xcb_window_t window)
{
    desktop::WindowProbe probe(connection);
    xcb_size_hints_t hints{};
    const auto cookie = xcb_icccm_get_wm_normal_hints(connection.raw(), window);
    const auto frame = probe.visibleFrame(window);
    const auto client = probe.clientGeometry(window);
    SizeLimits limits;
    if (!xcb_icccm_get_wm_normal_hints_reply(connection.raw(), cookie, &hints, nullptr) || !frame
        || !client)
        return limits;
    if (hints.flags & XCB_ICCCM_SIZE_HINT_P_RESIZE_INC)
        limits.increment = {double(hints.width_inc), double(hints.height_inc)};
    if (hints.flags & XCB_ICCCM_SIZE_HINT_P_MIN_SIZE)
        limits.minimum = {hints.min_width + frame->width - client->width,
            hints.min_height + frame->height - client->height};
    return limits;
}

Rect Expectation::ask(const Step &step, const Rect &current)
{
    QList<Rect> &history = m_history[step.application];
    if (step.pressed == Placement::snapBack)
        return history.isEmpty() ? current : history.takeLast();
    history << current;
    return target(step, current);
}

bool Expectation::isLanding(const Rect &reached, const Rect &asked, const SizeLimits &limits) const
{
    const Size size{
        std::max(asked.width, limits.minimum.width), std::max(asked.height, limits.minimum.height)};
    const Rect wanted = size == asked.size()
        ? asked
        : Geometry::anchored(asked, size, m_areas[areaOf(asked)], slack);
    return reached.origin() == wanted.origin()
        && fallsShortByLess(reached.width, wanted.width, limits.increment.width)
        && fallsShortByLess(reached.height, wanted.height, limits.increment.height);
}

qsizetype Expectation::areaOf(const Rect &frame) const
{
    const auto shared = [&frame](const Rect &area) { return area.intersectionArea(frame); };
    return std::ranges::max_element(m_areas, {}, shared) - m_areas.begin();
}

Rect Expectation::target(const Step &step, const Rect &current) const
{
    const qsizetype here = areaOf(current);
    const Rect &area = m_areas[here];
    const auto onDisplay = [&](qsizetype index) {
        const Rect &to = m_areas[(index + m_areas.size()) % m_areas.size()];
        const auto unit = unitRect(step.becomes);
        return unit ? Geometry::frame(*unit, to, gap) : Geometry::translated(current, area, to);
    };
    switch (step.pressed) {
    case Placement::center:
        return Geometry::centered(current, area);
    case Placement::larger:
        return Geometry::resized(current, sizeStep, area);
    case Placement::smaller:
        return Geometry::resized(current, -sizeStep, area);
    case Placement::original:
        return m_originals.value(step.application);
    case Placement::nextDisplay:
        return onDisplay(here + 1);
    case Placement::previousDisplay:
        return onDisplay(here - 1);
    default:
        return onDisplay(here);
    }
}

} // namespace corvane::demo
