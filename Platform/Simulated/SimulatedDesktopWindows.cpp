#include "SimulatedDesktop.h"

#include <algorithm>

namespace corvane {

WindowElement SimulatedDesktop::openWindow(pid_t pid, const WindowSpec &spec)
{
    SimulatedWindow window{spec};
    window.number = spec.number == 0 ? m_lastNumber + 1 : spec.number;
    Q_ASSERT(!m_windows.contains(window.number));
    m_lastNumber = std::max(m_lastNumber, window.number);
    window.element = {window.number, ++m_generations[window.number]};
    window.pid = pid;
    window.unmaximised = spec.frame;
    if (spec.fullScreen)
        window.frame = screenOf(spec.frame).frame;
    else if (spec.maximised)
        window.frame = screenOf(spec.frame).visibleFrame;

    m_windows.emplace(window.number, window);
    if (window.kind == WindowKind::desktop)
        m_stack.append(window.number);
    else
        m_stack.prepend(window.number);
    tellShown(application(pid), window);
    m_notices.post([this, element = window.element, pid] { Q_EMIT windowOpened(element, pid); });
    if (window.takesFocus && window.canHaveFocus())
        focus(window.element);
    return window.element;
}

void SimulatedDesktop::closeWindow(const WindowElement &element)
{
    SimulatedApplication &owner = application(window(element).pid);
    if (owner.mainWindow == element)
        owner.mainWindow.reset();
    m_windows.erase(element.number);
    m_stack.removeOne(element.number);
    m_notices.post([this, element] { Q_EMIT windowClosed(element); });
    if (m_focused == element)
        passFocusOn();
}

SimulatedWindow &SimulatedDesktop::window(const WindowElement &element)
{
    SimulatedWindow *found = findWindow(element);
    Q_ASSERT(found);
    return *found;
}

SimulatedWindow *SimulatedDesktop::findWindow(const WindowElement &element)
{
    const auto found = m_windows.find(element.number);
    return found == m_windows.end() || found->second.element != element ? nullptr : &found->second;
}

QList<WindowElement> SimulatedDesktop::stack() const
{
    QList<WindowElement> elements;
    for (const quint64 number : m_stack)
        elements << m_windows.at(number).element;
    return elements;
}

void SimulatedDesktop::raise(const WindowElement &element)
{
    Q_ASSERT(findWindow(element));
    m_stack.move(m_stack.indexOf(element.number), 0);
}

void SimulatedDesktop::raiseApplication(pid_t pid)
{
    std::ranges::stable_partition(
        m_stack, [&](quint64 number) { return m_windows.at(number).pid == pid; });
}

void SimulatedDesktop::focus(const WindowElement &element)
{
    m_focused = element;
    application(window(element).pid).mainWindow = element;
}

void SimulatedDesktop::focusNothing()
{
    m_focused.reset();
}

std::optional<WindowElement> SimulatedDesktop::focused() const
{
    return m_focused;
}

void SimulatedDesktop::minimise(const WindowElement &element)
{
    window(element).minimised = true;
    if (m_focused == element)
        passFocusOn();
}

void SimulatedDesktop::maximise(const WindowElement &element)
{
    SimulatedWindow &there = window(element);
    there.maximised = true;
    there.unmaximised = std::exchange(there.frame, screenOf(there.frame).visibleFrame);
}

void SimulatedDesktop::moveWindow(SimulatedWindow &window, Point origin)
{
    endMaximised(window);
    const Point miss = std::exchange(window.landsOff, Point{});
    window.frame.x = origin.x + miss.x;
    window.frame.y = origin.y + miss.y;
}

void SimulatedDesktop::restoreWindow(
    SimulatedWindow &window, const Rect &frame, const std::optional<WindowState> &state)
{
    window.maximised = false;
    window.frame = state ? state->normalFrame : frame;
    if (state)
        maximise(window.element);
}

void SimulatedDesktop::resizeWindow(SimulatedWindow &window, Size size)
{
    endMaximised(window);
    if (fitsSizesToDisplay) {
        const Rect area = screenOf(window.frame).visibleFrame;
        size.width = std::min(size.width, area.maxX() - window.frame.x);
        size.height = std::min(size.height, area.maxY() - window.frame.y);
    }
    const auto take = [this, element = window.element, size] {
        // A window that was maximised since then has the size of its display.
        if (SimulatedWindow *there = findWindow(element); there && !there->maximised) {
            const Size taken = there->constrained(size);
            there->frame.width = taken.width;
            there->frame.height = taken.height;
        }
    };
    if (window.resizesAfter.count() > 0)
        schedule(window.resizesAfter, take);
    else
        take();
}

void SimulatedDesktop::endMaximised(SimulatedWindow &window)
{
    if (!std::exchange(window.maximised, false))
        return;
    window.frame = window.unmaximised;
    window.endedState = WindowState{.maximizedHorizontally = true,
        .maximizedVertically = true,
        .normalFrame = window.unmaximised};
}

void SimulatedDesktop::passFocusOn()
{
    m_focused.reset();
    for (const WindowElement &element : stack())
        if (window(element).canHaveFocus())
            return focus(element);
}

} // namespace corvane
