#pragma once

#include "Rect.h"
#include "Waiting.h"
#include "XConnection.h"

#include <functional>
#include <optional>
#include <sys/types.h>

namespace corvane::desktop {

/// What the screen shows there, row by row; empty when part of it is off the screen.
[[nodiscard]] QByteArray pixelsOn(XConnection &connection, const Rect &area);

/// Reads windows independently of the program under test. Pixels of the root window.
class WindowProbe
{
public:
    explicit WindowProbe(XConnection &connection) : m_connection(connection) { }

    /// What a person sees of the window: decorations included, client-side shadows excluded.
    [[nodiscard]] std::optional<Rect> visibleFrame(xcb_window_t window);
    /// The client window alone, without decorations.
    [[nodiscard]] std::optional<Rect> clientGeometry(xcb_window_t window);
    /// The visible frame once it has stopped changing.
    [[nodiscard]] std::optional<Rect> settledFrame(xcb_window_t window)
    {
        return settled([&] { return visibleFrame(window); });
    }

    [[nodiscard]] bool hasState(xcb_window_t window, const QByteArray &state)
    {
        return m_connection.numbers(window, "_NET_WM_STATE").contains(m_connection.atom(state));
    }
    [[nodiscard]] bool isMinimized(xcb_window_t window)
    {
        constexpr quint32 iconicState = 3;
        return m_connection.numbers(window, "WM_STATE").value(0) == iconicState;
    }
    [[nodiscard]] bool isViewable(xcb_window_t window)
    {
        const auto attributes = attributesOf(window);
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    /// On the window manager's list of clients, and shown.
    [[nodiscard]] bool isManaged(xcb_window_t window)
    {
        return clients().contains(window) && isViewable(window);
    }
    [[nodiscard]] bool hasClass(xcb_window_t window, const QByteArray &name)
    {
        return m_connection.property(window, "WM_CLASS").split('\0').contains(name);
    }
    [[nodiscard]] bool hasProcess(xcb_window_t window, pid_t pid)
    {
        return m_connection.numbers(window, "_NET_WM_PID").value(0) == static_cast<quint32>(pid);
    }

    [[nodiscard]] xcb_window_t activeWindow() { return onRoot("_NET_ACTIVE_WINDOW").value(0); }
    [[nodiscard]] QList<xcb_window_t> clients() { return onRoot("_NET_CLIENT_LIST"); }
    /// Bottom to top.
    [[nodiscard]] QList<xcb_window_t> stacking() { return onRoot("_NET_CLIENT_LIST_STACKING"); }
    /// The newest managed window that satisfies the condition; 0 when none came in time.
    [[nodiscard]] xcb_window_t waitForWindow(
        const std::function<bool(xcb_window_t)> &condition, Milliseconds deadline = patience);

    /// Menus of the process that are on the screen, the lowest one first. Any process's for 0.
    [[nodiscard]] QList<xcb_window_t> openMenus(pid_t pid = 0) { return openOf(pid, false); }
    /// Tips, and what else the process shows over everything, likewise.
    [[nodiscard]] QList<xcb_window_t> openTips(pid_t pid) { return openOf(pid, true); }
    /// The process's icon in a tray that takes windows in; 0 when there is none.
    [[nodiscard]] xcb_window_t trayIcon(pid_t pid);

    /// Empty while no window manager runs.
    [[nodiscard]] QString windowManagerName();

private:
    QList<quint32> onRoot(const char *property)
    {
        return m_connection.numbers(m_connection.root(), property);
    }
    Reply<xcb_get_window_attributes_reply_t> attributesOf(xcb_window_t window)
    {
        return m_connection.reply<xcb_get_window_attributes_reply>(
            xcb_get_window_attributes(m_connection.raw(), window));
    }
    Reply<xcb_query_tree_reply_t> treeOf(xcb_window_t window)
    {
        return m_connection.reply<xcb_query_tree_reply>(xcb_query_tree(m_connection.raw(), window));
    }
    QList<xcb_window_t> childrenOf(xcb_window_t window);
    QList<xcb_window_t> openOf(pid_t pid, bool areTips);
    bool isOpen(xcb_window_t window, pid_t pid, bool isTip);

    XConnection &m_connection;
};

} // namespace corvane::desktop
