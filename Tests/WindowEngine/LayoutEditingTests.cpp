#include "PaneSpan.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Spans = QList<PaneSpan>;

constexpr double minimum = 0.05;
constexpr double third = 1.0 / 3.0;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// On display 1, beside a pane of display 0 that no edit of display 1 may touch.
WindowLayout layoutOf(const QList<UnitRect> &rects)
{
    WindowLayout layout{.panes = {Pane{.id = {}}}};
    for (const UnitRect &rect : rects)
        layout.panes << Pane{.display = 1, .rect = rect};
    return layout;
}

WindowLayout bands(const Spans &spans, CutLines cut)
{
    WindowLayout layout = layoutOf(QList<UnitRect>(spans.size()));
    for (qsizetype i = 0; i < spans.size(); ++i)
        setSpan(layout.panes[i + 1].rect, cut, spans[i]);
    return layout;
}

void expectRects(const WindowLayout &layout, const QList<UnitRect> &expected)
{
    const QList<Pane> panes = layout.panesOn(1);
    EXPECT_EQ(layout.panesOn(0), layoutOf({}).panes);
    ASSERT_EQ(panes.size(), expected.size());
    for (qsizetype i = 0; i < panes.size(); ++i) {
        for (const CutLines cut : {CutLines::vertical, CutLines::horizontal}) {
            EXPECT_NEAR(spanOf(panes[i].rect, cut).start, spanOf(expected[i], cut).start, 1e-9);
            EXPECT_NEAR(spanOf(panes[i].rect, cut).length, spanOf(expected[i], cut).length, 1e-9);
        }
    }
}

void expectBands(const WindowLayout &layout, const Spans &expected, CutLines cut)
{
    QList<UnitRect> rects;
    for (const Pane &pane : bands(expected, cut).panesOn(1))
        rects << pane.rect;
    expectRects(layout, rects);
}

} // namespace

class BandEditingTests : public testing::TestWithParam<CutLines>
{
};

INSTANTIATE_TEST_SUITE_P(
    Both, BandEditingTests, testing::Values(CutLines::vertical, CutLines::horizontal));

TEST_P(BandEditingTests, theFirstNeighbourWithAWholeEdgeGrowsIntoTheSpace)
{
    struct Example {
        Spans before;
        int removed;
        Spans after;
    };
    const PaneSpan left{0, third};
    const PaneSpan middle{third, third};
    const PaneSpan right{2 * third, third};
    const Example examples[]{
        {{left, middle, right}, 1, {{0, 2 * third}, right}},
        {{right, middle, left}, 1, {{third, 2 * third}, left}},
        {{left, middle}, 0, {{0, 2 * third}}},
        {{{0, 0.503}, {0.5, 0.5}}, 1, {{0, 1}}},
        {{left, right}, 0, {right}},
    };

    for (const Example &example : examples) {
        WindowLayout layout = bands(example.before, GetParam());
        layout.remove(layout.panes[1 + example.removed].id);
        expectBands(layout, example.after, GetParam());
    }
}

TEST_P(BandEditingTests, panesOnBothSidesFollowAnEdgeAsFarAsTheyCan)
{
    struct Example {
        const char *what;
        Spans before;
        double from;
        double to;
        Spans after;
    };
    const Spans halves{{0, 0.5}, {0.5, 0.5}};
    const Spans withGap{{0, 0.3}, {0.6, 0.4}};
    const Spans narrow{{0, 0.04}, {0.04, 0.05}};
    const Example examples[]{
        {"both", halves, 0.503, 0.7, {{0, 0.7}, {0.7, 0.3}}},
        {"far minimum", halves, 0.5, 2, {{0, 0.95}, {0.95, 0.05}}},
        {"near minimum", halves, 0.5, -2, {{0, 0.05}, {0.05, 0.95}}},
        {"no edge there", halves, 0.51, 0.7, halves},
        {"no number", halves, 0.5, notANumber, halves},
        {"the display ends", {{0, 0.3}}, 0.3, 1.5, {{0, 1}}},
        {"a pane behind a gap", withGap, 0.3, 0.9, {{0, 0.6}, {0.6, 0.4}}},
        {"a pane before a gap", withGap, 0.6, 0.1, {{0, 0.3}, {0.3, 0.7}}},
        {"no room for two minimums", narrow, 0.04, 0.05, narrow},
        {"a pane that lies over it already", halves + Spans{{0.6, 0.2}}, 0.5, 0.7,
            {{0, 0.7}, {0.7, 0.3}, {0.6, 0.2}}},
    };

    for (const Example &example : examples) {
        SCOPED_TRACE(example.what);
        WindowLayout layout = bands(example.before, GetParam());
        layout.moveEdge(1, GetParam(), example.from, example.to, minimum);
        expectBands(layout, example.after, GetParam());
    }
}

