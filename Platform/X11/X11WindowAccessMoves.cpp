#include "ActiveWindow.h"
#include "X11WindowAccess.h"

#include <algorithm>
#include <tuple>

namespace corvane::x11 {

AXError X11WindowAccess::setPosition(const WindowElement &window, Point origin)
{
    if (const AXError error = access(window); error != AXError::success)
        return error;
    // The held size goes out with the position, in one request.
    std::optional<Size> size;
    if (m_pendingSize && m_pendingSize->window == window) {
        size = m_pendingSize->size;
        m_pendingSize.reset();
    }
    const auto before = snapshotOf(window);
    if (!before)
        return before.error();
    const Size wanted = size.value_or(before->frame().size());
    return place(window, *before, {origin.x, origin.y, wanted.width, wanted.height});
}

AXError X11WindowAccess::setSize(const WindowElement &window, Size size)
{
    if (const AXError error = access(window); error != AXError::success)
        return error;
    if (m_pendingSize && m_pendingSize->window != window)
        std::ignore = flushSize();
    m_pendingSize = PendingSize{window, size};
    return m_operations > 0 ? AXError::success : flushSize();
}

bool X11WindowAccess::isFinal(const WindowElement &window, Size size)
{
    const auto snapshot = snapshotOf(window);
    return snapshot && snapshot->client.size() == snapshot->clientSizeFor(size);
}

QString X11WindowAccess::refusalDetail(const WindowElement &)
{
    return m_refusalDetail;
}

std::optional<WindowState> X11WindowAccess::endedState(const WindowElement &window) const
{
    const auto ended = m_endedStates.constFind(window);
    return ended == m_endedStates.cend() ? std::nullopt : std::optional(*ended);
}

AXError X11WindowAccess::restore(
    const WindowElement &window, const Rect &frame, const std::optional<WindowState> &state)
{
    const auto before = snapshotOf(window);
    if (!before)
        return before.error();
    m_snapshots.remove(window);
    const xcb_window_t number = numberOf(window);
    return rememberPlaced(window, m_placer.restore(number, *before, frame, state));
}

void X11WindowAccess::raise(const WindowElement &window)
{
    if (access(window) != AXError::success)
        return;
    sendRaise(window);
    xcb_flush(m_connection.xcb());
}

void X11WindowAccess::sendRaise(const WindowElement &window)
{
    constexpr quint32 above = XCB_STACK_MODE_ABOVE;
    const xcb_window_t number = numberOf(window);
    if (m_windowManager.supports(Atom::netRestackWindow))
        m_connection.sendToRoot(number, Atom::netRestackWindow, {fromPager, noWindow, above, 0, 0});
    else
        xcb_configure_window(m_connection.xcb(), number, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

void X11WindowAccess::makeMain(const WindowElement &window)
{
    bringToFrontAlone(window);
}

void X11WindowAccess::bringForward(pid_t pid)
{
    const auto stack = m_registry.frontToBack();
    const auto frontmost = std::ranges::find_if(stack, [&](xcb_window_t window) {
        const auto known = m_registry.known().constFind(window);
        return known != m_registry.known().cend() && known->pid == pid;
    });
    if (frontmost == stack.end())
        return;
    if (const auto element = m_registry.element(*frontmost))
        bringToFrontAlone(*element);
}

bool X11WindowAccess::bringToFrontAlone(const WindowElement &window)
{
    if (!isTrusted() || !m_registry.find(window))
        return false;
    if (m_operations > 0)
        m_toBeFocused = window;
    // Window managers take three times as long to give the focus as to raise.
    if (m_operations > 0 && m_windowManager.supports(Atom::netRestackWindow)) {
        sendRaise(window);
        return true;
    }
    sendActivate(window);
    xcb_flush(m_connection.xcb());
    return true;
}

void X11WindowAccess::sendActivate(const WindowElement &window)
{
    // xfwm4, which cannot restack, ignores an activation until it has heard of the focus that the one
    // before it gave. Inside an operation only the last one counts, and comes with its end.
    constexpr std::chrono::milliseconds heardWithin{250};
    if (m_operations == 0 && !m_windowManager.supports(Atom::netRestackWindow))
        std::ignore =
            m_windowManager.fence(numberOf(window), Connection::Clock::now() + heardWithin);
    requestActivation(m_connection, numberOf(window));
    Q_EMIT m_registry.activating(numberOf(window));
}

void X11WindowAccess::moveAhead(const QList<WindowMove> &moves)
{
    Q_ASSERT(m_operations > 0);
    QList<WindowElement> moved;
    for (const WindowMove &move : moves) {
        const auto before = snapshotOf(move.window);
        const xcb_window_t number = numberOf(move.window);
        if (!before || !m_placer.sendAhead(number, *before, move.frame))
            continue;
        m_snapshots.remove(move.window);
        moved << move.window;
    }
    if (!moved.isEmpty()
        && m_windowManager.fence(
            numberOf(moved.last()), Connection::Clock::now() + m_connection.messagingTimeout()))
        readAgain(moved);
}

/// Reads windows that our own moves have just changed.
void X11WindowAccess::readAgain(const QList<WindowElement> &windows)
{
    QList<std::pair<WindowElement, SnapshotRequest>> requests;
    for (const WindowElement &window : windows)
        requests.emplace_back(window, requestSnapshot(m_connection, numberOf(window)));
    for (const auto &[window, request] : std::as_const(requests)) {
        const auto now =
            remember(window, readSnapshot(m_connection, request, m_windowManager.tilesWindows()));
        if (now)
            learnFullScreen(window, now->fullScreen);
    }
}

/// Remembers whether our own move has made the window full screen: some window managers do so with
/// an undecorated one that fills a display. Its next full screen may be its user's wish.
void X11WindowAccess::learnFullScreen(const WindowElement &window, bool fullScreen)
{
    if (fullScreen)
        m_filledByUs.insert(window);
    else
        m_filledByUs.remove(window);
}

AXError X11WindowAccess::flushSize()
{
    const auto pending = std::exchange(m_pendingSize, std::nullopt);
    if (!pending)
        return AXError::success;
    const auto before = snapshotOf(pending->window);
    if (!before)
        return before.error();
    const Rect current = before->frame();
    return place(pending->window, *before,
        {current.x, current.y, pending->size.width, pending->size.height});
}

AXError X11WindowAccess::place(
    const WindowElement &window, const WindowSnapshot &before, const Rect &frame)
{
    m_snapshots.remove(window);
    const auto after = m_placer.place(numberOf(window), before, frame);
    const std::optional<Rect> normalFrame = m_placer.normalFrame();
    const bool hadState = before.isMaximized() || before.fullScreen;
    if (hadState && normalFrame && m_operations > 0 && !m_endedStates.contains(window))
        m_endedStates.insert(window,
            {before.maximizedHorizontally, before.maximizedVertically, before.fullScreen,
                *normalFrame});
    return rememberPlaced(window, after);
}

AXError X11WindowAccess::rememberPlaced(
    const WindowElement &window, const expected<WindowSnapshot, AXError> &after)
{
    m_refusalDetail = m_placer.refusalDetail();
    if (!after)
        return after.error();
    learnFullScreen(window, after->fullScreen);
    std::ignore = remember(window, after);
    return AXError::success;
}

} // namespace corvane::x11
