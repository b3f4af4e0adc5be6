#pragma once

#include "WaylandDesktop.h"
#include "WindowRequest.h"

#include <map>

namespace corvane::desktop {

/// An application of ours on a Wayland desktop, a process of its own, which opens any kind of window on
/// request. A window goes by the number that the desktop's hand knows it by.
class WaylandClient : public ChildProcess
{
public:
    explicit WaylandClient(WaylandDesktop &desktop);

    /// Returns once the desktop shows the window; 0 when it does not.
    [[nodiscard]] quint32 show(WindowRequest request);
    /// Likewise of what the desktop does not list among the windows; the client's own number.
    quint32 showPanel(const WindowRequest &request) { return open(request); }
    void close(quint32 window);
    void closePanel(quint32 panel);
    /// From now on the window says that it belongs to this application.
    void rename(quint32 window, const QByteArray &application);

private:
    quint32 open(const WindowRequest &request)
    {
        writeLine("window=" + request.toBytes().toHex());
        return answer();
    }
    quint32 answer() { return readLine().value_or(QByteArray()).toUInt(); }

    Hand &m_hand;
    std::map<quint32, quint32> m_own; ///< the client's numbers, by the hand's
};

} // namespace corvane::desktop
