#pragma once

#include "VirtualDesktop.h"
#include "WindowRequest.h"

namespace corvane::desktop {

/// An application of ours, a process of its own, which opens any kind of window on request.
class TestClient : public ChildProcess
{
public:
    explicit TestClient(VirtualDesktop &desktop) : TestClient(desktop, desktop.connection()) { }
    TestClient(PrivateSession &session, XConnection &connection);

    /// The number of the new window, once the server knows it; 0 when the client did not answer.
    [[nodiscard]] xcb_window_t open(const WindowRequest &request);
    /// As `open`, and waits until the window manager shows the window and has put it at rest.
    [[nodiscard]] xcb_window_t show(const WindowRequest &request);
    void close(xcb_window_t window);

    /// Opens and closes windows at this rate until it has opened `count`; returns at once.
    void beginChurn(int perSecond, int count);
    /// How many windows the churn has opened, once it is over.
    [[nodiscard]] int finishChurn(Milliseconds deadline);

private:
    quint32 answer(Milliseconds deadline = patience);

    XConnection &m_connection;
};

} // namespace corvane::desktop
