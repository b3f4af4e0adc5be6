#include "Screens.h"

#include "Platform.h"

#include <algorithm>
#include <cmath>

namespace corvane::Screens {

namespace {

constexpr double sameColumn = 1;

bool standsBefore(const ScreenInfo &a, const ScreenInfo &b)
{
    if (std::abs(a.frame.minX() - b.frame.minX()) > sameColumn)
        return a.frame.minX() < b.frame.minX();
    return a.frame.minY() < b.frame.minY();
}

} // namespace

QList<ScreenInfo> all()
{
    QList<ScreenInfo> screens = Platform::current().displays().all();
    std::ranges::stable_sort(screens, standsBefore);
    return screens;
}

std::optional<ScreenInfo> screenContaining(const Rect &rect)
{
    return screenContaining(rect, all());
}

std::optional<ScreenInfo> screenContaining(const Rect &rect, const QList<ScreenInfo> &screens)
{
    const auto best = std::ranges::max_element(screens, std::less(),
        [&rect](const ScreenInfo &screen) { return screen.frame.intersectionArea(rect); });
    return best == screens.end() ? std::nullopt : std::optional(*best);
}

std::optional<ScreenInfo> next(const ScreenInfo &screen, Direction direction)
{
    return next(screen, direction, all());
}

std::optional<ScreenInfo> next(
    const ScreenInfo &screen, Direction direction, const QList<ScreenInfo> &screens)
{
    const qsizetype index = screens.indexOf(screen);
    const qsizetype count = screens.size();
    if (count < 2 || index < 0)
        return std::nullopt;
    return screens[(index + static_cast<int>(direction) + count) % count];
}

DisplayKey key(const ScreenInfo &screen)
{
    return {screen.name, static_cast<int>(std::lround(screen.frame.width)),
        static_cast<int>(std::lround(screen.frame.height))};
}

QList<DisplayKey> signature()
{
    return signature(all());
}

QList<DisplayKey> signature(const QList<ScreenInfo> &screens)
{
    QList<DisplayKey> keys;
    for (const ScreenInfo &screen : screens)
        keys << key(screen);
    return keys;
}

} // namespace corvane::Screens
