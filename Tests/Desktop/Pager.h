#pragma once

#include "Rect.h"
#include "XConnection.h"

namespace corvane::desktop {

/// Asks the window manager for what a user would do with the mouse. Nothing here waits for the effect.
class Pager
{
public:
    enum class Change : quint32 { remove, add };

    explicit Pager(XConnection &connection) : m_connection(connection) { }

    void activate(xcb_window_t window)
    {
        m_connection.sendToRoot(window, "_NET_ACTIVE_WINDOW", {pager, XCB_CURRENT_TIME, 0});
    }
    void close(xcb_window_t window)
    {
        m_connection.sendToRoot(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, pager});
    }
    void minimize(xcb_window_t window)
    {
        constexpr quint32 iconicState = 3;
        m_connection.sendToRoot(window, "WM_CHANGE_STATE", {iconicState});
    }
    void setMaximized(xcb_window_t window, Change change)
    {
        changeState(window, change, "_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ");
    }
    void setMaximizedVertically(xcb_window_t window, Change change)
    {
        changeState(window, change, "_NET_WM_STATE_MAXIMIZED_VERT");
    }
    void setFullScreen(xcb_window_t window, Change change)
    {
        changeState(window, change, "_NET_WM_STATE_FULLSCREEN");
    }
    void changeState(
        xcb_window_t window, Change change, const QByteArray &first, const QByteArray &second = {})
    {
        const xcb_atom_t also = second.isEmpty() ? 0 : m_connection.atom(second);
        m_connection.sendToRoot(window, "_NET_WM_STATE",
            {static_cast<quint32>(change), m_connection.atom(first), also, pager});
    }
    void setWorkspaceCount(quint32 count)
    {
        m_connection.sendToRoot(m_connection.root(), "_NET_NUMBER_OF_DESKTOPS", {count});
    }
    /// The first one has the number 0.
    void moveToWorkspace(xcb_window_t window, quint32 workspace)
    {
        m_connection.sendToRoot(window, "_NET_WM_DESKTOP", {workspace, pager});
    }
    /// To where the frame's top left corner and the client's size are these.
    void moveResize(xcb_window_t window, const Rect &rect)
    {
        constexpr quint32 northWestAllFields = 1 | 0xF << 8 | pager << 12;
        m_connection.sendToRoot(window, "_NET_MOVERESIZE_WINDOW",
            {northWestAllFields, static_cast<quint32>(static_cast<qint32>(rect.x)),
                static_cast<quint32>(static_cast<qint32>(rect.y)), static_cast<quint32>(rect.width),
                static_cast<quint32>(rect.height)});
    }

private:
    static constexpr quint32 pager = 2; ///< who asks, as against an application

    XConnection &m_connection;
};

} // namespace corvane::desktop
