#include "Geometry.h"
#include "LayoutDesk.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Whole points, inside what is visible of one display and no nearer to its edges than the gap.
Rect anyFrame(LayoutDesk &desk)
{
    const QList<ScreenInfo> screens = desk.desktop.screens();
    const Rect area = Geometry::inset(
        screens[*rc::gen::inRange(0, int(screens.size()))].visibleFrame, desk.engine.gap);
    const int width = *rc::gen::inRange(100, int(area.width) + 1);
    const int height = *rc::gen::inRange(80, int(area.height) + 1);
    return {area.x + *rc::gen::inRange(0, int(area.width) - width + 1),
        area.y + *rc::gen::inRange(0, int(area.height) - height + 1), double(width),
        double(height)};
}

/// Windows of three apps, each with a title of its own, none part of another's.
std::vector<AXWindow> furnish(LayoutDesk &desk)
{
    desk.plugMonitor();
    const std::vector<pid_t> pids{desk.editor, desk.desktop.start(u"org.example.B"_s, u"B"_s),
        desk.desktop.start(u"org.example.C"_s, u"C"_s)};
    std::vector<AXWindow> windows;
    for (int i = *rc::gen::inRange(1, 9); i > 0; --i) {
        windows.push_back(desk.openFrom(
            *rc::gen::elementOf(pids), {.title = u"Window %1"_s.arg(i), .frame = anyFrame(desk)}));
    }
    return windows;
}

/// Front to back, of those that the engine has placed.
QList<AXWindow> stackOf(LayoutDesk &desk, pid_t pid, const QList<WindowElement> &stack)
{
    QList<AXWindow> windows;
    for (const WindowElement &element : stack) {
        const AXWindow window{element, desk.desktop.window(element).pid};
        if (window.pid == pid && desk.placed.contains(window))
            windows << window;
    }
    return windows;
}

} // namespace

/// Windows that are mostly hidden are not captured, and not placed.
RC_GTEST_PROP(LayoutEnginePropertyTests, aDeskComesBackWhetherScatteredOrLeftAlone, ())
{
    LayoutDesk desk;
    desk.engine.gap = *rc::gen::element(0, 0, 12);
    const std::vector<AXWindow> windows = furnish(desk);
    const QList<WindowElement> stack = desk.desktop.stack();
    QHash<AXWindow, Rect> frames;
    for (const AXWindow &window : windows)
        frames.insert(window, desk.frameOf(window));

    const WindowLayout layout = desk.engine.capture(u"Desk"_s);
    for (int i = *rc::gen::inRange(0, 12); i > 0; --i) {
        desk.drag(*rc::gen::elementOf(windows), anyFrame(desk));
        desk.desktop.raise((*rc::gen::elementOf(windows)).element);
    }
    const auto results = desk.apply(layout);

    RC_ASSERT(desk.applied == Clock::Duration(0));
    RC_ASSERT(!desk.placed.isEmpty() && desk.placed.size() == layout.panes.size());
    for (const AXWindow &window : desk.placed) {
        RC_ASSERT(desk.frameOf(window) == frames[window]);
        RC_ASSERT(
            stackOf(desk, window.pid, desk.desktop.stack()) == stackOf(desk, window.pid, stack));
    }
    RC_ASSERT(desk.desktop.focused() == desk.placed.last().element);
}

} // namespace corvane
