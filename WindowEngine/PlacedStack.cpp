#include "PlacedStack.h"

#include "Platform.h"

#include <algorithm>

namespace corvane {

using namespace std::chrono_literals;

namespace {

// Window managers give a new window the focus within this time, if they do.
constexpr Clock::Duration focusesWithin = 500ms;

} // namespace

void PlacedStack::rememberFocus()
{
    m_focusBefore = AXWindow::focused().window;
}

void PlacedStack::add(qsizetype rank, const AXWindow &window)
{
    m_windows.insert(rank, window);
    m_added << rank;
}

void PlacedStack::remove(qsizetype rank)
{
    m_windows.remove(rank);
    m_late.removeAll(rank);
    if (m_windows.isEmpty())
        rememberFocus();
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
    if (areFirst && !isElsewhere(focused)) {
        for (const AXWindow &window : std::as_const(m_windows))
            bringForward(window);
    } else {
        m_late = added;
        m_lateUntil = Platform::current().clock().now() + focusesWithin;
        join(focused);
    }
    m_focusBefore.reset();
}

void PlacedStack::returnFocus(bool isButtonDown)
{
    if (m_late.isEmpty())
        return;
    if (isButtonDown || Platform::current().clock().now() > m_lateUntil)
        return m_late.clear();
    const WindowOperation operation(Platform::current().windows());
    if (const auto focused = AXWindow::focused().window; isTakenByLate(focused))
        join(focused);
}

/// In a window of none of the layout's applications.
bool PlacedStack::isElsewhere(const std::optional<AXWindow> &focused) const
{
    return focused && focused != m_focusBefore
        && std::ranges::none_of(
            m_windows, [&](const AXWindow &window) { return window.pid == focused->pid; });
}

bool PlacedStack::isTakenByLate(const std::optional<AXWindow> &focused) const
{
    return m_windows.last() != focused
        && std::ranges::any_of(m_late, [&](qsizetype rank) { return m_windows[rank] == focused; });
}

/// Puts the late windows where they belong.
void PlacedStack::join(const std::optional<AXWindow> &focused) const
{
    if (isTakenByLate(focused))
        bringForward(m_windows.last());
    // Not each under the next one above: some window managers then put it under all windows of that
    // one's application.
    const auto lowest = m_windows.constFind(*std::ranges::min_element(m_late));
    for (auto each = lowest; each != m_windows.cend(); ++each)
        raise(*each);
    if (isElsewhere(focused))
        raise(*focused);
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
