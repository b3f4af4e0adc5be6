#include "Desk.h"

namespace corvane {

using namespace Qt::StringLiterals;

Desk::Desk()
{
    laptopID = desktop.plug(
        {.frame = laptop, .name = u"Laptop"_s, .panels = {{SimulatedPanel::Edge::top, 25}}});
    editor = desktop.start(u"org.example.Editor"_s, u"Editor"_s);
}

quint32 Desk::plugMonitor()
{
    return desktop.plug({.frame = monitor, .name = u"Monitor"_s});
}

AXWindow Desk::open(const WindowSpec &wanted)
{
    return openFrom(editor, wanted);
}

AXWindow Desk::openFrom(pid_t pid, const WindowSpec &wanted)
{
    return {desktop.openWindow(pid, wanted), pid};
}

void Desk::drag(const AXWindow &window, const Rect &frame)
{
    desktop.moveWindow(simulated(window), frame.origin());
    desktop.resizeWindow(simulated(window), frame.size());
}

Rect Desk::frameOf(const AXWindow &window)
{
    return simulated(window).frame;
}

SimulatedWindow &Desk::simulated(const AXWindow &window)
{
    return desktop.window(window.element);
}

std::ostream &operator<<(std::ostream &out, const Rect &rect)
{
    return out << '(' << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height
               << ')';
}

std::ostream &operator<<(std::ostream &out, Placement placement)
{
    return out << rawValue(placement).data();
}

std::ostream &operator<<(std::ostream &out, const MoveOutcome &outcome)
{
    return out << qPrintable(outcomeName(outcome)) << ": "
               << qPrintable(refusalText(outcome, std::nullopt));
}

} // namespace corvane
