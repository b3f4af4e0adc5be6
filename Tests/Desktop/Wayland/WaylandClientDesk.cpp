#include "WaylandClientDesk.h"

#include <poll.h>

namespace corvane::desktop {

WaylandClientDesk::WaylandClientDesk()
{
    m_connection.sync(); // where the outputs are
}

void WaylandClientDesk::work(Time)
{
    wl_display *const display = m_connection.raw();
    while (wl_display_prepare_read(display) != 0)
        wl_display_dispatch_pending(display);
    wl_display_flush(display);
    pollfd source{file(), POLLIN, 0};
    if (::poll(&source, 1, 0) > 0)
        wl_display_read_events(display);
    else
        wl_display_cancel_read(display);
    wl_display_dispatch_pending(display);
    std::erase_if(m_windows, [](const auto &each) { return each.isClosed(); });
    for (WaylandClientWindow &window : m_windows)
        window.drawIfDue();
    wl_display_flush(display);
}

quint32 WaylandClientDesk::show(const WindowRequest &request)
{
    const WaylandClientWindow *const parent = find(request.transientFor);
    m_windows.emplace_back(m_globals, request, ++m_lastNumber, parent);
    m_connection.sync();
    return m_lastNumber;
}

void WaylandClientDesk::destroy(quint32 number)
{
    m_windows.remove_if(
        [number](const WaylandClientWindow &each) { return each.number() == number; });
    m_connection.sync();
}

void WaylandClientDesk::rename(quint32 number, const QByteArray &application)
{
    if (WaylandClientWindow *const window = find(number))
        window->rename(application);
    m_connection.sync();
}

WaylandClientWindow *WaylandClientDesk::find(quint32 number)
{
    const auto found = std::ranges::find(m_windows, number, &WaylandClientWindow::number);
    return found == m_windows.end() ? nullptr : &*found;
}

} // namespace corvane::desktop
