#include "WindowPlacer.h"

#include <algorithm>
#include <cmath>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto softLimit = 250ms; ///< after which the geometry itself decides whether it is done
constexpr auto clientLimit = 250ms; ///< for a client to draw itself, unless it tells

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

/// Takes its time to draw the decoration of its new state, and may then resize or move itself.
bool drawsItself(const WindowSnapshot &window)
{
    return window.drawsOwnDecoration || window.decoration == Extents{};
}

bool isAt(const WindowSnapshot &window, const Rect &frame)
{
    return window.frame().origin() == Point{std::round(frame.x), std::round(frame.y)}
    && window.client.size() == window.clientSizeFor(frame.size());
}

bool isIn(const WindowSnapshot &window, const WindowState &state)
{
    return window.maximizedHorizontally == state.maximizedHorizontally
        && window.maximizedVertically == state.maximizedVertically
        && window.fullScreen == state.fullScreenByUs;
}

} // namespace

WindowPlacer::WindowPlacer(Connection &connection, WindowManagerLink &windowManager)
    : m_connection(connection), m_windowManager(windowManager), m_frames(connection)
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
    m_normalFrame.reset();
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
    changeState(window, StateChange::add,
        {.maximizedHorizontally = true, .maximizedVertically = true, .normalFrame = {}});
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
    if (drawsItself(before))
        watch(window);
    const auto normal = leaveState(window, before);
    auto current = normal ? moved(window, *normal, frame) : normal;
    if (current && m_watched == window) {
        m_frames.start(window);
        const auto isDone = [&](const WindowSnapshot &now) {
            return isAt(now, frame) && hasDrawnItself(now, before.shadow);
        };
        current = followClient(window, *current, isDone, frame);
    }
    stopWatching();
    if (normal)
        m_normalFrame = current ? normalFrame(*normal, *current) : normal->frame();
    return current;
}

expected<WindowSnapshot, AXError> WindowPlacer::leaveState(
    xcb_window_t window, const WindowSnapshot &before)
{
    // Both halves in one message, whichever it is in.
    const bool isMaximized = before.isMaximized();
    changeState(window, StateChange::remove, {isMaximized, isMaximized, before.fullScreen, Rect{}});
    const auto normal = settled(
        window, [](const WindowSnapshot &now) { return !now.isMaximized() && !now.fullScreen; });
    if (!normal || normal->shadow == before.shadow || !m_windowManager.holdsFrames()
        || m_watched != window)
        return normal;
    // The client was quick to draw its shadow, and the window manager has yet to make room for it.
    return followClient(
        window, *normal, [&](const WindowSnapshot &now) { return now.client != normal->client; },
        std::nullopt);
}

