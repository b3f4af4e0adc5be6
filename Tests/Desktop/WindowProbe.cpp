#include "WindowProbe.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

using Attributes = Reply<xcb_get_window_attributes_reply_t>;
using Tree = Reply<xcb_query_tree_reply_t>;

Attributes attributesOf(xcb_connection_t *raw, xcb_window_t window)
{
    const auto cookie = xcb_get_window_attributes(raw, window);
    return Attributes(xcb_get_window_attributes_reply(raw, cookie, nullptr));
}

Tree treeOf(xcb_connection_t *raw, xcb_window_t window)
{
    return Tree(xcb_query_tree_reply(raw, xcb_query_tree(raw, window), nullptr));
}

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

QByteArray pixelsOn(XConnection &connection, const Rect &area)
{
    const auto cookie = xcb_get_image(connection.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP,
        connection.root(), static_cast<qint16>(area.x), static_cast<qint16>(area.y),
        static_cast<quint16>(area.width), static_cast<quint16>(area.height), ~0u);
    const Reply<xcb_get_image_reply_t> image(
        xcb_get_image_reply(connection.raw(), cookie, nullptr));
    if (!image)
        return {};
    const auto *bytes = reinterpret_cast<const char *>(xcb_get_image_data(image.get()));
    return {bytes, xcb_get_image_data_length(image.get())};
}

std::optional<Rect> WindowProbe::visibleFrame(xcb_window_t window)
{
    const auto client = clientGeometry(window);
    if (!client)
        return std::nullopt;
    // i3 alone publishes no extents; its parent windows are the frames that one sees.
    if (windowManagerName() == u"i3") {
        const auto frame = topLevelOf(window);
        return frame ? clientGeometry(*frame) : std::nullopt;
    }
    const QList<quint32> decorations = m_connection.numbers(window, "_NET_FRAME_EXTENTS");
    const QList<quint32> shadows = m_connection.numbers(window, "_GTK_FRAME_EXTENTS");
    return grown(grown(*client, decorations, 1), shadows, -1);
}

std::optional<Rect> WindowProbe::clientGeometry(xcb_window_t window)
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
    return Rect{double(place->dst_x), double(place->dst_y), double(geometry->width),
        double(geometry->height)};
}

bool WindowProbe::isViewable(xcb_window_t window)
{
    const auto attributes = attributesOf(m_connection.raw(), window);
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
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

QList<xcb_window_t> WindowProbe::openMenus(pid_t pid)
{
    QList<xcb_window_t> windows = childrenOf(m_connection.root());
    windows.removeIf([&](xcb_window_t window) { return !isOpenMenu(window, pid); });
    return windows;
}

xcb_window_t WindowProbe::trayIcon(pid_t pid)
{
    constexpr double largestIcon = 64;
    const auto isIcon = [&](xcb_window_t window) {
        const auto place = clientGeometry(window);
        return hasProcess(window, pid) && isViewable(window) && place && place->width <= largestIcon
            && place->height <= largestIcon;
    };
    QList<xcb_window_t> windows = childrenOf(m_connection.root());
    for (qsizetype i = 0; i < windows.size(); ++i) {
        if (isIcon(windows[i]))
            return windows[i];
        windows << childrenOf(windows[i]);
    }
    return XCB_WINDOW_NONE;
}

QString WindowProbe::windowManagerName()
{
    const char *const check = "_NET_SUPPORTING_WM_CHECK";
    const quint32 window = onRoot(check).value(0);
    if (!window || m_connection.numbers(window, check).value(0) != window)
        return {};
    return QString::fromUtf8(m_connection.property(window, "_NET_WM_NAME"));
}

QList<xcb_window_t> WindowProbe::childrenOf(xcb_window_t window)
{
    const auto tree = treeOf(m_connection.raw(), window);
    if (!tree)
        return {};
    const xcb_window_t *first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

std::optional<xcb_window_t> WindowProbe::topLevelOf(xcb_window_t window)
{
    while (const auto tree = treeOf(m_connection.raw(), window)) {
        if (tree->parent == m_connection.root() || tree->parent == XCB_WINDOW_NONE)
            return window;
        window = tree->parent;
    }
    return std::nullopt;
}

bool WindowProbe::isOpenMenu(xcb_window_t window, pid_t pid)
{
    const auto attributes = attributesOf(m_connection.raw(), window);
    if (!attributes || !attributes->override_redirect
        || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
        return false;
    const QList<quint32> types = m_connection.numbers(window, "_NET_WM_WINDOW_TYPE");
    const bool isTip = types.contains(m_connection.atom("_NET_WM_WINDOW_TYPE_TOOLTIP"));
    // Window managers keep helpers of their own beyond the edge.
    const bool isOnScreen = clientGeometry(window).value_or(Rect()).maxX() > 0;
    return isOnScreen && !types.isEmpty() && !isTip && (pid == 0 || hasProcess(window, pid));
}

} // namespace corvane::desktop
