#include "PlacedStack.h"

#include "Platform.h"

#include <algorithm>

namespace corvane {

void PlacedStack::noteFocus()
{
    m_focusBefore = AXWindow::focused().window;
}

void PlacedStack::add(qsizetype rank, const AXWindow &window)
{
    m_windows.insert(rank, window);
    m_added << rank;
}

void PlacedStack::arrange(const QSet<pid_t> &unanswering)
{
    const QList<qsizetype> added = std::exchange(m_added, {});
    if (added.isEmpty())
        return;
    m_unanswering = unanswering;
    const WindowOperation operation(Platform::current().windows());
    const bool areFirst = added.size() == m_windows.size();
    const bool hasWaited = !areFirst || m_focusBefore;
    const auto focused = hasWaited ? AXWindow::focused().window : std::nullopt;
    const bool hasLeft = isElsewhere(focused);
    m_focusBefore.reset();
    if (areFirst && !hasLeft) {
        for (const AXWindow &window : std::as_const(m_windows))
            bringForward(window);
        return;
    }
    // A window that has just come may have taken the focus by itself.
    const auto isFocused = [&](qsizetype rank) { return m_windows[rank] == focused; };
    if (std::ranges::any_of(added, isFocused) && m_windows.last() != focused)
        bringForward(m_windows.last());
    // Not each under the next one above: some window managers then put it under all windows of that
    // one's application.
    const auto lowest = m_windows.constFind(*std::ranges::min_element(added));
    for (auto each = lowest; each != m_windows.cend(); ++each)
        raise(*each);
    if (hasLeft)
        raise(*focused);
}

/// In a window of none of the layout's applications.
bool PlacedStack::isElsewhere(const std::optional<AXWindow> &focused) const
{
    return focused && focused != m_focusBefore
        && std::ranges::none_of(
            m_windows, [&](const AXWindow &window) { return window.pid == focused->pid; });
}

void PlacedStack::bringForward(const AXWindow &window) const
{
    if (m_unanswering.contains(window.pid) || window.bringToFrontAlone() || !window.isWindow())
        return;
    window.raise();
    window.makeMain();
    AXWindow::bringForward(window.pid);
}

void PlacedStack::raise(const AXWindow &window) const
{
    if (!m_unanswering.contains(window.pid))
        window.raise();
}

} // namespace corvane
