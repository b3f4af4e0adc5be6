#include "WindowAssignment.h"

#include "TitleLikeness.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <limits>
#include <numeric>
#include <tuple>

namespace corvane {

namespace {

constexpr double sameSpot = 4; // points; more than what window managers and size hints shift

/// What a pair costs, the weightiest reason first. Costs add up and are compared like numbers.
struct Cost {
    qint64 title = 0; ///< another title, in whole and in its words
    qint64 place = 0; ///< another place, in front or behind, and on the desk

    Cost &operator+=(const Cost &other)
    {
        title += other.title;
        place += other.place;
        return *this;
    }
    Cost &operator-=(const Cost &other)
    {
        title -= other.title;
        place -= other.place;
        return *this;
    }
    friend Cost operator-(Cost a, const Cost &b) { return a -= b; }
    friend auto operator<=>(const Cost &, const Cost &) = default;
};

constexpr Cost endless{std::numeric_limits<qint64>::max(), 0};

// Each reason has a range of its own in the sum, so that no number of lesser ones outweighs it.
constexpr qint64 mostPairs = 1 << 12;
constexpr qint64 wayRange = 1 << 10;
constexpr qint64 stackRange = 1 << 10;
constexpr qint64 likenessRange = 1 << 16;
constexpr qint64 stackUnit = wayRange * mostPairs;
constexpr qint64 moveUnit = stackUnit * stackRange * mostPairs;
constexpr qint64 titleUnit = likenessRange * mostPairs;

double wayBetween(const Rect &a, const Rect &b)
{
    return std::max({std::abs(a.minX() - b.minX()), std::abs(a.minY() - b.minY()),
        std::abs(a.maxX() - b.maxX()), std::abs(a.maxY() - b.maxY())});
}

qint64 placeCost(const WindowTraits &wish, const WindowTraits &window)
{
    const double way = wayBetween(wish.frame, window.frame);
    // Squares, so that a window more or less in front moves every place by one, and swaps none.
    const qint64 steps = std::clamp(std::abs(qint64(wish.stack) - window.stack), 0LL, 31LL);
    constexpr double pointsAStep = 8;
    return (way > sameSpot ? moveUnit : 0) + steps * steps * stackUnit
        + std::min(wayRange - 1, qint64(way / pointsAStep));
}

/// The costs of every pair, a row for each of the fewer ones.
class CostTable final
{
public:
    CostTable(const QList<WindowTraits> &wishes, const QList<WindowTraits> &windows)
        : m_isTurned(wishes.size() > windows.size())
        , m_rows(std::min(wishes.size(), windows.size()))
        , m_columns(std::max(wishes.size(), windows.size()))
        , m_costs(size_t(m_rows * m_columns))
    {
        QStringList titles;
        for (const WindowTraits &each : wishes + windows)
            titles << each.title;
        const TitleLikeness likeness(titles);
        for (qsizetype wish = 0; wish < wishes.size(); ++wish) {
            for (qsizetype window = 0; window < windows.size(); ++window) {
                const bool isSame = wishes[wish].title == windows[window].title;
                const double unlike = 1 - likeness.between(wish, wishes.size() + window);
                at(wish, window) = {
                    isSame ? 0 : titleUnit + std::llround(unlike * (likenessRange - 1)),
                    placeCost(wishes[wish], windows[window])};
            }
        }
    }

    [[nodiscard]] qsizetype rows() const { return m_rows; }
    [[nodiscard]] qsizetype columns() const { return m_columns; }
    [[nodiscard]] bool isTurned() const { return m_isTurned; }
    [[nodiscard]] const Cost &operator()(qsizetype row, qsizetype column) const
    {
        return m_costs[size_t(row * m_columns + column)];
    }

private:
    Cost &at(qsizetype wish, qsizetype window)
    {
        return m_costs[size_t(m_isTurned ? window * m_columns + wish : wish * m_columns + window)];
    }

