#pragma once

#include "ClientDesk.h"
#include "ClientWindow.h"

#include <algorithm>
#include <list>

namespace corvane::desktop {

/// The test client on an X server.
class X11ClientDesk final : public ClientDesk
{
public:
    X11ClientDesk() : m_connection(qEnvironmentVariable("DISPLAY")) { }

    bool isValid() const override { return m_connection.isValid(); }
    int file() const override { return xcb_get_file_descriptor(m_connection.raw()); }
    void work(Time now) override
    {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.raw())}) {
            if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY) {
                const auto &change = reinterpret_cast<xcb_property_notify_event_t &>(*event);
                const auto window =
                    std::ranges::find(m_windows, change.window, &ClientWindow::number);
                if (window != m_windows.end() && change.atom == m_connection.atom("_NET_WM_STATE"))
                    window->stateChanged(now);
            } else if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
                const auto &message = reinterpret_cast<xcb_client_message_event_t &>(*event);
                if (message.type == m_connection.atom("WM_PROTOCOLS"))
                    destroy(message.window);
            }
        }
        for (ClientWindow &window : m_windows)
            window.adaptShadowIfDue(now);
        xcb_flush(m_connection.raw());
    }
    bool isIdle() const override
    {
        return std::ranges::none_of(m_windows, &ClientWindow::isShadowDue);
    }
    quint32 show(const WindowRequest &request) override
    {
        return m_windows.emplace_back(m_connection, request).number();
    }
    quint32 oldest() const override { return m_windows.empty() ? 0 : m_windows.front().number(); }
    void destroy(quint32 number) override
    {
        xcb_destroy_window(m_connection.raw(), number);
        m_connection.sync();
        m_windows.remove_if([number](const ClientWindow &each) { return each.number() == number; });
    }
    void rename(quint32 window, const QByteArray &application) override
    {
        const QByteArray part = application + '\0';
        m_connection.setBytes(window, "WM_CLASS", "STRING", part + part);
        m_connection.sync();
    }

private:
    XConnection m_connection;
    std::list<ClientWindow> m_windows;
};

} // namespace corvane::desktop
