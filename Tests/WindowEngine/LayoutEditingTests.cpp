#include "LayoutHistory.h"
#include "PaneSpan.h"
#include "Testing.h"

#include <cmath>

namespace corvane {

namespace {

constexpr double minimum = 0.05;
const QList<CutLines> bothCuts{CutLines::vertical, CutLines::horizontal};

/// Bands from edge to edge in percent of the display, such as "0-50 50-100".
WindowLayout bands(const QString &text, CutLines cut)
{
    WindowLayout layout;
    for (const QString &band : text.split(u' ')) {
        const double start = band.section(u'-', 0, 0).toDouble() / 100;
        layout.panes << Pane{};
        setSpan(layout.panes.last().rect, cut,
            {start, band.section(u'-', 1, 1).toDouble() / 100 - start});
    }
    return layout;
}

std::string textOf(const WindowLayout &layout, CutLines cut)
{
    const auto percent = [](double part) { return double(std::lround(part * 1e4)) / 100; };
    QStringList texts;
    for (const Pane &pane : layout.panes) {
        const PaneSpan span = spanOf(pane.rect, cut);
        texts << u"%1-%2"_s.arg(percent(span.start)).arg(percent(span.end()));
    }
    return texts.join(u' ').toStdString();
}

enum class Edit { split, remove, drag, type, add, drop };

/// Of the pane or band with the number `a`, or of the edge that is there.
void perform(Edit edit, double a, double b, WindowLayout &layout, CutLines cut)
{
    switch (edit) {
    case Edit::split:
        return layout.split(layout.panes[int(a)].id, cut);
    case Edit::remove:
        return layout.remove(layout.panes[int(a)].id);
    case Edit::drag:
        return layout.moveEdge(0, cut, a, b, minimum);
    case Edit::type:
        return layout.setGridBand(0, cut, int(a), b, minimum);
    case Edit::add:
        return layout.addGridBand(0, cut, minimum);
    case Edit::drop:
        return layout.removeGridBand(0, cut);
    }
}

} // namespace

RC_GTEST_PROP(LayoutEditingProperties, editsKeepPanesInsideTheirDisplayAndApart, ())
{
    constexpr double rounding = 1e-6;
    const Pane bystander{.display = 1};
    WindowLayout layout{.panes = {Pane{}, bystander}};

    for (int edits = between(0, 40); edits > 0 && layout.panes.first() != bystander; --edits) {
        const CutLines cut = anyOf(bothCuts);
        const int index = between(0, int(layout.panes.size()) - 2);
        const auto edit = Edit(between(0, 5));
        const double edge = spanOf(layout.panes[index].rect, cut).end();
        perform(edit, edit == Edit::drag ? edge : index, between(-10, 110) * 0.01, layout, cut);

        RC_ASSERT(layout.panes.last() == bystander);
        for (const Pane &pane : layout.panesOn(0)) {
            const auto &[x, y, w, h] = pane.rect;
            RC_ASSERT(x >= -rounding && w > 0 && x + w <= 1 + rounding);
            RC_ASSERT(y >= -rounding && h > 0 && y + h <= 1 + rounding);
            for (const Pane &other : layout.panesOn(0))
                RC_ASSERT(other == pane || !overlap(other.rect, pane.rect));
        }
    }
}

TEST(LayoutEditingTests, anEditOfBandsGivesTheBandsBesideIt)
{
    using enum Edit;
    const std::tuple<QString, Edit, double, double, std::string> examples[]{
        // The first neighbour in the list with a whole edge grows.
        {u"0-30 30-60 60-100"_s, remove, 1, 0, "0-60 60-100"},
        {u"60-100 30-60 0-30"_s, remove, 1, 0, "30-100 0-30"},
        {u"0-50.3 50-100"_s, remove, 1, 0, "0-100"},
        {u"0-30 60-100"_s, remove, 0, 0, "60-100"},
        // Panes on both sides follow as far as they can, and no further than a pane behind a gap.
        {u"0-50 50-100"_s, drag, 0.503, 0.7, "0-70 70-100"},
        {u"0-50 50.3-100 0-50.3 50.6-100"_s, drag, 0.5, 0.7, "0-70 70-100 0-70 70-100"},
        {u"0-50 50-100"_s, drag, 0.5, 2, "0-95 95-100"},
        {u"0-50 50-100"_s, drag, 0.51, 0.7, "0-50 50-100"},
        {u"0-50 50-100"_s, drag, 0.5, notANumber, "0-50 50-100"},
        {u"0-30 60-100"_s, drag, 0.3, 0.9, "0-60 60-100"},
        {u"0-30 60-100"_s, drag, 0.6, 0.1, "0-30 30-100"},
        {u"0-4 4-9"_s, drag, 0.04, 0.05, "0-4 4-9"},
        {u"0-50 50-100 60-80"_s, drag, 0.5, 0.7, "0-70 70-100 60-80"},
        // The next band absorbs the change, for the last one the band before.
        {u"0-30 30-60 60-100"_s, type, 0, 0.7, "0-55 55-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, 0, -1, "0-5 5-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, 2, 0.5, "0-30 30-50 50-100"},
        {u"0-30 30-60 60-100"_s, type, 3, 0.5, "0-30 30-60 60-100"},
        {u"0-30 60-100"_s, type, 0, 0.5, "0-30 60-100"}, // no grid
        {u"0-90 90-100"_s, add, 0, 0, "0-90 90-95 95-100"},
        {u"0-91 91-100"_s, add, 0, 0, "0-91 91-100"},
        {u"0-90 90-95 95-100"_s, drop, 0, 0, "0-90 90-100"},
        {u"0-60 60-100"_s, split, 0, 0, "0-30 30-60 60-100"},
    };

    for (const CutLines cut : bothCuts) {
        for (const auto &[before, edit, a, b, after] : examples) {
            WindowLayout layout = bands(before, cut);
            perform(edit, a, b, layout, cut);
            EXPECT_EQ(textOf(layout, cut), after) << qPrintable(before);
        }
    }
}

TEST(LayoutEditingTests, appsStayInTheFirstHalfAndInTheFirstBandsInReadingOrder)
{
    WindowLayout layout = bands(u"50-100 0-50"_s, CutLines::vertical);
    layout.panes[0].app = AppRef{};
    layout.panes[1].app = AppRef{u"org.example.Mail"_s, u"Mail"_s};
    const QList<Pane> before = layout.panes;

    layout.split(before[1].id, CutLines::horizontal);
    EXPECT_EQ(layout.panes[2], (Pane{.id = layout.panes[2].id, .rect = {0, 0.5, 0.5, 0.5}}));

    EXPECT_EQ(WindowLayout::parseFractions(u"40 / x"), std::nullopt);
    const QList<double> parts = *WindowLayout::parseFractions(u" 80,\t0 -5\n/ 120,");
    layout.setSplit(0, parts, CutLines::horizontal);
    EXPECT_EQ(textOf(layout, CutLines::horizontal), "0-40 40-100");
    EXPECT_TRUE(layout.panes[0].id == before[1].id && layout.panes[0].app == before[1].app);
    EXPECT_EQ(layout.panes[1].id, before[0].id);
}

TEST(LayoutHistoryTests, editsAreUndoneAndRedoneOneByOneUpToTheDepth)
{
    LayoutHistory history;
    QList<LayoutHistory::Layouts> versions{{WindowLayout{}}};
    for (int edit = 0; edit <= LayoutHistory::depth; ++edit) {
        history.record(QString::number(edit), versions.last());
        versions << LayoutHistory::Layouts{WindowLayout{}};
    }

    for (int edit = LayoutHistory::depth; edit > 0; --edit)
        EXPECT_EQ(history.undo(versions[edit + 1]), versions[edit]);
    EXPECT_EQ(history.undo(versions[1]), std::nullopt);
    EXPECT_EQ(history.redo(versions[1]), versions[2]);
    EXPECT_EQ(history.redoTitle(), u"2");
    history.record(u"another"_s, versions[2]);
    EXPECT_EQ(history.redo({}), std::nullopt);
    EXPECT_EQ(history.undo({}), versions[2]);
}

} // namespace corvane
