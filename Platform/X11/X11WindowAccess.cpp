#include "X11WindowAccess.h"

#include "Properties.h"
#include "WindowTitle.h"
#include "WorkspaceReader.h"

#include <algorithm>
#include <tuple>

namespace corvane::x11 {

using namespace Qt::StringLiterals;

namespace {

bool canBePlaced(const WindowSnapshot &window)
{
    return window.kind != WindowKind::panel && window.kind != WindowKind::desktop;
}

} // namespace

X11WindowAccess::X11WindowAccess(Connection &connection, WindowManagerLink &windowManager,
    WindowRegistry &registry, const QString &obstacle)
    : m_connection(connection)
    , m_windowManager(windowManager)
    , m_registry(registry)
    , m_placer(connection, windowManager)
    , m_obstacle(obstacle)
    , m_wasTrusted(obstacle.isEmpty() && windowManager.isPresent())
{
    m_connection.addSink(this);
    connect(&registry, &WindowRegistry::appeared, this, &X11WindowAccess::announce);
    connect(&registry, &WindowRegistry::destroyed, this, &X11WindowAccess::forget);
    connect(&windowManager, &WindowManagerLink::changed, this, &X11WindowAccess::reviewTrust);
}

X11WindowAccess::~X11WindowAccess()
{
    m_connection.removeSink(this);
}

bool X11WindowAccess::isTrusted()
{
    m_connection.drain();
    return m_obstacle.isEmpty() && m_windowManager.isPresent();
}

QString X11WindowAccess::distrustReason()
{
    if (isTrusted())
        return {};
    if (!m_obstacle.isEmpty())
        return m_obstacle;
    return tr("No window manager that moves windows for other programs is running.");
}

void X11WindowAccess::setMessagingTimeout(double seconds)
{
    m_connection.setMessagingTimeout(std::chrono::duration_cast<Connection::Clock::duration>(
        std::chrono::duration<double>(seconds)));
}

WindowAccess::Focused X11WindowAccess::focusedWindow()
{
    if (!isTrusted())
        return {{}, 0, AXError::apiDisabled};
    // The window that had the focus last is asked about in the same breath: mostly it still has.
    const auto activeCookie =
        requestProperty(m_connection, m_connection.root(), Atom::netActiveWindow);
    const auto guess = requestSnapshot(m_connection, m_lastFocused);
    const auto active = propertyReply(m_connection, activeCookie);
    if (!active) {
        discardSnapshot(m_connection, guess);
        return {{}, 0, active.error()};
    }
    const auto values = values32(active);
    const xcb_window_t window = values.empty() ? noWindow : values[0];
    const Answers answers(m_connection);
    const auto element = window == noWindow ? std::nullopt : m_registry.element(window);
    if (!element) {
        discardSnapshot(m_connection, guess);
        return {{}, 0, answers.complete() ? AXError::success : AXError::cannotComplete};
    }
    const pid_t pid = m_registry.find(*element)->pid;
    expected<WindowSnapshot, AXError> snapshot;
    if (window == m_lastFocused) {
        snapshot = readSnapshot(m_connection, guess, m_windowManager.tilesWindows());
        std::ignore = remember(*element, snapshot);
    } else {
        discardSnapshot(m_connection, guess);
        snapshot = snapshotOf(*element);
    }
    m_lastFocused = window;
    if (!snapshot)
        return {{}, pid, snapshot.error()};
    if (!canBePlaced(*snapshot) || snapshot->hidden)
        return {{}, pid};
    return {element, pid};
}

expected<QList<WindowElement>, AXError> X11WindowAccess::windows(pid_t pid)
{
    QList<WindowElement> elements;
    if (!isTrusted())
        return elements;
    if (const auto known = m_windows.constFind(pid); known != m_windows.cend())
        return *known;
    // A server that does not answer is no fault of the application: who waits for a window asks again.
    const auto workspace = readWorkspace(m_connection, m_registry, m_windowManager, {pid})
                               .value_or(QList<SeenWindow>());
    for (const SeenWindow &seen : workspace) {
        std::ignore = remember(seen.element, seen.snapshot);
        elements << seen.element;
    }
    return elements;
}

QList<OnScreenWindow> X11WindowAccess::onScreenWindows()
{
    if (!isTrusted())
        return {};
    QList<OnScreenWindow> windows;
    const auto workspace =
        readWorkspace(m_connection, m_registry, m_windowManager).value_or(QList<SeenWindow>());
    for (const SeenWindow &seen : workspace) {
        std::ignore = remember(seen.element, seen.snapshot);
        // Some window managers keep minimised windows mapped, others tell of them only by unmapping.
        const bool canBeSeen = seen.snapshot.viewable && !seen.snapshot.hidden;
        if (canBeSeen && seen.snapshot.kind != WindowKind::desktop)
            windows << OnScreenWindow{seen.pid, seen.snapshot.frame()};
    }
    return windows;
}

template <typename Value, typename Function>
expected<Value, AXError> X11WindowAccess::read(const WindowElement &window, Function value)
{
    const auto snapshot = snapshotOf(window);
    if (!snapshot)
        return unexpected<AXError>(snapshot.error());
    return value(*snapshot);
}

expected<Rect, AXError> X11WindowAccess::frame(const WindowElement &window)
{
    return read<Rect>(window, [](const WindowSnapshot &snapshot) { return snapshot.frame(); });
}

expected<QString, AXError> X11WindowAccess::title(const WindowElement &window)
{
    if (const AXError error = access(window); error != AXError::success)
        return unexpected<AXError>(error);
    if (const auto known = m_titles.constFind(window); known != m_titles.cend())
        return *known;
    return readTitle(
        m_connection, requestTitle(m_connection, static_cast<xcb_window_t>(window.number)));
}

expected<bool, AXError> X11WindowAccess::isFullScreen(const WindowElement &window)
{
    return read<bool>(window, [&](const WindowSnapshot &snapshot) {
        if (!snapshot.fullScreen)
            m_filledByUs.remove(window);
        return snapshot.fullScreen && !m_filledByUs.contains(window);
    });
}

expected<bool, AXError> X11WindowAccess::isMinimized(const WindowElement &window)
{
    return read<bool>(window, [](const WindowSnapshot &snapshot) { return snapshot.hidden; });
}

expected<bool, AXError> X11WindowAccess::isWindow(const WindowElement &window)
{
    return read<bool>(window, canBePlaced);
}

expected<bool, AXError> X11WindowAccess::isStandard(const WindowElement &window)
{
    return read<bool>(window,
        [](const WindowSnapshot &snapshot) { return snapshot.kind == WindowKind::standard; });
}

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
    return read<bool>(window, [size](const WindowSnapshot &snapshot) {
        return snapshot.client.size() == snapshot.clientSizeFor(size);
    }).value_or(false);
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
    const auto number = static_cast<xcb_window_t>(window.number);
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
    const auto number = static_cast<xcb_window_t>(window.number);
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
    // Window managers take three times as long to give the focus as to raise.
    if (m_operations > 0 && m_windowManager.supports(Atom::netRestackWindow)) {
        sendRaise(window);
        m_toBeFocused = window;
        return true;
    }
    sendActivate(window);
    xcb_flush(m_connection.xcb());
    return true;
}

