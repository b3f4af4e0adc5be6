#include "PaneSpan.h"

#include <algorithm>

namespace corvane {

namespace {

/// Edges that meet only nearly would otherwise push the pane out of the display by the difference.
PaneSpan insideDisplay(PaneSpan grown, PaneSpan before)
{
    const double excess = grown.end() - std::max(1.0, before.end());
    return {grown.start, excess > roundingError ? grown.length - excess : grown.length};
}

/// Absent unless the two share a whole edge that such lines cut along.
std::optional<UnitRect> grownInto(const UnitRect &rect, const UnitRect &space, CutLines cut)
{
    const PaneSpan across = spanOf(rect, crossing(cut));
    const PaneSpan spaceAcross = spanOf(space, crossing(cut));
    if (!sameEdge(across.start, spaceAcross.start) || !sameEdge(across.length, spaceAcross.length))
        return std::nullopt;
    const PaneSpan before = spanOf(rect, cut);
    const PaneSpan freed = spanOf(space, cut);
    PaneSpan span{before.start, before.length + freed.length};
    if (!sameEdge(before.end(), freed.start)) {
        if (!sameEdge(before.start, freed.end()))
            return std::nullopt;
        span.start = freed.start;
    }
    UnitRect grown = rect;
    setSpan(grown, cut, insideDisplay(span, before));
    return grown;
}

std::optional<UnitRect> grownInto(const UnitRect &rect, const UnitRect &space)
{
    const std::optional<UnitRect> sideways = grownInto(rect, space, CutLines::vertical);
    return sideways ? sideways : grownInto(rect, space, CutLines::horizontal);
}

/// Where an edge may go.
struct Room {
    double low = 0;
    double high = 1;
};

/// A drag of one edge: the panes that end or start at it, and where it may go.
class EdgeDrag final
{
public:
    EdgeDrag(const QList<Pane> &panes, CutLines cut, double from) : m_cut(cut), m_edges{from}
    {
        gatherEdges(panes);
        for (const Pane &pane : panes)
            (touches(pane.rect) ? m_moving : m_still).append(pane.rect);
    }

    Room room(double minimum) const
    {
        Room room;
        for (const UnitRect &rect : m_moving) {
            if (endsHere(rect))
                room.low = std::max(room.low, spanOf(rect, m_cut).start + minimum);
            if (startsHere(rect))
                room.high = std::min(room.high, spanOf(rect, m_cut).end() - minimum);
        }
        for (const UnitRect &rect : m_still)
            stopAt(room, rect);
        return room;
    }

    void move(UnitRect &rect, double to) const
    {
        const PaneSpan span = spanOf(rect, m_cut);
        if (endsHere(rect))
            setSpan(rect, m_cut, {span.start, to - span.start});
        else if (startsHere(rect))
            setSpan(rect, m_cut, {to, span.end() - to});
    }

private:
    /// An edge that is the same as one that moves is moved, too, and so on: else a pane beside it, whose
    /// edge is that much further off, would be left behind a gap.
    void gatherEdges(const QList<Pane> &panes)
    {
        for (qsizetype known = 0; known != m_edges.size();) {
            known = m_edges.size();
            for (const Pane &pane : panes) {
                const PaneSpan span = spanOf(pane.rect, m_cut);
                for (const double edge : {span.start, span.end()}) {
                    if (isHere(edge) && !m_edges.contains(edge))
                        m_edges << edge;
                }
            }
        }
    }
    bool isHere(double edge) const
    {
        return std::ranges::any_of(m_edges, [edge](double each) { return sameEdge(each, edge); });
    }
    bool endsHere(const UnitRect &rect) const { return isHere(spanOf(rect, m_cut).end()); }
    bool startsHere(const UnitRect &rect) const { return isHere(spanOf(rect, m_cut).start); }
    bool touches(const UnitRect &rect) const { return endsHere(rect) || startsHere(rect); }

    /// Where no pane gives way, across a gap, the growing one stops at the pane behind. A pane that
    /// lies over a moving one already stops nothing: the user sees that they overlap.
    void stopAt(Room &room, const UnitRect &obstacle) const
    {
        const auto overlapsObstacle = [&](const UnitRect &rect) { return overlap(rect, obstacle); };
        if (std::ranges::any_of(m_moving, overlapsObstacle))
            return;
        const PaneSpan fixed = spanOf(obstacle, m_cut);
        for (const UnitRect &rect : m_moving) {
            if (!overlap(spanOf(rect, crossing(m_cut)), spanOf(obstacle, crossing(m_cut))))
                continue;
            const PaneSpan span = spanOf(rect, m_cut);
            if (endsHere(rect) && fixed.start + edgeTolerance >= span.end())
                room.high = std::min(room.high, std::max(fixed.start, span.end()));
            if (startsHere(rect) && fixed.end() - edgeTolerance <= span.start)
                room.low = std::max(room.low, std::min(fixed.end(), span.start));
        }
    }

