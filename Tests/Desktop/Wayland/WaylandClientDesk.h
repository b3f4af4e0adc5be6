#pragma once

#include "ClientDesk.h"
#include "WaylandClientWindow.h"

#include <list>

namespace corvane::desktop {

/// The test client on a Wayland compositor.
class WaylandClientDesk final : public ClientDesk
{
public:
    WaylandClientDesk();

    bool isValid() const override { return m_connection.isValid() && m_globals.shell; }
    int file() const override { return wl_display_get_fd(m_connection.raw()); }
    void work(Time now) override;
    bool isIdle() const override
    {
        return std::ranges::none_of(m_windows, &WaylandClientWindow::isDrawingDue);
    }
    quint32 show(const WindowRequest &request) override;
    quint32 oldest() const override { return m_windows.empty() ? 0 : m_windows.front().number(); }
    void destroy(quint32 number) override;
    void rename(quint32 number, const QByteArray &application) override;
    /// That the window has drawn itself in last; none when it is gone.
    [[nodiscard]] Size size(quint32 number)
    {
        const WaylandClientWindow *const window = find(number);
        return window ? window->size() : Size();
    }

private:
    [[nodiscard]] WaylandClientWindow *find(quint32 number);

    WaylandConnection m_connection;
    WaylandGlobals m_globals{m_connection};
    std::list<WaylandClientWindow> m_windows;
    quint32 m_lastNumber = 0;
};

} // namespace corvane::desktop