void X11WindowAccess::sendActivate(const WindowElement &window)
{
    m_connection.sendToRoot(static_cast<xcb_window_t>(window.number), Atom::netActiveWindow,
        {fromPager, XCB_CURRENT_TIME, noWindow, 0, 0});
    Q_EMIT m_registry.activating(static_cast<xcb_window_t>(window.number));
}

AXError X11WindowAccess::observe(pid_t pid)
{
    if (!isTrusted())
        return AXError::apiDisabled;
    m_observed.insert(pid);
    return AXError::success;
}

void X11WindowAccess::stopObserving(pid_t pid)
{
    m_observed.remove(pid);
}

void X11WindowAccess::endOperation()
{
    if (--m_operations > 0)
        return;
    std::ignore = flushSize();
    if (const auto window = std::exchange(m_toBeFocused, std::nullopt);
        window && access(*window) == AXError::success)
        sendActivate(*window);
    xcb_flush(m_connection.xcb());
    m_snapshots.clear();
    m_endedStates.clear();
    m_titles.clear();
    m_windows.clear();
}

void X11WindowAccess::readAnew(const WindowElement &window)
{
    Q_ASSERT(m_operations > 0);
    m_snapshots.remove(window);
}

void X11WindowAccess::readAhead(const QList<pid_t> &pids)
{
    Q_ASSERT(m_operations > 0);
    if (pids.isEmpty() || !isTrusted())
        return;
    const auto workspace = readWorkspace(m_connection, m_registry, m_windowManager, pids);
    if (!workspace)
        return;
    QList<std::pair<WindowElement, TitleRequest>> titles;
    for (const pid_t pid : pids)
        m_windows[pid].clear();
    for (const SeenWindow &seen : *workspace) {
        std::ignore = remember(seen.element, seen.snapshot);
        m_windows[seen.pid] << seen.element;
        titles.emplace_back(seen.element,
            requestTitle(m_connection, static_cast<xcb_window_t>(seen.element.number)));
    }
    for (const auto &[window, request] : std::as_const(titles)) {
        if (const auto title = readTitle(m_connection, request))
            m_titles.insert(window, *title);
    }
}

