#include "WindowProbe.h"

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

QByteArray pixelsOn(XConnection &connection, const Rect &area)
{
    const auto image = connection.reply<xcb_get_image_reply>(
        xcb_get_image(connection.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection.root(),
            static_cast<qint16>(area.x), static_cast<qint16>(area.y),
            static_cast<quint16>(area.width), static_cast<quint16>(area.height), ~0u));
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
    // i3 alone publishes no extents; the window's parent is the frame that one sees.
    if (windowManagerName() == u"i3") {
        const auto tree = treeOf(window);
        return tree && tree->parent != m_connection.root() ? clientGeometry(tree->parent) : client;
    }
    const QList<quint32> decorations = m_connection.numbers(window, "_NET_FRAME_EXTENTS");
    const QList<quint32> shadows = m_connection.numbers(window, "_GTK_FRAME_EXTENTS");
    return grown(grown(*client, decorations, 1), shadows, -1);
}

std::optional<Rect> WindowProbe::clientGeometry(xcb_window_t window)
{
    xcb_connection_t *raw = m_connection.raw();
    const auto geometry = m_connection.reply<xcb_get_geometry_reply>(xcb_get_geometry(raw, window));
    const auto place = m_connection.reply<xcb_translate_coordinates_reply>(
        xcb_translate_coordinates(raw, window, m_connection.root(), 0, 0));
    if (!geometry || !place)
        return std::nullopt;
    return Rect{double(place->dst_x), double(place->dst_y), double(geometry->width),
        double(geometry->height)};
}

xcb_window_t WindowProbe::waitForWindow(
    const std::function<bool(xcb_window_t)> &condition, Milliseconds deadline)
{
    xcb_window_t found = XCB_WINDOW_NONE;
    const auto look = [&] {
        for (QList<xcb_window_t> windows = clients(); !windows.isEmpty() && !found;) {
            const xcb_window_t newest = windows.takeLast();
            if (isViewable(newest) && condition(newest))
                found = newest;
        }
        return found != XCB_WINDOW_NONE;
    };
    static_cast<void>(waitUntil(look, deadline));
    return found;
}

QList<xcb_window_t> WindowProbe::openOf(pid_t pid, bool areTips)
{
    QList<xcb_window_t> windows = childrenOf(m_connection.root());
    windows.removeIf([&](xcb_window_t window) { return !isOpen(window, pid, areTips); });
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
    const auto tree = treeOf(window);
    if (!tree)
        return {};
    const xcb_window_t *first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

bool WindowProbe::isOpen(xcb_window_t window, pid_t pid, bool isTip)
{
    const auto attributes = attributesOf(window);
    if (!attributes || !attributes->override_redirect
        || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
        return false;
    const QList<quint32> types = m_connection.numbers(window, "_NET_WM_WINDOW_TYPE");
    const bool hasTipType = types.contains(m_connection.atom("_NET_WM_WINDOW_TYPE_TOOLTIP"));
    // Window managers keep helpers of their own beyond the edge.
    const bool isOnScreen = clientGeometry(window).value_or(Rect()).maxX() > 0;
    return isOnScreen && !types.isEmpty() && hasTipType == isTip
        && (pid == 0 || hasProcess(window, pid));
}

} // namespace corvane::desktop
