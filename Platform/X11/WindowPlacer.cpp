#include "WindowPlacer.h"

#include <algorithm>
#include <cmath>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto softLimit = 250ms; ///< after which the geometry itself decides whether it is done
constexpr auto clientWait =
    250ms; ///< toolkits restore their shadow this long after a state is gone

constexpr int mostRounds = 16;
// What a fence takes for its answer may be the answer to what was asked before.
constexpr int mostFences = 4;

quint32 coordinate(double value)
{
    return static_cast<quint32>(static_cast<qint32>(std::clamp(value, -32768.0, 32767.0)));
}

quint32 side(double value)
{
    return static_cast<quint32>(std::clamp(value, 1.0, 32767.0));
}

bool differs(Point a, Point b)
{
    return std::abs(a.x - b.x) > 4 || std::abs(a.y - b.y) > 4;
}

} // namespace

WindowPlacer::WindowPlacer(Connection &connection, WindowManagerLink &windowManager)
    : m_connection(connection), m_windowManager(windowManager)
{
    m_connection.addSink(this);
}

WindowPlacer::~WindowPlacer()
{
    m_connection.removeSink(this);
}

expected<WindowSnapshot, AXError> WindowPlacer::place(
    xcb_window_t window, const WindowSnapshot &before, const Rect &frame)
{
    m_refusalDetail.clear();
    if (before.tiled)
        return unexpected<AXError>(refuse(AXError::failure, u"tiled by the window manager"_s));
    if (before.isMaximized() || before.fullScreen)
        return placeOutOfState(window, before, frame);
    if (isAt(before, frame))
        return before;
    const auto now = moved(window, before, frame);
    // A client that draws its own decoration may just not be done with its last state.
    const bool mayBeTiled = m_windowManager.tilesSilently() && !before.drawsOwnDecoration;
    if (now || now.error() != AXError::failure || !mayBeTiled)
        return now;
    changeMaximized(window, StateChange::add);
    const auto maximized =
        settled(window, [](const WindowSnapshot &snapshot) { return snapshot.isMaximized(); });
    return maximized ? placeOutOfState(window, *maximized, frame) : maximized;
}

bool WindowPlacer::sendAhead(xcb_window_t window, const WindowSnapshot &before, const Rect &frame)
{
    if (before.tiled || before.isMaximized() || before.fullScreen || isAt(before, frame))
        return false;
    send(window, before.requestFor(frame));
    return true;
}

expected<WindowSnapshot, AXError> WindowPlacer::placeOutOfState(
    xcb_window_t window, const WindowSnapshot &before, const Rect &frame)
{
    m_refusalDetail.clear();
    watch(window, before);
    leaveState(window, before);
    auto current = settled(
        window, [](const WindowSnapshot &now) { return !now.isMaximized() && !now.fullScreen; });
    if (current)
        current = moved(window, *current, frame);
    if (current && m_watched == window)
        current = followClient(window, *current, frame);
    stopWatching();
    return current;
}

void WindowPlacer::handle(const xcb_generic_event_t &event)
{
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        const auto &property = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (property.window == m_watched
            && (property.atom == m_connection.atom(Atom::gtkFrameExtents)
                || property.atom == m_connection.atom(Atom::netFrameExtents)))
            m_disturbed = true;
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        if (reinterpret_cast<const xcb_configure_notify_event_t &>(event).window == m_watched)
            m_disturbed = true;
        break;
    default:
        break;
    }
}

/// A client that draws its own decoration takes its time to draw the one of its new state, and may
/// then resize or move itself.
void WindowPlacer::watch(xcb_window_t window, const WindowSnapshot &snapshot)
{
    m_disturbed = false;
    if (!snapshot.drawsOwnDecoration && snapshot.decoration != Extents{})
        return;
    m_watched = window;
}

void WindowPlacer::stopWatching()
{
    m_watched = noWindow;
}

bool WindowPlacer::isAt(const WindowSnapshot &window, const Rect &frame)
{
    return window.frame().origin() == Point{std::round(frame.x), std::round(frame.y)}
    && window.client.size() == window.clientSizeFor(frame.size());
}

void WindowPlacer::leaveState(xcb_window_t window, const WindowSnapshot &snapshot)
{
    if (snapshot.fullScreen)
        m_connection.sendToRoot(window, Atom::netWmState,
            {quint32(StateChange::remove), m_connection.atom(Atom::stateFullscreen), 0, fromPager,
                0});
    if (snapshot.isMaximized())
        changeMaximized(window, StateChange::remove);
}

void WindowPlacer::changeMaximized(xcb_window_t window, StateChange change)
{
    m_connection.sendToRoot(window, Atom::netWmState,
        {quint32(change), m_connection.atom(Atom::stateMaximizedHorz),
            m_connection.atom(Atom::stateMaximizedVert), fromPager, 0});
}

void WindowPlacer::send(xcb_window_t window, const Rect &request)
{
    // North-west gravity whatever the window's own is, all four fields, source: a pager.
    constexpr quint32 flags = 1 | 0xF << 8 | 2 << 12;
    m_connection.sendToRoot(window, Atom::netMoveresizeWindow,
        {flags, coordinate(request.x), coordinate(request.y), side(request.width),
            side(request.height)});
}

expected<WindowSnapshot, AXError> WindowPlacer::moved(
    xcb_window_t window, const WindowSnapshot &from, const Rect &frame)
{
    send(window, from.requestFor(frame));
    const auto now =
        settled(window, [&](const WindowSnapshot &snapshot) { return isAt(snapshot, frame); });
    if (now && now->client == from.client && differs(now->frame().origin(), frame.origin()))
        return unexpected<AXError>(
            refuse(AXError::failure, u"the window manager kept it where it is"_s));
    return now;
}

expected<WindowSnapshot, AXError> WindowPlacer::followClient(
    xcb_window_t window, WindowSnapshot current, const Rect &frame)
{
    const Extents shadowBefore = current.shadow;
    const auto deadline = Connection::Clock::now() + clientWait;
    // A client that answers each move with one of its own has the last word.
    for (int round = 0;
         round < mostRounds && m_connection.waitFor([this] { return m_disturbed; }, deadline);
         ++round) {
        m_disturbed = false;
        const auto now = look(window);
        if (!now)
            return now;
        const auto again = isAt(*now, frame) ? now : moved(window, *now, frame);
        if (!again)
            return again;
        current = *again;
        if (current.shadow != shadowBefore)
            break;
    }
    return current;
}

expected<WindowSnapshot, AXError> WindowPlacer::settled(
    xcb_window_t window, const std::function<bool(const WindowSnapshot &)> &isDone)
{
    const auto start = Connection::Clock::now();
    const auto hardLimit = start + m_connection.messagingTimeout();
    for (int round = 0; round < mostFences; ++round) {
        const bool confirmed =
            m_windowManager.fence(window, std::min(start + softLimit, hardLimit));
        auto now = look(window);
        if (!now || isDone(*now) || (confirmed && m_windowManager.fencesExactly()))
            return now;
        if (!confirmed)
            break;
    }
    if (!m_windowManager.fence(window, hardLimit))
        return unexpected<AXError>(
            refuse(AXError::cannotComplete, u"the window manager did not answer"_s));
    return look(window);
}

expected<WindowSnapshot, AXError> WindowPlacer::look(xcb_window_t window)
{
    return readSnapshot(
        m_connection, requestSnapshot(m_connection, window), m_windowManager.tilesWindows());
}

AXError WindowPlacer::refuse(AXError error, const QString &detail)
{
    m_refusalDetail = detail;
    return error;
}

} // namespace corvane::x11