void X11WindowAccess::moveAhead(const QList<WindowMove> &moves)
{
    Q_ASSERT(m_operations > 0);
    QList<WindowElement> moved;
    for (const WindowMove &move : moves) {
        const auto before = snapshotOf(move.window);
        const auto number = static_cast<xcb_window_t>(move.window.number);
        if (!before || !m_placer.sendAhead(number, *before, move.frame))
            continue;
        m_snapshots.remove(move.window);
        moved << move.window;
    }
    if (!moved.isEmpty()
        && m_windowManager.fence(static_cast<xcb_window_t>(moved.last().number),
            Connection::Clock::now() + m_connection.messagingTimeout()))
        readAgain(moved);
}

void X11WindowAccess::handle(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    const auto &property = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    const auto known = m_registry.known().constFind(property.window);
    if (property.atom != m_connection.atom(Atom::netWmState) || known == m_registry.known().cend())
        return;
    const WindowElement window{property.window, known->generation};
    if (m_filledByUs.contains(window))
        m_connection.defer([this, window] { std::ignore = isFullScreen(window); });
}

void X11WindowAccess::announce(const QList<WindowElement> &windows)
{
    for (const WindowElement &window : windows) {
        const pid_t pid = m_registry.find(window)->pid;
        m_connection.defer([this, window, pid] {
            if (m_observed.contains(pid))
                Q_EMIT windowCreated(window, pid);
        });
    }
}

void X11WindowAccess::forget(const WindowElement &window)
{
    m_snapshots.remove(window);
    m_filledByUs.remove(window);
    if (m_pendingSize && m_pendingSize->window == window)
        m_pendingSize.reset();
    m_connection.defer([this, window] { Q_EMIT windowClosed(window); });
}

void X11WindowAccess::reviewTrust()
{
    const bool trusted = m_obstacle.isEmpty() && m_windowManager.isPresent();
    if (std::exchange(m_wasTrusted, trusted) != trusted)
        m_connection.defer([this, trusted] { Q_EMIT trustChanged(trusted); });
}

expected<WindowSnapshot, AXError> X11WindowAccess::snapshotOf(const WindowElement &window)
{
    if (m_pendingSize && m_pendingSize->window == window)
        std::ignore = flushSize();
    if (const AXError error = access(window); error != AXError::success)
        return unexpected<AXError>(error);
    if (const auto known = m_snapshots.constFind(window); known != m_snapshots.cend())
        return *known;
    const auto number = static_cast<xcb_window_t>(window.number);
    return remember(window,
        readSnapshot(
            m_connection, requestSnapshot(m_connection, number), m_windowManager.tilesWindows()));
}

/// At windows that our own moves have just changed.
void X11WindowAccess::readAgain(const QList<WindowElement> &windows)
{
    QList<std::pair<WindowElement, SnapshotRequest>> requests;
    for (const WindowElement &window : windows)
        requests.emplace_back(
            window, requestSnapshot(m_connection, static_cast<xcb_window_t>(window.number)));
    for (const auto &[window, request] : std::as_const(requests)) {
        const auto now =
            remember(window, readSnapshot(m_connection, request, m_windowManager.tilesWindows()));
        if (now)
            learnFullScreen(window, now->fullScreen);
    }
}

/// After our own move. Some window managers make an undecorated window that fills a display full screen
/// by themselves; its next full screen may be its user's wish.
void X11WindowAccess::learnFullScreen(const WindowElement &window, bool fullScreen)
{
    if (fullScreen)
        m_filledByUs.insert(window);
    else
        m_filledByUs.remove(window);
}

expected<WindowSnapshot, AXError> X11WindowAccess::remember(
    const WindowElement &window, expected<WindowSnapshot, AXError> snapshot)
{
    if (snapshot && m_operations > 0)
        m_snapshots.insert(window, *snapshot);
    return snapshot;
}

AXError X11WindowAccess::access(const WindowElement &window) const
{
    if (!m_obstacle.isEmpty() || !m_windowManager.isPresent())
        return AXError::apiDisabled;
    return m_registry.find(window) ? AXError::success : AXError::invalidUIElement;
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
    const auto after = m_placer.place(static_cast<xcb_window_t>(window.number), before, frame);
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