TEST_P(BandEditingTests, theNextBandAbsorbsAChangeAndKeepsItsMinimum)
{
    struct Example {
        int index;
        double fraction;
        Spans after;
    };
    const Spans thirds{{0, third}, {third, third}, {2 * third, third}};
    const PaneSpan last = thirds[2];
    const Example examples[]{
        {0, 0.5, {{0, 0.5}, {0.5, 2 * third - 0.5}, last}},
        {0, 0.65, {{0, 2 * third - 0.05}, {2 * third - 0.05, 0.05}, last}},
        {2, 0.5, {{0, third}, {third, 2 * third - 0.5}, {0.5, 0.5}}},
        {3, 0.5, thirds},
        {-1, 0.5, thirds},
        {0, notANumber, thirds},
    };

    for (const Example &example : examples) {
        SCOPED_TRACE(example.index);
        WindowLayout layout = bands(thirds, GetParam());
        layout.setGridBand(1, GetParam(), example.index, example.fraction, minimum);
        expectBands(layout, example.after, GetParam());
    }
}

TEST_P(BandEditingTests, theLastBandSplitsInTwoUnlessItIsNarrowAndMergesBack)
{
    const Spans two{{0, 0.9}, {0.9, 0.1}};
    WindowLayout layout = bands(two, GetParam());
    const CutLines other = crossing(GetParam());

    layout.addGridBand(1, GetParam(), minimum);
    layout.addGridBand(1, GetParam(), minimum);
    expectBands(layout, {{0, 0.9}, {0.9, 0.05}, {0.95, 0.05}}, GetParam());
    layout.addGridBand(1, other, minimum);
    EXPECT_EQ(layout.panesOn(1).size(), 6);
    layout.removeGridBand(1, other);
    layout.removeGridBand(1, other);
    layout.removeGridBand(1, GetParam());
    expectBands(layout, two, GetParam());
    layout.removeGridBand(1, GetParam());
    layout.removeGridBand(1, GetParam());
    expectBands(layout, {{0, 1}}, GetParam());
}

TEST(LayoutEditingTests, aSplitLeavesTheAppInTheFirstHalfAndPutsTheOtherDirectlyAfter)
{
    WindowLayout layout = layoutOf({{0, 0, 0.5, 1}, {0.5, 0, 0.5, 1}});
    layout.panes[1].app = AppRef{u"org.example.Mail"_s, u"Mail"_s};
    layout.panes[1].launch = false;
    const Pane before = layout.panes[1];

    layout.split(before.id, CutLines::vertical);
    layout.split(layout.panes[2].id, CutLines::horizontal);

    expectRects(
        layout, {{0, 0, 0.25, 1}, {0.25, 0, 0.25, 0.5}, {0.25, 0.5, 0.25, 0.5}, {0.5, 0, 0.5, 1}});
    EXPECT_EQ(layout.panes[1].app, before.app);
    EXPECT_EQ(layout.panes[1].id, before.id);
    const Pane added = layout.panes[2];
    EXPECT_EQ(added, (Pane{.id = added.id, .display = 1, .rect = added.rect}));
}

