#include "PlacedStack.h"

#include "Platform.h"

#include <algorithm>
#include <ranges>

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
    QList<qsizetype> added = std::exchange(m_added, {});
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
    std::ranges::sort(added, std::greater());
    for (const qsizetype rank : std::as_const(added))
        join(rank, !hasLeft);
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

void PlacedStack::join(qsizetype rank, bool mayCoverOthers) const
{
    const auto window = m_windows.find(rank);
    const auto above = std::next(window);
    if (m_unanswering.contains(window->pid)
        || (above != m_windows.cend() && window->stackBelow(*above)) || !mayCoverOthers)
        return;
    for (auto each = window; each != m_windows.cend(); ++each) {
        if (!m_unanswering.contains(each->pid))
            each->raise();
    }
}

} // namespace corvane
