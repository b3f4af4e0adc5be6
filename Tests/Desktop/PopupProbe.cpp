#include "PopupProbe.h"

#include "WindowProbe.h"

namespace corvane::desktop {

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
    QList<xcb_window_t> windows = childrenOf(m_connection.root());
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const xcb_window_t window = windows[i];
        const bool isEmbedded = !m_connection.property(window, "_XEMBED_INFO").isEmpty();
        if (isEmbedded && probe.hasProcess(window, pid) && probe.isViewable(window))
            return window;
        windows << childrenOf(window);
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
    WindowProbe probe(m_connection);
    const QList<quint32> types = m_connection.numbers(window, "_NET_WM_WINDOW_TYPE");
    const bool isMenu = types.contains(m_connection.atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"))
        || types.contains(m_connection.atom("_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"));
    return isMenu && (pid == 0 || probe.hasProcess(window, pid)) && probe.isViewable(window);
}

} // namespace corvane::desktop
