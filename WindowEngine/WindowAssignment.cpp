#include "WindowAssignment.h"

#include "TitleLikeness.h"

#include <QtCore/QMap>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <tuple>

namespace corvane {

namespace {

constexpr double sameSpot = 4; // points; more than what window managers and size hints shift

/// What a pair costs. Each reason has a range of its own in the sum, so that no number of lesser ones
/// outweighs it: another title, another place on the desk, another one in the stack, the way.
using Cost = qint64;

constexpr Cost endless = std::numeric_limits<Cost>::max();
constexpr Cost mostPairs = 1 << 10;
constexpr Cost wayRange = 1 << 6;
constexpr Cost stackRange = 1 << 6;
constexpr Cost likenessRange = 1 << 7;
constexpr Cost stackUnit = wayRange * mostPairs;
constexpr Cost moveUnit = stackUnit * stackRange * mostPairs;
constexpr Cost likenessUnit = moveUnit * 2 * mostPairs;

double wayBetween(const Rect &a, const Rect &b)
{
    return std::max({std::abs(a.minX() - b.minX()), std::abs(a.minY() - b.minY()),
        std::abs(a.maxX() - b.maxX()), std::abs(a.maxY() - b.maxY())});
}

Cost placeCost(const WindowTraits &wish, const WindowTraits &window)
{
    constexpr double pointsAStep = 32;
    constexpr qint64 mostSteps = 7;
    const double way = wayBetween(wish.frame, window.frame);
    // Squares, so that a window more or less in front moves every place by one, and swaps none.
    const qint64 steps = std::min(std::abs(qint64(wish.stack) - window.stack), mostSteps);
    return (way > sameSpot ? moveUnit : 0) + steps * steps * stackUnit
        + std::min(wayRange - 1, Cost(way / pointsAStep));
}

/// The costs of every pair, a row for each of the fewer ones.
class CostTable final
{
public:
    template <typename Function>
    CostTable(qsizetype wishes, qsizetype windows, Function cost)
        : m_isTurned(wishes > windows)
        , m_rows(std::min(wishes, windows))
        , m_columns(std::max(wishes, windows))
    {
        m_costs.reserve(size_t(m_rows * m_columns));
        for (qsizetype row = 0; row < m_rows; ++row) {
            for (qsizetype column = 0; column < m_columns; ++column)
                m_costs.push_back(m_isTurned ? cost(column, row) : cost(row, column));
        }
    }

    [[nodiscard]] qsizetype rows() const { return m_rows; }
    [[nodiscard]] qsizetype columns() const { return m_columns; }
    [[nodiscard]] bool isTurned() const { return m_isTurned; }
    [[nodiscard]] const Cost *row(qsizetype row) const { return &m_costs[size_t(row * m_columns)]; }

private:
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
        Cost soFar = 0;
        qsizetype last = none;
        while (last == none || m_rowOf[size_t(last)] != none) {
            const qsizetype from = last == none ? row : m_rowOf[size_t(last)];
            const Cost *costs = m_costs.row(from);
            const Cost offset = soFar - m_rowPotentials[size_t(from)];
            size_t nearest = 0;
            for (size_t i = 0; i < open.size(); ++i) {
                const auto column = size_t(open[i]);
                const Cost cost = costs[column] - m_columnPotentials[column] + offset;
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

using Indices = QList<qsizetype>;
using Pairs = QList<std::pair<qsizetype, qsizetype>>;

/// Of `wishes` and `windows`, both by their places in these lists.
template <typename Function>
Pairs cheapestPairs(qsizetype wishes, qsizetype windows, Function cost)
{
    const CostTable costs(wishes, windows, cost);
    const Matching matching(costs);
    Pairs pairs;
    for (qsizetype column = 0; column < costs.columns(); ++column) {
        if (const qsizetype row = matching.rows()[size_t(column)]; row != Matching::none)
            pairs << (costs.isTurned() ? std::pair(column, row) : std::pair(row, column));
    }
    return pairs;
}

/// An order that does not depend on the list's, so that equal costs are settled the same way.
Indices settledOrder(const QList<WindowTraits> &traits)
{
    Indices order(std::min(traits.size(), qsizetype(mostPairs)));
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&traits](qsizetype index) {
        const auto &[title, stack, frame] = traits[index];
        return std::tuple(title, stack, frame.x, frame.y, frame.width, frame.height);
    });
    return order;
}

} // namespace

QList<std::optional<qsizetype>> bestAssignment(
    const QList<WindowTraits> &wishes, const QList<WindowTraits> &windows)
{
    QList<std::optional<qsizetype>> result(wishes.size());
    Indices wishesLeft = settledOrder(wishes);
    Indices windowsLeft = settledOrder(windows);
    const auto settle = [&](const Indices &wished, const Indices &present, auto cost) {
        const Pairs pairs = cheapestPairs(wished.size(), present.size(), cost);
        for (const auto &[wish, window] : pairs) {
            result[wished[wish]] = present[window];
            wishesLeft.removeOne(wished[wish]);
            windowsLeft.removeOne(present[window]);
        }
    };

    // Namesakes differ in their places only, so that nothing is lost by settling them first.
    QMap<QString, std::pair<Indices, Indices>> namesakes;
    for (const qsizetype wish : std::as_const(wishesLeft))
        namesakes[wishes[wish].title].first << wish;
    for (const qsizetype window : std::as_const(windowsLeft))
        namesakes[windows[window].title].second << window;
    for (const auto &group : std::as_const(namesakes))
        settle(group.first, group.second, [&](qsizetype wish, qsizetype window) {
            return placeCost(wishes[group.first[wish]], windows[group.second[window]]);
        });

    const Indices wished = wishesLeft;
    const Indices present = windowsLeft;
    QStringList titles;
    for (const qsizetype wish : wished)
        titles << wishes[wish].title;
    for (const qsizetype window : present)
        titles << windows[window].title;
    const TitleLikeness likeness(titles);
    settle(wished, present, [&](qsizetype wish, qsizetype window) {
        const double unlike = 1 - likeness.between(wish, wished.size() + window);
        return Cost(unlike * (likenessRange - 1)) * likenessUnit
            + placeCost(wishes[wished[wish]], windows[present[window]]);
    });
    return result;
}

} // namespace corvane
