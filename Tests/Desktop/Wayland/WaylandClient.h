#pragma once

#include "TestClient.h"
#include "WaylandDesktop.h"

#include <map>

namespace corvane::desktop {

/// The application on a Wayland desktop.
class WaylandClient final : public WindowClient
{
public:
    explicit WaylandClient(WaylandDesktop &desktop) : WindowClient(desktop), m_hand(desktop.hand())
    {
    }

    [[nodiscard]] quint32 show(const WindowRequest &request) override;
    void close(quint32 window) override;
    quint32 showPanel(const WindowRequest &request) override { return open(request); }
    /// From now on the window says that it belongs to this application.
    void rename(quint32 window, const QByteArray &application)
    {
        ask("rename=" + QByteArray::number(m_own[window]) + ',' + application);
    }

private:
    Hand &m_hand;
    std::map<quint32, quint32> m_own; ///< the client's numbers, by the hand's
};

} // namespace corvane::desktop