    bool m_isTurned;
    qsizetype m_rows;
    qsizetype m_columns;
    std::vector<Cost> m_costs;
};

/// The assignment of least cost in all, by shortest augmenting paths (Kuhn 1955, Munkres 1957, with
/// the potentials of Edmonds and Karp 1972).
class Matching final
{
public:
    explicit Matching(const CostTable &costs)
        : m_costs(costs)
        , m_rowPotentials(size_t(costs.rows()))
        , m_columnPotentials(size_t(costs.columns()))
        , m_rowOf(size_t(costs.columns()), none)
    {
        for (qsizetype row = 0; row < costs.rows(); ++row)
            addRow(row);
    }

    /// By column; `none` for those that are left over.
    [[nodiscard]] const std::vector<qsizetype> &rows() const { return m_rowOf; }

    static constexpr qsizetype none = -1;

private:
    /// Finds the cheapest way to give `row` a column, for which others may have to change theirs.
    void addRow(qsizetype row)
    {
        std::vector<Cost> distance(m_rowOf.size(), endless);
        std::vector<qsizetype> before(m_rowOf.size(), none);
        std::vector<qsizetype> reached;
        std::vector<qsizetype> open(m_rowOf.size());
        std::iota(open.begin(), open.end(), 0);
        Cost soFar;
        qsizetype last = none;
        while (last == none || m_rowOf[size_t(last)] != none) {
            const qsizetype from = last == none ? row : m_rowOf[size_t(last)];
            size_t nearest = 0;
            for (size_t i = 0; i < open.size(); ++i) {
                const auto column = size_t(open[i]);
                Cost cost = m_costs(from, open[i]) - m_rowPotentials[size_t(from)];
                cost -= m_columnPotentials[column];
                cost += soFar;
                if (cost < distance[column]) {
                    distance[column] = cost;
                    before[column] = last;
                }
                if (distance[column] < distance[size_t(open[nearest])])
                    nearest = i;
            }
            last = open[nearest];
            soFar = distance[size_t(last)];
            open[nearest] = open.back();
            open.pop_back();
            reached.push_back(last);
        }
        m_rowPotentials[size_t(row)] += soFar;
        for (const qsizetype column : reached) {
            const Cost slack = soFar - distance[size_t(column)];
            m_columnPotentials[size_t(column)] -= slack;
            if (m_rowOf[size_t(column)] != none)
                m_rowPotentials[size_t(m_rowOf[size_t(column)])] += slack;
        }
        for (; before[size_t(last)] != none; last = before[size_t(last)])
            m_rowOf[size_t(last)] = m_rowOf[size_t(before[size_t(last)])];
        m_rowOf[size_t(last)] = row;
    }

    const CostTable &m_costs;
    std::vector<Cost> m_rowPotentials;
    std::vector<Cost> m_columnPotentials;
    std::vector<qsizetype> m_rowOf;
};

/// An order that does not depend on the one in the list, so that equal costs are settled the same way.
QList<qsizetype> settledOrder(const QList<WindowTraits> &traits)
{
    QList<qsizetype> order(std::min(traits.size(), qsizetype(mostPairs)));
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&traits](qsizetype index) {
        const auto &[title, stack, frame] = traits[index];
        return std::tuple(stack, title, frame.x, frame.y, frame.width, frame.height);
    });
    return order;
}

QList<WindowTraits> ordered(const QList<WindowTraits> &traits, const QList<qsizetype> &order)
{
    QList<WindowTraits> result;
    for (const qsizetype index : order)
        result << traits[index];
    return result;
}

} // namespace

QList<std::optional<qsizetype>> bestAssignment(
    const QList<WindowTraits> &wishes, const QList<WindowTraits> &windows)
{
    const QList<qsizetype> wishOrder = settledOrder(wishes);
    const QList<qsizetype> windowOrder = settledOrder(windows);
    const CostTable costs(ordered(wishes, wishOrder), ordered(windows, windowOrder));
    const Matching matching(costs);
    QList<std::optional<qsizetype>> result(wishes.size());
    for (qsizetype column = 0; column < costs.columns(); ++column) {
        const qsizetype row = matching.rows()[size_t(column)];
        if (row == Matching::none)
            continue;
        const qsizetype wish = costs.isTurned() ? column : row;
        const qsizetype window = costs.isTurned() ? row : column;
        result[wishOrder[wish]] = windowOrder[window];
    }
    return result;
}

} // namespace corvane
