#include "CrowdedDesk.h"

#include <algorithm>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int clientCount = 4;

} // namespace

CrowdedDesk::CrowdedDesk(VirtualDesktop &desktop) : m_desktop(desktop)
{
    for (int i = 0; i < clientCount; ++i)
        m_clients.push_back(std::make_unique<TestClient>(desktop));
}

bool CrowdedDesk::fill(int count)
{
    m_crowd = {count, m_desktop.displays().displays().first()};
    const QList<Rect> places = m_crowd.frames().front();
    while (m_windows.size() < count) {
        const qsizetype next = m_windows.size();
        WindowRequest request;
        request.geometry = places[next];
        request.title = Crowd::title(next).toUtf8();
        m_windows << m_clients[static_cast<size_t>(next % clientCount)]->open(request);
    }
    WindowProbe probe(m_desktop.connection());
    const bool shown = waitUntil([&] {
        const QList<xcb_window_t> managed = probe.clients();
        return std::ranges::all_of(
            m_windows, [&](xcb_window_t window) { return managed.contains(window); });
    });
    const auto frame = probe.settledFrame(m_windows.last());
    const auto client = probe.clientGeometry(m_windows.last());
    if (!shown || !frame || !client)
        return false;
    m_decoration = {client->x - frame->x, client->y - frame->y, frame->width - client->width,
        frame->height - client->height};
    return true;
}

std::array<QList<Goal>, 2> CrowdedDesk::goals() const
{
    const auto frames = m_crowd.frames();
    std::array<QList<Goal>, 2> goals;
    for (size_t which = 0; which < goals.size(); ++which) {
        for (const Rect &frame : frames[which])
            goals[which] << Goal{frame,
                {frame.x + m_decoration.x, frame.y + m_decoration.y,
                    frame.width - m_decoration.width, frame.height - m_decoration.height}};
    }
    return goals;
}

} // namespace corvane::bench
