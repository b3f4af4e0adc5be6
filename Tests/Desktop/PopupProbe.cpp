#include "PopupProbe.h"

#include "WindowProbe.h"

namespace corvane::desktop {

namespace {
constexpr double largestIcon = 64;
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

PopupProbe::PopupProbe(XConnection &connection) : m_connection(connection) { }

QList<xcb_window_t> PopupProbe::openMenus(pid_t pid)
{
    QList<xcb_window_t> menus;
    for (const xcb_window_t window : childrenOf(m_connection.root())) {
        if (isOpenMenu(window, pid))
            menus << window;
    }
    return menus;
}

xcb_window_t PopupProbe::trayIcon(pid_t pid)
{
    WindowProbe probe(m_connection);
    const auto isIcon = [&](xcb_window_t window) {
        const auto place = probe.clientGeometry(window);
        return probe.hasProcess(window, pid) && probe.isViewable(window) && place
            && place->width <= largestIcon && place->height <= largestIcon;
    };
    QList<xcb_window_t> windows = childrenOf(m_connection.root());
    for (qsizetype i = 0; i < windows.size(); ++i) {
        if (isIcon(windows[i]))
            return windows[i];
        windows << childrenOf(windows[i]);
    }
    return XCB_WINDOW_NONE;
}

QList<xcb_window_t> PopupProbe::childrenOf(xcb_window_t window)
{
    const auto cookie = xcb_query_tree(m_connection.raw(), window);
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection.raw(), cookie, nullptr));
    if (!tree)
        return {};
    const xcb_window_t *first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

bool PopupProbe::isOpenMenu(xcb_window_t window, pid_t pid)
{
    const auto cookie = xcb_get_window_attributes(m_connection.raw(), window);
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(m_connection.raw(), cookie, nullptr));
    if (!attributes || !attributes->override_redirect
        || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
        return false;
    const QList<quint32> types = m_connection.numbers(window, "_NET_WM_WINDOW_TYPE");
    const bool isTip = types.contains(m_connection.atom("_NET_WM_WINDOW_TYPE_TOOLTIP"));
    WindowProbe probe(m_connection);
    // Window managers keep helpers of their own beyond the edge.
    const bool isOnScreen = probe.clientGeometry(window).value_or(Rect()).maxX() > 0;
    return isOnScreen && !types.isEmpty() && !isTip && (pid == 0 || probe.hasProcess(window, pid));
}

} // namespace corvane::desktop
