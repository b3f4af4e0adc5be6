#include "WaylandClient.h"

namespace corvane::desktop {

WaylandClient::WaylandClient(WaylandDesktop &desktop)
    : ChildProcess(desktop.command(
        QStringLiteral(CORVANE_TEST_CLIENT), {QStringLiteral("listen")}, Channel::pipes))
    , m_hand(desktop.hand())
{
}

quint32 WaylandClient::show(WindowRequest request)
{
    const QList<quint32> known = m_hand.windowsOf(pid());
    request.transientFor = m_own[request.transientFor];
    const quint32 own = open(request);
    const quint32 window = own ? m_hand.waitForWindow(pid(), known) : 0;
    if (window) {
        m_own[window] = own;
        static_cast<void>(m_hand.settledFrame(window));
    }
    return window;
}

void WaylandClient::close(quint32 window)
{
    closePanel(m_own[window]);
    static_cast<void>(waitUntil([&] { return !m_hand.window(window); }));
}

void WaylandClient::closePanel(quint32 panel)
{
    writeLine("close=" + QByteArray::number(panel));
    answer();
}

void WaylandClient::rename(quint32 window, const QByteArray &application)
{
    writeLine("rename=" + QByteArray::number(m_own[window]) + ',' + application);
    answer();
}

} // namespace corvane::desktop
