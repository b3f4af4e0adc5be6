#include "Expectation.h"

#include "Geometry.h"

#include <algorithm>

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
    constexpr quint32 minimumGiven = 1 << 4;
    constexpr quint32 incrementGiven = 1 << 6;
    const QList<quint32> hints = connection.numbers(window, "WM_NORMAL_HINTS");
    const auto size = [&](int index) {
        return Size{
            static_cast<double>(hints.value(index)), static_cast<double>(hints.value(index + 1))};
    };
    SizeLimits limits;
    if (hints.value(0) & incrementGiven)
        limits.increment = size(9);
    desktop::WindowProbe probe(connection);
    const auto frame = probe.visibleFrame(window);
    const auto client = probe.clientGeometry(window);
    if (hints.value(0) & minimumGiven && frame && client) {
        limits.minimum = {size(5).width + frame->width - client->width,
            size(5).height + frame->height - client->height};
    }
    return limits;
}

Expectation::Expectation(QList<Rect> areas) : m_areas(std::move(areas)) { }

void Expectation::setOriginal(Application application, const Rect &frame)
{
    m_originals.insert(application, frame);
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
    const Rect wanted =
        size == asked.size() ? asked : Geometry::anchored(asked, size, areaOf(asked), slack);
    return reached.origin() == wanted.origin()
        && fallsShortByLess(reached.width, wanted.width, limits.increment.width)
        && fallsShortByLess(reached.height, wanted.height, limits.increment.height);
}

const Rect &Expectation::areaOf(const Rect &frame) const
{
    return *std::ranges::max_element(
        m_areas, {}, [&frame](const Rect &area) { return area.intersectionArea(frame); });
}

const Rect &Expectation::neighbour(const Rect &area, int distance) const
{
    const qsizetype count = m_areas.size();
    return m_areas[(m_areas.indexOf(area) + distance + count) % count];
}

Rect Expectation::target(const Step &step, const Rect &current) const
{
    const Rect &area = areaOf(current);
    const auto onDisplay = [&](const Rect &to) {
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
        return onDisplay(neighbour(area, 1));
    case Placement::previousDisplay:
        return onDisplay(neighbour(area, -1));
    default:
        return onDisplay(area);
    }
}

} // namespace corvane::demo
