#include "CrowdedDesk.h"

#include "Geometry.h"

#include <algorithm>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int clientCount = 4;

struct Grid {
    int columns;
    int rows;
};
// Room for 200 windows that are still large enough to be captured.
constexpr std::array<Grid, 2> grids{Grid{16, 13}, Grid{17, 12}};

/// The second grid fills from its end, so that no window keeps its place.
UnitRect cell(size_t layout, qsizetype window)
{
    const auto [columns, rows] = grids[layout];
    const auto index = static_cast<int>(layout == 0 ? window : columns * rows - 1 - window);
    return {double(index % columns) / columns, double(index / columns) / rows, 1.0 / columns,
        1.0 / rows};
}

} // namespace

CrowdedDesk::CrowdedDesk(VirtualDesktop &desktop) : m_desktop(desktop)
{
    for (int i = 0; i < clientCount; ++i)
        m_clients.push_back(std::make_unique<TestClient>(desktop));
}

bool CrowdedDesk::fill(int count)
{
    const Rect display = m_desktop.displays().displays().first();
    while (m_windows.size() < count) {
        const qsizetype next = m_windows.size();
        WindowRequest request;
        request.geometry = Geometry::frame(cell(0, next), display, 0);
        request.title = title(next).toUtf8();
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

QString CrowdedDesk::title(qsizetype window)
{
    return u"Window %1"_s.arg(window, 3, 10, QLatin1Char('0'));
}

std::array<WindowLayout, 2> CrowdedDesk::layouts() const
{
    const Rect display = m_desktop.displays().displays().first();
    std::array<WindowLayout, 2> layouts;
    for (size_t which = 0; which < layouts.size(); ++which) {
        WindowLayout &layout = layouts[which];
        layout.name = u"Crowd %1"_s.arg(which + 1);
        layout.displays = {
            {u"Display"_s, static_cast<int>(display.width), static_cast<int>(display.height)}};
        for (qsizetype i = 0; i < m_windows.size(); ++i)
            layout.panes << Pane{.rect = cell(which, i),
                .app = AppRef{u"CorvaneTestClient"_s, u"Test client"_s},
                .titleContains = title(i)};
    }
    return layouts;
}

std::array<QList<Goal>, 2> CrowdedDesk::goals() const
{
    const Rect display = m_desktop.displays().displays().first();
    std::array<QList<Goal>, 2> goals;
    for (size_t which = 0; which < goals.size(); ++which) {
        for (qsizetype i = 0; i < m_windows.size(); ++i) {
            const Rect frame = Geometry::frame(cell(which, i), display, 0);
            goals[which] << Goal{frame,
                {frame.x + m_decoration.x, frame.y + m_decoration.y,
                    frame.width - m_decoration.width, frame.height - m_decoration.height}};
        }
    }
    return goals;
}

} // namespace corvane::bench
