#include "SimulatedWindow.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

double stepped(double length, double base, double increment)
{
    if (increment <= 1 || length <= base)
        return length;
    return base + std::floor((length - base) / increment) * increment;
}

double limited(double length, double least, double most)
{
    return std::max(least, std::min(length, most));
}

} // namespace

bool SimulatedWindow::isOrdinary() const
{
    return kind != WindowKind::panel && kind != WindowKind::desktop;
}

bool SimulatedWindow::isListed() const
{
    return kind == WindowKind::standard || kind == WindowKind::dialog;
}

bool SimulatedWindow::canHaveFocus() const
{
    return isOrdinary() && kind != WindowKind::splash && !minimised && !onOtherWorkspace;
}

Size SimulatedWindow::constrained(Size size) const
{
    if (fixedSize)
        return frame.size();
    const Size most = maximum.value_or(size);
    return {limited(stepped(size.width, base.width, increment.width), minimum.width, most.width),
        limited(stepped(size.height, base.height, increment.height), minimum.height, most.height)};
}

} // namespace corvane
