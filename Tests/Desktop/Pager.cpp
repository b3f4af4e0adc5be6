#include "Pager.h"

namespace corvane::desktop {

namespace {

constexpr quint32 sourcePager = 2;

}

Pager::Pager(XConnection &connection) : m_connection(connection) { }

void Pager::activate(xcb_window_t window)
{
    m_connection.sendToRoot(window, "_NET_ACTIVE_WINDOW", {sourcePager, XCB_CURRENT_TIME, 0});
}

void Pager::close(xcb_window_t window)
{
    m_connection.sendToRoot(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, sourcePager});
}

void Pager::minimize(xcb_window_t window)
{
    constexpr quint32 iconicState = 3;
    m_connection.sendToRoot(window, "WM_CHANGE_STATE", {iconicState});
}

void Pager::setMaximized(xcb_window_t window, Change change)
{
    changeState(window, change, "_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ");
}

void Pager::setMaximizedVertically(xcb_window_t window, Change change)
{
    changeState(window, change, "_NET_WM_STATE_MAXIMIZED_VERT");
}

void Pager::setFullScreen(xcb_window_t window, Change change)
{
    changeState(window, change, "_NET_WM_STATE_FULLSCREEN");
}

void Pager::setWorkspaceCount(quint32 count)
{
    m_connection.sendToRoot(m_connection.root(), "_NET_NUMBER_OF_DESKTOPS", {count});
}

void Pager::moveToWorkspace(xcb_window_t window, quint32 workspace)
{
    m_connection.sendToRoot(window, "_NET_WM_DESKTOP", {workspace, sourcePager});
}

void Pager::moveResize(xcb_window_t window, const Rect &rect)
{
    constexpr quint32 northWestAllFields = 1 | 0xF << 8 | sourcePager << 12;
    m_connection.sendToRoot(window, "_NET_MOVERESIZE_WINDOW",
        {northWestAllFields, static_cast<quint32>(static_cast<qint32>(rect.x)),
            static_cast<quint32>(static_cast<qint32>(rect.y)), static_cast<quint32>(rect.width),
            static_cast<quint32>(rect.height)});
}

void Pager::changeState(
    xcb_window_t window, Change change, const QByteArray &first, const QByteArray &second)
{
    m_connection.sendToRoot(window, "_NET_WM_STATE",
        {change == Change::add ? 1u : 0u, m_connection.atom(first),
            second.isEmpty() ? 0u : m_connection.atom(second), sourcePager});
}

} // namespace corvane::desktop
