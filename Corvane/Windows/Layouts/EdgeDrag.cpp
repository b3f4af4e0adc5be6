#include "EdgeDrag.h"

#include <algorithm>
#include <cmath>

namespace corvane {

EdgeDrag::EdgeDrag(WindowLayout layout, const PaneEdge &edge)
    : m_before(std::move(layout)), m_origin(edge), m_layout(m_before), m_edge(edge)
{
}

QList<double> EdgeDrag::snaps() const
{
    QList<double> snaps{0.25, 1.0 / 3, 0.5, 2.0 / 3, 0.75};
    const WindowLayout::Edges edges = m_before.edges(m_origin.display);
    for (const double each :
        m_origin.cut == CutLines::vertical ? edges.vertical : edges.horizontal) {
        if (each != m_origin.at)
            snaps << each;
    }
    std::ranges::sort(snaps);
    return snaps;
}

void EdgeDrag::moveTo(double fraction, double reach, Snapping snapping)
{
    if (snapping == Snapping::tenths)
        return place(std::round(fraction * 1000) / 1000);
    std::optional<double> nearest;
    for (const double snap : snaps()) {
        const double distance = std::abs(snap - fraction);
        if (distance <= reach && (!nearest || distance < std::abs(*nearest - fraction)))
            nearest = snap;
    }
    place(nearest.value_or(std::round(fraction * 100) / 100));
    if (nearest && m_edge.at == *nearest)
        m_snap = nearest;
}

void EdgeDrag::moveToNextSnap(int direction)
{
    QList<double> ahead = snaps();
    ahead.removeIf([&](double snap) { return (snap - m_edge.at) * direction < 0.001; });
    if (ahead.isEmpty())
        return moveToEnd(direction);
    const double next = direction < 0 ? ahead.last() : ahead.first();
    place(next);
    if (m_edge.at == next)
        m_snap = next;
}

// Always from the panes as they were, so that no pane keeps a trace of where the edge has been.
void EdgeDrag::place(double fraction)
{
    m_snap.reset();
    m_layout = m_before;
    m_layout.moveEdge(m_origin.display, m_origin.cut, m_origin.at, fraction, minimum);
    const auto moved = std::ranges::find_if(m_layout.panes, [&](const Pane &pane) {
        const auto before = std::ranges::find(m_before.panes, pane.id, &Pane::id);
        return before != m_before.panes.end() && before->rect != pane.rect;
    });
    m_edge.at = m_origin.at;
    if (moved != m_layout.panes.end()) {
        const Pane &before = *std::ranges::find(m_before.panes, moved->id, &Pane::id);
        const bool isUpright = m_origin.cut == CutLines::vertical;
        const double start = isUpright ? moved->rect.x : moved->rect.y;
        const double startBefore = isUpright ? before.rect.x : before.rect.y;
        const double extent = isUpright ? moved->rect.w : moved->rect.h;
        m_edge.at = start != startBefore ? start : start + extent;
    }
    m_isAtLimit = std::abs(m_edge.at - fraction) > 1e-9;
}

} // namespace corvane
