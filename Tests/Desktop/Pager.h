#pragma once

#include "Rect.h"
#include "XConnection.h"

namespace corvane::desktop {

/// Asks the window manager for what a user would do with the mouse. Nothing here waits for the effect.
class Pager
{
public:
    enum class Change { remove, add };

    explicit Pager(XConnection &connection);

    void activate(xcb_window_t window);
    void close(xcb_window_t window);
    void minimize(xcb_window_t window);
    void setMaximized(xcb_window_t window, Change change);
    void setMaximizedVertically(xcb_window_t window, Change change);
    void setFullScreen(xcb_window_t window, Change change);
    /// The first one has the number 0.
    void setWorkspaceCount(quint32 count);
    void moveToWorkspace(xcb_window_t window, quint32 workspace);
    /// To where the frame's top left corner and the client's size are these.
    void moveResize(xcb_window_t window, const Rect &rect);

private:
    void changeState(
        xcb_window_t window, Change change, const QByteArray &first, const QByteArray &second = {});

    XConnection &m_connection;
};

} // namespace corvane::desktop
