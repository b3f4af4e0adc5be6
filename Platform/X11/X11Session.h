#pragma once

#include "Connection.h"
#include "FreedesktopSession.h"

namespace corvane::x11 {

class X11Session final : public freedesktop::FreedesktopSession
{
    Q_OBJECT

public:
    explicit X11Session(Connection &connection) : m_connection(connection) { }

    /// Returns once a window that is shown next will be shown that way.
    void setListed(quint64 window, bool isListed) override;

private:
    [[nodiscard]] bool isManaged(xcb_window_t window);
    void changeProperty(xcb_window_t window, bool isListed);
    void askWindowManager(xcb_window_t window, bool isListed);

    Connection &m_connection;
};

} // namespace corvane::x11
