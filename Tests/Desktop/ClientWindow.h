#pragma once

#include "WindowRequest.h"
#include "XConnection.h"

#include <chrono>
#include <optional>

namespace corvane::desktop {

/// One window of the test client.
class ClientWindow
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Creates and maps the window.
    ClientWindow(XConnection &connection, const WindowRequest &request);

    [[nodiscard]] xcb_window_t number() const { return m_number; }
    void destroy();
    /// As an application does that changes its own mind.
    void resize(Size size);

    /// The window manager changed the window's state: the shadow follows a little later, as
    /// toolkits do it.
    void stateChanged(Time now);
    [[nodiscard]] std::optional<Time> shadowDue() const { return m_shadowDue; }
    void adaptShadowIfDue(Time now);

private:
    void describe();
    void describeKind();
    [[nodiscard]] bool hasShadow() const { return m_request.shadow != WindowRequest::Edges{}; }
    void publishShadow(const WindowRequest::Edges &edges);

    XConnection &m_connection;
    WindowRequest m_request;
    xcb_window_t m_number;
    std::optional<Time> m_shadowDue;
};

} // namespace corvane::desktop