void WindowPlacer::handle(const xcb_generic_event_t &event)
{
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        const auto &property = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (property.window == m_watched
            && (property.atom == m_connection.atom(Atom::netWmState)
                || property.atom == m_connection.atom(Atom::gtkFrameExtents)
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

void WindowPlacer::watch(xcb_window_t window)
{
    m_disturbed = false;
    m_watched = window;
}

void WindowPlacer::stopWatching()
{
    m_watched = noWindow;
    m_frames.stop();
}

/// The frame that was under way need not know of the new state yet, and a wrong shadow is a wrong
/// place.
bool WindowPlacer::hasDrawnItself(const WindowSnapshot &window, const Extents &shadowBefore) const
{
    return m_frames.count() >= (window.drawsOwnDecoration ? 2 : 1) || window.shadow != shadowBefore
        || !drawsItself(window);
}

/// The client may not have drawn its shadow yet when the window manager let it go.
Rect WindowPlacer::normalFrame(WindowSnapshot normal, const WindowSnapshot &drawn) const
{
    if (!m_windowManager.holdsFrames())
        normal.shadow = drawn.shadow;
    return normal.frame();
}

/// A window manager remembers by itself what it gives a window back to, so it takes the window over
/// from there.
expected<WindowSnapshot, AXError> WindowPlacer::restore(xcb_window_t window,
    const WindowSnapshot &before, const Rect &frame, const std::optional<WindowState> &state)
{
    WindowSnapshot unlimited = before;
    unlimited.hints = {};
    if (!state)
        return place(window, unlimited, frame);
    auto current = place(window, unlimited, state->normalFrame);
    if (!current)
        return current;
    watch(window);
    changeState(window, StateChange::add, *state);
    const auto isBack = [&](const WindowSnapshot &now) {
        return isIn(now, *state) && now.frame() == frame;
    };
    current = settled(window, isBack);
    if (current)
        current = followClient(window, *current, isBack, std::nullopt);
    stopWatching();
    return current;
}

void WindowPlacer::changeState(xcb_window_t window, StateChange change, const WindowState &state)
{
    const auto send = [&](Atom first, xcb_atom_t second) {
        m_connection.sendToRoot(window, Atom::netWmState,
            {quint32(change), m_connection.atom(first), second, fromPager, 0});
    };
    if (state.fullScreenByUs)
        send(Atom::stateFullscreen, noAtom);
    if (state.maximizedHorizontally)
        send(Atom::stateMaximizedHorz,
            state.maximizedVertically ? m_connection.atom(Atom::stateMaximizedVert) : noAtom);
    else if (state.maximizedVertically)
        send(Atom::stateMaximizedVert, noAtom);
}

void WindowPlacer::send(xcb_window_t window, const Rect &request)
{
    // North-west gravity whatever the window's own is, all four fields, source: a pager.
    constexpr quint32 flags = 1 | 0xF << 8 | 2 << 12;
    m_connection.sendToRoot(window, Atom::netMoveresizeWindow,
        {flags, coordinate(request.x), coordinate(request.y), side(request.width),
            side(request.height)});
}

expected<WindowSnapshot, AXError> WindowPlacer::requested(
    xcb_window_t window, const WindowSnapshot &from, const Rect &frame)
{
    send(window, from.requestFor(frame));
    return settled(window, [&](const WindowSnapshot &now) { return isAt(now, frame); });
}

expected<WindowSnapshot, AXError> WindowPlacer::moved(
    xcb_window_t window, const WindowSnapshot &from, const Rect &frame)
{
    const auto now = requested(window, from, frame);
    if (now && now->client == from.client && differs(now->frame().origin(), frame.origin()))
        return unexpected<AXError>(
            refuse(AXError::failure, u"the window manager kept it where it is"_s));
    return now;
}

expected<WindowSnapshot, AXError> WindowPlacer::followClient(xcb_window_t window,
    WindowSnapshot current, const Condition &isDone, const std::optional<Rect> &frame)
{
    const auto isOver = [&] { return !m_disturbed && isDone(current); };
    // Who tells of each drawing is merely slow until it has.
    const bool tells = current.drawsOwnDecoration && m_frames.isCounting();
    const auto deadline = Connection::Clock::now()
        + (tells ? m_connection.messagingTimeout() : Connection::Clock::duration(clientLimit));
    // A client that answers each move with one of its own has the last word.
    for (int round = 0; round < mostRounds && !isOver()
         && m_connection.waitFor([&] { return m_disturbed || isOver(); }, deadline);
         ++round) {
        m_disturbed = false;
        auto now = read(window);
        // A window manager that holds frames makes room for the shadow by itself.
        const bool isHeld = m_windowManager.holdsFrames() && now && now->shadow != current.shadow;
        if (now && frame && !isHeld && !isAt(*now, *frame))
            now = requested(window, *now, *frame);
        if (!now)
            return now;
        current = *now;
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
        auto now = read(window);
        if (!now || isDone(*now) || (confirmed && m_windowManager.fencesExactly()))
            return now;
        if (!confirmed)
            break;
    }
    if (!m_windowManager.fence(window, hardLimit))
        return unexpected<AXError>(
            refuse(AXError::cannotComplete, u"the window manager did not answer"_s));
    return read(window);
}

expected<WindowSnapshot, AXError> WindowPlacer::read(xcb_window_t window)
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