TEST(LayoutEditingTests, theEdgesToDragAreDistinctAndNotTheDisplaysOwn)
{
    const WindowLayout layout =
        layoutOf({{0, 0, 0.5, 0.5}, {0.502, 0, 0.498, 0.5}, {0.002, 0.5, 0.998, 0.499}});

    EXPECT_EQ(layout.edges(1).vertical, QList{0.5});
    EXPECT_EQ(layout.edges(1).horizontal, QList{0.5});
    EXPECT_EQ(WindowLayout::distinct({0.3, 0.006, 0.0, 0.003, 0.3}), (QList{0.0, 0.006, 0.3}));
}

TEST(LayoutEditingTests, panesAreAGridWhenEachCellHoldsOne)
{
    const UnitRect topLeft{0, 0, 0.5, 0.5};
    const UnitRect topRight{0.5, 0, 0.5, 0.5};
    const UnitRect bottomLeft{0, 0.5, 0.5, 0.5};
    const UnitRect bottomRight{0.5, 0.501, 0.5, 0.499};
    const QList<UnitRect> notGrids[]{{}, {topLeft}, {topLeft, topRight, bottomLeft},
        {topLeft, topLeft, topRight, bottomLeft}, {{0, 0, 1, 0.5}, bottomLeft, bottomRight},
        {{0, 0, 0, 1}, {0, 0, 1, 1}}, {{1, 0, -1, 1}}};

    const auto grid = layoutOf({bottomRight, topLeft, bottomLeft, topRight}).grid(1);

    ASSERT_TRUE(grid);
    EXPECT_EQ(grid->cells[1][0].rect, bottomLeft);
    EXPECT_EQ(grid->cells[1][1].rect, bottomRight);
    for (const QList<UnitRect> &rects : notGrids)
        EXPECT_FALSE(layoutOf(rects).grid(1)) << rects.size();
}

TEST(LayoutEditingTests, newBandsTakeOverTheAppsInReadingOrder)
{
    WindowLayout layout = layoutOf({{0.5, 0, 0.5, 1}, {0, 0, 0.25, 1}, {0.25, 0, 0.25, 1}});
    layout.panes[1].app = layout.panes[2].app = AppRef{};
    const QList<Pane> before = layout.panesOn(1);

    layout.setSplit(1, {0.4, 0.6}, CutLines::horizontal);

    expectBands(layout, {{0, 0.4}, {0.4, 0.6}}, CutLines::horizontal);
    EXPECT_EQ(layout.panesOn(1)[0].id, before[1].id);
    EXPECT_EQ(layout.panesOn(1)[1].id, before[0].id);
}

TEST(LayoutEditingTests, whatFitsNoDisplayChangesNothing)
{
    const WindowLayout before = layoutOf({{0, 0, 1, 1}});
    const QList<Pane> cells = before.panesOn(1);
    WindowLayout layout = before;

    for (const QList<double> &fractions : {QList<double>{}, {0.5, 0.0}, {0.7, 0.4}, {notANumber}})
        layout.setSplit(1, fractions, CutLines::vertical);
    layout.setGrid(1, {{0.5, 0.5}, {1}, {cells}});
    layout.setGrid(1, {{1}, {0.5, 0.5}, {cells}});
    layout.setGrid(1, {{notANumber}, {1}, {cells}});

    EXPECT_EQ(layout, before);
}

TEST(LayoutEditingTests, fractionsAreNumbersBetweenCommasSlashesAndSpaces)
{
    const std::pair<QString, QList<double>> good[]{
        {u"40 / 30 / 30"_s, {0.4, 0.3, 0.3}},
        {u" 40,\t30\n30,"_s, {0.4, 0.3, 0.3}},
        {u"1 0 -5 3"_s, {0.25, 0.75}},
    };
    const QString bad[]{u"40 / x"_s, u"40%"_s, u"0 0"_s, u" ,/ "_s, u"nan 1"_s, u"1 inf"_s,
        u"1e999"_s, u"1e308 1e308"_s, u"1e-300 1e300"_s};

    for (const auto &[text, fractions] : good)
        EXPECT_EQ(WindowLayout::parseFractions(text), fractions) << qPrintable(text);
    for (const QString &text : bad)
        EXPECT_EQ(WindowLayout::parseFractions(text), std::nullopt) << qPrintable(text);
}

} // namespace corvane