    CutLines m_cut;
    QList<double> m_edges; ///< that move
    QList<UnitRect> m_moving;
    QList<UnitRect> m_still;
};

bool fitDisplay(const QList<double> &fractions)
{
    double total = 0;
    for (const double fraction : fractions) {
        if (!(fraction > 0))
            return false;
        total += fraction;
    }
    return total > 0 && total <= 1 + roundingError;
}

bool readsBefore(const Pane &a, const Pane &b)
{
    return sameEdge(a.rect.y, b.rect.y) ? a.rect.x < b.rect.x : a.rect.y < b.rect.y;
}

QList<double> innerEdges(const QList<Pane> &panes, CutLines cut)
{
    QList<double> positions;
    for (const Pane &pane : panes) {
        const PaneSpan span = spanOf(pane.rect, cut);
        for (const double edge : {span.start, span.end()}) {
            if (edge >= edgeTolerance && edge <= 1 - edgeTolerance)
                positions << edge;
        }
    }
    return WindowLayout::distinct(positions);
}

} // namespace

void WindowLayout::split(const QUuid &paneID, CutLines cut)
{
    const auto pane = std::ranges::find(panes, paneID, &Pane::id);
    if (pane == panes.end())
        return;
    const PaneSpan whole = spanOf(pane->rect, cut);
    const double half = whole.length / 2;
    setSpan(pane->rect, cut, {whole.start, half});
    Pane added{.display = pane->display, .rect = pane->rect};
    setSpan(added.rect, cut, {whole.start + half, half});
    panes.insert(pane + 1, added);
}

void WindowLayout::remove(const QUuid &paneID)
{
    const auto pane = std::ranges::find(panes, paneID, &Pane::id);
    if (pane == panes.end())
        return;
    const Pane removed = *pane;
    panes.erase(pane);
    const QList<Pane> others = panesOn(removed.display);
    for (const Pane &other : others) {
        const std::optional<UnitRect> grown = grownInto(other.rect, removed.rect);
        // A neighbour beyond a pane that is narrower than the tolerance only seems to be one.
        const auto isRunOver = [&](const Pane &third) {
            return third != other && overlap(third.rect, *grown) && !overlap(third.rect, other.rect)
                && !overlap(third.rect, removed.rect);
        };
        if (grown && std::ranges::none_of(others, isRunOver)) {
            std::ranges::find(panes, other)->rect = *grown;
            return;
        }
    }
}

void WindowLayout::moveEdge(int display, CutLines cut, double from, double to, double minimum)
{
    const EdgeDrag drag(panesOn(display), cut, from);
    const Room room = drag.room(minimum);
    if (!std::isfinite(to) || !std::isfinite(minimum) || room.low > room.high)
        return;
    for (Pane &pane : panes) {
        if (pane.display == display)
            drag.move(pane.rect, std::clamp(to, room.low, room.high));
    }
}

WindowLayout::Edges WindowLayout::edges(int display) const
{
    const QList<Pane> own = panesOn(display);
    return {innerEdges(own, CutLines::vertical), innerEdges(own, CutLines::horizontal)};
}

void WindowLayout::setSplit(int display, const QList<double> &fractions, CutLines cut)
{
    if (!fitDisplay(fractions))
        return;
    QList<Pane> kept = panesOn(display);
    kept.removeIf([](const Pane &pane) { return !pane.app; });
    std::ranges::stable_sort(kept, readsBefore);

    PaneGrid grid;
    QList<Pane> bands = kept.first(std::min(kept.size(), fractions.size()));
    while (bands.size() < fractions.size()) {
        Pane band;
        band.display = display;
        bands << band;
    }
    if (cut == CutLines::vertical) {
        grid = {fractions, {1}, {bands}};
    } else {
        grid = {{1}, fractions, {}};
        for (const Pane &band : bands)
            grid.cells << QList{band};
    }
    setGrid(display, grid);
}

std::optional<QList<double>> WindowLayout::parseFractions(QStringView text)
{
    QString separated = text.toString();
    separated.replace(u',', u' ').replace(u'/', u' ');
    QList<double> fractions;
    double total = 0;
    for (const QString &piece : separated.simplified().split(u' ', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const double number = piece.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return std::nullopt;
        if (number > 0) {
            fractions << number;
            total += number;
        }
    }
    for (double &fraction : fractions) {
        fraction /= total;
        // Numbers too far apart for a double leave nothing of the smaller one.
        if (!(fraction > 0))
            return std::nullopt;
    }
    return fractions.isEmpty() ? std::nullopt : std::optional(fractions);
}

QList<double> WindowLayout::distinct(QList<double> values)
{
    std::ranges::sort(values);
    QList<double> kept;
    for (const double value : values) {
        if (kept.isEmpty() || value - kept.last() >= edgeTolerance)
            kept << value;
    }
    return kept;
}

} // namespace corvane
