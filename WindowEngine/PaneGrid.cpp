#include "PaneGrid.h"

#include "PaneSpan.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double sumTolerance = 0.001;

/// The columns or the rows that a display's panes make.
struct Bands {
    QList<double> edges;

    qsizetype count() const { return std::max<qsizetype>(edges.size() - 1, 0); }

    bool coverDisplay() const
    {
        return count() > 0 && std::abs(edges.last() - edges.first() - 1) <= sumTolerance;
    }

    /// The band that a pane fills exactly.
    std::optional<qsizetype> indexOf(PaneSpan span) const
    {
        const qsizetype first = edgeIndex(span.start);
        return edgeIndex(span.end()) == first + 1 ? std::optional(first) : std::nullopt;
    }

    QList<double> sizes() const
    {
        QList<double> sizes;
        for (qsizetype i = 0; i < count(); ++i)
            sizes << edges[i + 1] - edges[i];
        return sizes;
    }

private:
    /// Each of the panes' edges is the same as the last kept one not beyond it.
    qsizetype edgeIndex(double position) const
    {
        return std::ranges::upper_bound(edges, position) - edges.begin() - 1;
    }
};

Bands bandsOf(const QList<Pane> &panes, CutLines cut)
{
    QList<double> edges;
    for (const Pane &pane : panes) {
        const PaneSpan span = spanOf(pane.rect, cut);
        edges << span.start << span.end();
    }
    return {WindowLayout::distinct(edges)};
}

QList<double> &bandSizes(PaneGrid &grid, CutLines cut)
{
    return cut == CutLines::vertical ? grid.columns : grid.rows;
}

Pane newPane(int display)
{
    return {.display = display};
}

void appendCells(PaneGrid &grid, int display, CutLines cut)
{
    if (cut == CutLines::vertical) {
        for (QList<Pane> &row : grid.cells)
            row << newPane(display);
        return;
    }
    QList<Pane> row;
    for (qsizetype column = 0; column < grid.columns.size(); ++column)
        row << newPane(display);
    grid.cells << row;
}

void dropLastCells(PaneGrid &grid, CutLines cut)
{
    if (cut == CutLines::horizontal) {
        grid.cells.removeLast();
        return;
    }
    for (QList<Pane> &row : grid.cells)
        row.removeLast();
}

bool isWellFormed(const PaneGrid &grid)
{
    const auto isSize = [](double size) { return std::isfinite(size) && size > 0; };
    const auto isFull = [&grid](
                            const QList<Pane> &row) { return row.size() == grid.columns.size(); };
    return grid.cells.size() == grid.rows.size() && std::ranges::all_of(grid.cells, isFull)
        && std::ranges::all_of(grid.columns, isSize) && std::ranges::all_of(grid.rows, isSize);
}

QList<Pane> laidOut(const PaneGrid &grid, int display)
{
    QList<Pane> panes;
    double y = 0;
    for (qsizetype row = 0; row < grid.rows.size(); ++row) {
        double x = 0;
        for (qsizetype column = 0; column < grid.columns.size(); ++column) {
            Pane pane = grid.cells[row][column];
            pane.display = display;
            pane.rect = {x, y, grid.columns[column], grid.rows[row]};
            panes << pane;
            x += grid.columns[column];
        }
        y += grid.rows[row];
    }
    return panes;
}

} // namespace

std::optional<PaneGrid> WindowLayout::grid(int display) const
{
    const QList<Pane> own = panesOn(display);
    const Bands columns = bandsOf(own, CutLines::vertical);
    const Bands rows = bandsOf(own, CutLines::horizontal);
    if (!columns.coverDisplay() || !rows.coverDisplay()
        || own.size() != columns.count() * rows.count())
        return std::nullopt;

    QList<QList<const Pane *>> cells(rows.count(), QList<const Pane *>(columns.count()));
    for (const Pane &pane : own) {
        const auto column = columns.indexOf(spanOf(pane.rect, CutLines::vertical));
        const auto row = rows.indexOf(spanOf(pane.rect, CutLines::horizontal));
        if (!column || !row || cells[*row][*column])
            return std::nullopt;
        cells[*row][*column] = &pane;
    }

    PaneGrid grid{columns.sizes(), rows.sizes(), {}};
    for (const QList<const Pane *> &row : cells) {
        QList<Pane> line;
        for (const Pane *pane : row)
            line << *pane;
        grid.cells << line;
    }
    return grid;
}

void WindowLayout::setGrid(int display, const PaneGrid &grid)
{
    if (!isWellFormed(grid))
        return;
    const auto isOwn = [display](const Pane &pane) { return pane.display == display; };
    const qsizetype position = std::ranges::find_if(panes, isOwn) - panes.begin();
    panes.removeIf(isOwn);
    const QList<Pane> cells = laidOut(grid, display);
    panes = panes.first(position) + cells + panes.sliced(position);
}

void WindowLayout::setGridBand(
    int display, CutLines cut, int index, double fraction, double minimum)
{
    std::optional<PaneGrid> grid = this->grid(display);
    if (!grid)
        return;
    QList<double> &sizes = bandSizes(*grid, cut);
    if (sizes.size() < 2 || index < 0 || index >= sizes.size())
        return;
    double &band = sizes[index];
    double &partner = index + 1 < sizes.size() ? sizes[index + 1] : sizes[index - 1];
    const double total = band + partner;
    band = std::min(std::max(fraction, minimum), total - minimum);
    partner = total - band;
    // A band too narrow to have two edges of its own would end the grid.
    constexpr double narrowest = edgeTolerance + roundingError;
    if (band >= narrowest && partner >= narrowest)
        setGrid(display, *grid);
}

void WindowLayout::addGridBand(int display, CutLines cut, double minimum)
{
    std::optional<PaneGrid> grid = this->grid(display);
    if (!grid)
        return;
    QList<double> &sizes = bandSizes(*grid, cut);
    const double half = sizes.last() / 2;
    if (half < minimum - roundingError)
        return;
    sizes.last() = half;
    sizes << half;
    appendCells(*grid, display, cut);
    setGrid(display, *grid);
}

void WindowLayout::removeGridBand(int display, CutLines cut)
{
    std::optional<PaneGrid> grid = this->grid(display);
    if (!grid || bandSizes(*grid, cut).size() < 2)
        return;
    QList<double> &sizes = bandSizes(*grid, cut);
    const double dropped = sizes.takeLast();
    sizes.last() += dropped;
    dropLastCells(*grid, cut);
    setGrid(display, *grid);
}

} // namespace corvane
