#include "Toplevel.h"

#include <algorithm>
#include <cmath>

namespace corvane::wayland {

namespace {

double within(double asked, double least, double most)
{
    return std::max(most > 0 ? std::min(asked, most) : asked, least);
}

/// The largest length up to this one that lies whole steps from the present, but not below the least.
double stepped(double asked, double present, double step, double least)
{
    if (step <= 0)
        return asked;
    const double most = present + std::floor((asked - present) / step) * step;
    return most < least ? most + std::ceil((least - most) / step) * step : most;
}

} // namespace

Size Toplevel::sizeFor(Size asked) const
{
    if (!resizable)
        return frame.size();
    const Size most{within(asked.width, minimum.width, maximum.width),
        within(asked.height, minimum.height, maximum.height)};
    return {stepped(most.width, frame.width, increment.width, minimum.width),
        stepped(most.height, frame.height, increment.height, minimum.height)};
}

const Toplevel *Desk::find(const WindowElement &window) const
{
    const auto found = std::ranges::find(windows, window, &Toplevel::element);
    return found == windows.end() ? nullptr : &*found;
}

} // namespace corvane::wayland
