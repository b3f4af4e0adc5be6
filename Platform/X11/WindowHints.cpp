#include "WindowHints.h"

#include <algorithm>
#include <cmath>

namespace corvane::x11 {

namespace {

constexpr double largestSide = 32767; // the protocol's sizes are 16 bits wide

enum Flag : quint32 {
    minimumSize = 1 << 4,
    maximumSize = 1 << 5,
    resizeIncrement = 1 << 6,
    aspect = 1 << 7,
    baseSize = 1 << 8,
};

Size proportion(quint32 width, quint32 height)
{
    constexpr quint32 largest = 0x7fffffff;
    const bool valid = width > 0 && height > 0 && width <= largest && height <= largest;
    return valid ? Size{double(width), double(height)} : Size{};
}

double stepped(double asked, double base, double increment)
{
    return asked <= base ? asked : base + std::floor((asked - base) / increment) * increment;
}

} // namespace

WindowHints WindowHints::fromProperty(std::span<const quint32> values)
{
    WindowHints hints;
    if (values.size() < 15)
        return hints;
    const quint32 flags = values[0];
    const auto pair = [&](size_t index, Size fallback, double least) {
        const auto width = static_cast<qint32>(values[index]);
        const auto height = static_cast<qint32>(values[index + 1]);
        return Size{width >= least && width <= largestSide ? width : fallback.width,
            height >= least && height <= largestSide ? height : fallback.height};
    };

    const bool hasBase = (flags & baseSize) && values.size() >= 17;
    if (flags & minimumSize)
        hints.minimum = pair(5, hints.minimum, 1);
    else if (hasBase)
        hints.minimum = pair(15, hints.minimum, 1);
    if (flags & maximumSize)
        hints.maximum = pair(7, hints.maximum, 1);
    if (flags & resizeIncrement)
        hints.increment = pair(9, hints.increment, 1);
    if (hasBase)
        hints.base = pair(15, hints.base, 0);
    else if (flags & minimumSize)
        hints.base = hints.minimum;
    if (flags & aspect) {
        hints.leastAspect = proportion(values[11], values[12]);
        hints.mostAspect = proportion(values[13], values[14]);
    }
    hints.maximum.width = std::max(hints.maximum.width, hints.minimum.width);
    hints.maximum.height = std::max(hints.maximum.height, hints.minimum.height);
    return hints;
}

Size WindowHints::constrained(Size asked) const
{
    Size size{std::clamp(asked.width, minimum.width, maximum.width),
        std::clamp(asked.height, minimum.height, maximum.height)};

    // A proportion holds for what exceeds the base size.
    const Size over{size.width - base.width, size.height - base.height};
    if (mostAspect.height > 0 && over.height > 0
        && over.width * mostAspect.height > over.height * mostAspect.width) {
        size.width = base.width + std::floor(over.height * mostAspect.width / mostAspect.height);
    } else if (leastAspect.height > 0 && over.width > 0
        && over.width * leastAspect.height < over.height * leastAspect.width) {
        size.height = base.height + std::floor(over.width * leastAspect.height / leastAspect.width);
    }

    size = {stepped(size.width, base.width, increment.width),
        stepped(size.height, base.height, increment.height)};
    return {std::max(size.width, minimum.width), std::max(size.height, minimum.height)};
}

} // namespace corvane::x11
