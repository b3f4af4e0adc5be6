#pragma once

#include "Rect.h"
#include "XConnection.h"

#include <sys/types.h>

namespace corvane::desktop {

inline constexpr int bytesPerPixel = 4;

/// What the screen shows there, row by row; empty when part of it is off the screen.
[[nodiscard]] QByteArray pixelsOn(XConnection &connection, const Rect &area);

/// Finds windows that no window manager knows: open menus and icons in trays.
class PopupProbe
{
public:
    explicit PopupProbe(XConnection &connection);

    /// Menus of the process that are on the screen, the lowest one first. Any process's for 0.
    [[nodiscard]] QList<xcb_window_t> openMenus(pid_t pid = 0);
    /// The process's icon in a tray that takes windows in; 0 when there is none.
    [[nodiscard]] xcb_window_t trayIcon(pid_t pid);

private:
    [[nodiscard]] QList<xcb_window_t> childrenOf(xcb_window_t window);
    [[nodiscard]] bool isOpenMenu(xcb_window_t window, pid_t pid);

    XConnection &m_connection;
};

} // namespace corvane::desktop
