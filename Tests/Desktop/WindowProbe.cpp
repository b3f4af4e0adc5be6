#include "WindowProbe.h"

#include <algorithm>
#include <xcb/randr.h>

namespace corvane::desktop {

namespace {

// left, right, top, bottom
Rect grown(const Rect &rect, const QList<quint32> &edges, int sign)
{
    if (edges.size() != 4)
        return rect;
    const auto edge = [&](int index) { return sign * static_cast<double>(edges[index]); };
    return {rect.x - edge(0), rect.y - edge(2), rect.width + edge(0) + edge(1),
        rect.height + edge(2) + edge(3)};
}

} // namespace

WindowProbe::WindowProbe(XConnection &connection) : m_connection(connection) { }

std::optional<Rect> WindowProbe::visibleFrame(xcb_window_t window)
{
    const auto client = clientGeometry(window);
    if (!client)
        return std::nullopt;
    // i3 alone publishes no extents; its parent windows are the frames that one sees.
    if (windowManagerName() == u"i3") {
        const auto frame = topLevelOf(window);
        return frame ? onRoot(*frame) : std::nullopt;
    }
    const QList<quint32> decorations = m_connection.numbers(window, "_NET_FRAME_EXTENTS");
    const QList<quint32> shadows = m_connection.numbers(window, "_GTK_FRAME_EXTENTS");
    return grown(grown(*client, decorations, 1), shadows, -1);
}

std::optional<Rect> WindowProbe::clientGeometry(xcb_window_t window)
{
    return onRoot(window);
}

std::optional<Rect> WindowProbe::settledFrame(xcb_window_t window)
{
    return settled([&] { return visibleFrame(window); });
}

bool WindowProbe::waitForFrame(xcb_window_t window, const Rect &frame, Milliseconds deadline)
{
    return waitUntil([&] { return visibleFrame(window) == frame; }, deadline);
}

bool WindowProbe::hasState(xcb_window_t window, const QByteArray &state)
{
    return m_connection.numbers(window, "_NET_WM_STATE").contains(m_connection.atom(state));
}

bool WindowProbe::isMinimized(xcb_window_t window)
{
    constexpr quint32 iconicState = 3;
    return m_connection.numbers(window, "WM_STATE").value(0) == iconicState;
}

bool WindowProbe::isViewable(xcb_window_t window)
{
    const auto cookie = xcb_get_window_attributes(m_connection.raw(), window);
    const Reply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_connection.raw(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool WindowProbe::isManaged(xcb_window_t window)
{
    return clients().contains(window) && isViewable(window);
}

xcb_window_t WindowProbe::activeWindow()
{
    return m_connection.numbers(m_connection.root(), "_NET_ACTIVE_WINDOW").value(0);
}

QList<xcb_window_t> WindowProbe::clients()
{
    return m_connection.numbers(m_connection.root(), "_NET_CLIENT_LIST");
}

QList<xcb_window_t> WindowProbe::stacking()
{
    return m_connection.numbers(m_connection.root(), "_NET_CLIENT_LIST_STACKING");
}

xcb_window_t WindowProbe::waitForWindow(
    const std::function<bool(xcb_window_t)> &condition, Milliseconds deadline)
{
    xcb_window_t found = XCB_WINDOW_NONE;
    static_cast<void>(waitUntil(
        [&] {
            const QList<xcb_window_t> windows = clients();
            const auto match = std::find_if(windows.crbegin(), windows.crend(),
                [&](xcb_window_t window) { return isViewable(window) && condition(window); });
            found = match == windows.crend() ? 0u : *match;
            return found != XCB_WINDOW_NONE;
        },
        deadline));
    return found;
}

bool WindowProbe::hasClass(xcb_window_t window, const QByteArray &name)
{
    return m_connection.property(window, "WM_CLASS").split('\0').contains(name);
}

bool WindowProbe::hasProcess(xcb_window_t window, pid_t pid)
{
    return m_connection.numbers(window, "_NET_WM_PID").value(0) == static_cast<quint32>(pid);
}

QList<Rect> WindowProbe::monitors()
{
    const auto cookie = xcb_randr_get_monitors(m_connection.raw(), m_connection.root(), 1);
    const Reply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(m_connection.raw(), cookie, nullptr));
    QList<Rect> result;
    if (!reply)
        return result;
    for (auto at = xcb_randr_get_monitors_monitors_iterator(reply.get()); at.rem;
         xcb_randr_monitor_info_next(&at)) {
        const xcb_randr_monitor_info_t &monitor = *at.data;
        const Rect frame{static_cast<double>(monitor.x), static_cast<double>(monitor.y),
            static_cast<double>(monitor.width), static_cast<double>(monitor.height)};
        result.insert(monitor.primary ? 0 : result.size(), frame);
    }
    return result;
}

QString WindowProbe::windowManagerName()
{
    const char *const check = "_NET_SUPPORTING_WM_CHECK";
    const quint32 window = m_connection.numbers(m_connection.root(), check).value(0);
    if (!window || m_connection.numbers(window, check).value(0) != window)
        return {};
    return QString::fromUtf8(m_connection.property(window, "_NET_WM_NAME"));
}

std::optional<Rect> WindowProbe::onRoot(xcb_window_t window)
{
    xcb_connection_t *raw = m_connection.raw();
    const auto geometryCookie = xcb_get_geometry(raw, window);
    const auto placeCookie = xcb_translate_coordinates(raw, window, m_connection.root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(raw, geometryCookie, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(raw, placeCookie, nullptr));
    if (!geometry || !place)
        return std::nullopt;
    return Rect{static_cast<double>(place->dst_x), static_cast<double>(place->dst_y),
        static_cast<double>(geometry->width), static_cast<double>(geometry->height)};
}

std::optional<xcb_window_t> WindowProbe::topLevelOf(xcb_window_t window)
{
    for (;;) {
        const auto cookie = xcb_query_tree(m_connection.raw(), window);
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection.raw(), cookie, nullptr));
        if (!tree)
            return std::nullopt;
        if (tree->parent == m_connection.root() || tree->parent == XCB_WINDOW_NONE)
            return window;
        window = tree->parent;
    }
}

} // namespace corvane::desktop
