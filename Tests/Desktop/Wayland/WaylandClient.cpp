#include "WaylandClient.h"

namespace corvane::desktop {

quint32 WaylandClient::show(const WindowRequest &request)
{
    const QList<quint32> known = m_hand.windowsOf(pid());
    WindowRequest told = request;
    told.transientFor = m_own[request.transientFor];
    const quint32 own = open(told);
    const quint32 window = own ? m_hand.waitForWindow(pid(), known) : 0;
    if (window) {
        m_own[window] = own;
        static_cast<void>(m_hand.settledFrame(window));
    }
    return window;
}

void WaylandClient::close(quint32 window)
{
    closeOwn(m_own[window]);
    static_cast<void>(waitUntil([&] { return !m_hand.window(window); }));
}

} // namespace corvane::desktop
