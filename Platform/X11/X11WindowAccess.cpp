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

expected<Rect, AXError> X11WindowAccess::frame(const WindowElement &window)
{
    return snapshotOf(window).map([](const WindowSnapshot &snapshot) { return snapshot.frame(); });
}

expected<QString, AXError> X11WindowAccess::title(const WindowElement &window)
{
    if (const AXError error = access(window); error != AXError::success)
        return unexpected<AXError>(error);
    if (const auto known = m_titles.constFind(window); known != m_titles.cend())
        return *known;
    return readTitle(m_connection, requestTitle(m_connection, numberOf(window)));
}

expected<bool, AXError> X11WindowAccess::isFullScreen(const WindowElement &window)
{
    return snapshotOf(window).map([&](const WindowSnapshot &snapshot) {
        if (!snapshot.fullScreen)
            m_filledByUs.remove(window);
        return snapshot.fullScreen && !m_filledByUs.contains(window);
    });
}

expected<bool, AXError> X11WindowAccess::isMinimized(const WindowElement &window)
{
    return snapshotOf(window).map([](const WindowSnapshot &snapshot) { return snapshot.hidden; });
}

expected<bool, AXError> X11WindowAccess::isWindow(const WindowElement &window)
{
    return snapshotOf(window).map(canBePlaced);
}

expected<bool, AXError> X11WindowAccess::isStandard(const WindowElement &window)
{
    return snapshotOf(window).map(
        [](const WindowSnapshot &snapshot) { return snapshot.kind == WindowKind::standard; });
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
        titles.emplace_back(seen.element, requestTitle(m_connection, numberOf(seen.element)));
    }
    for (const auto &[window, request] : std::as_const(titles)) {
        if (const auto title = readTitle(m_connection, request))
            m_titles.insert(window, *title);
    }
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
    const xcb_window_t number = numberOf(window);
    return remember(window,
        readSnapshot(
            m_connection, requestSnapshot(m_connection, number), m_windowManager.tilesWindows()));
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

} // namespace corvane::x11
