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

WindowLayout layoutOf(const QList<UnitRect> &rects)
{
    WindowLayout layout;
    for (const UnitRect &rect : rects)
        layout.panes << Pane{.rect = rect};
    return layout;
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
        if (between(0, 9) == 0)
            layout.panes.removeAt(index); // leaves a hole
        else
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
        {u"0-30 30-60"_s, remove, 0, 0, "0-60"},
        {u"0-50.3 50-100"_s, remove, 1, 0, "0-100"},
        {u"0-30 60-100"_s, remove, 0, 0, "60-100"},
        // Panes on both sides follow as far as they can, and no further than a pane behind a gap.
        {u"0-50 50-100"_s, drag, 0.503, 0.7, "0-70 70-100"},
        {u"0-50 50-100"_s, drag, 0.5, 2, "0-95 95-100"},
        {u"0-50 50-100"_s, drag, 0.5, -2, "0-5 5-100"},
        {u"0-50 50-100"_s, drag, 0.51, 0.7, "0-50 50-100"},
        {u"0-50 50-100"_s, drag, 0.5, notANumber, "0-50 50-100"},
        {u"0-30"_s, drag, 0.3, 1.5, "0-100"},
        {u"0-30 60-100"_s, drag, 0.3, 0.9, "0-60 60-100"},
        {u"0-30 60-100"_s, drag, 0.6, 0.1, "0-30 30-100"},
        {u"0-4 4-9"_s, drag, 0.04, 0.05, "0-4 4-9"},
        {u"0-50 50-100 60-80"_s, drag, 0.5, 0.7, "0-70 70-100 60-80"},
        // The next band absorbs the change, for the last one the band before.
        {u"0-30 30-60 60-100"_s, type, 0, 0.5, "0-50 50-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, 0, 0.7, "0-55 55-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, 0, -1, "0-5 5-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, 2, 0.5, "0-30 30-50 50-100"},
        {u"0-30 30-60 60-100"_s, type, 3, 0.5, "0-30 30-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, -1, 0.5, "0-30 30-60 60-100"},
        {u"0-30 30-60 60-100"_s, type, 0, notANumber, "0-30 30-60 60-100"},
        {u"0-90 90-100"_s, add, 0, 0, "0-90 90-95 95-100"},
        {u"0-91 91-100"_s, add, 0, 0, "0-91 91-100"},
        {u"0-90 90-95 95-100"_s, drop, 0, 0, "0-90 90-100"},
        {u"0-100"_s, drop, 0, 0, "0-100"},
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
    WindowLayout layout = layoutOf({{0.5, 0, 0.5, 1}, {0, 0, 0.5, 1}});
    layout.panes[1].app = AppRef{u"org.example.Mail"_s, u"Mail"_s};
    layout.panes[1].launch = false;
    const Pane mail = layout.panes[1];

    layout.split(mail.id, CutLines::horizontal);
    const Pane added = layout.panes[2];
    EXPECT_EQ(added, (Pane{.id = added.id, .rect = {0, 0.5, 0.5, 0.5}}));

    layout.panes[0].app = AppRef{};
    const QUuid last = layout.panes[0].id;
    layout.setSplit(0, {0.4, 0.6}, CutLines::horizontal);
    EXPECT_EQ(textOf(layout, CutLines::horizontal), "0-40 40-100");
    EXPECT_TRUE(layout.panes[0].id == mail.id && layout.panes[0].app == mail.app);
    EXPECT_EQ(layout.panes[1].id, last);

    const WindowLayout before = layout;
    for (const QList<double> &unfit : {QList<double>{}, {0.5, 0.0}, {0.7, 0.4}, {notANumber}})
        layout.setSplit(0, unfit, CutLines::vertical);
    EXPECT_EQ(layout, before);
}

TEST(LayoutEditingTests, panesAreAGridWhenEachCellHoldsOneAndShareTheEdgesToDrag)
{
    const UnitRect topLeft{0, 0, 0.5, 0.5};
    const UnitRect topRight{0.502, 0, 0.498, 0.5};
    const UnitRect bottomLeft{0.002, 0.5, 0.498, 0.4995};
    const UnitRect bottomRight{0.5, 0.501, 0.5, 0.499};
    const WindowLayout layout = layoutOf({bottomRight, topLeft, bottomLeft, topRight});

    ASSERT_TRUE(layout.grid(0));
    EXPECT_EQ(layout.grid(0)->cells[1][0].rect, bottomLeft);
    EXPECT_EQ(layout.grid(0)->cells[1][1].rect, bottomRight);
    EXPECT_EQ(layout.edges(0).vertical, QList{0.5});
    EXPECT_EQ(layout.edges(0).horizontal, QList{0.5});
    for (const QList<UnitRect> &rects :
        QList<QList<UnitRect>>{{}, {topLeft}, {topLeft, topRight, bottomLeft},
            {topLeft, topLeft, topRight, bottomLeft}, {{0, 0, 1, 0.5}, bottomLeft, bottomRight},
            {{0, 0, 0, 1}, {0, 0, 1, 1}}, {{1, 0, -1, 1}}})
        EXPECT_FALSE(layoutOf(rects).grid(0)) << rects.size();
}

TEST(LayoutEditingTests, fractionsAreNumbersBetweenCommasSlashesAndSpaces)
{
    EXPECT_EQ(WindowLayout::parseFractions(u" 40,\t0 -5 30\n/ 30,"), (QList{0.4, 0.3, 0.3}));
    for (const QString &text :
        {u"40 / x"_s, u"0"_s, u"nan 1"_s, u"1e308 1e308"_s, u"1e-300 1e300"_s})
        EXPECT_EQ(WindowLayout::parseFractions(text), std::nullopt) << qPrintable(text);
}

RC_GTEST_PROP(LayoutHistoryProperties, editsAreUndoneAndRedoneOneByOneUpToTheDepth, ())
{
    LayoutHistory history;
    QList<LayoutHistory::Layouts> versions{{WindowLayout{}}};
    qsizetype first = 0;
    qsizetype at = 0;
    const auto version = [&](bool isThere, qsizetype index) {
        return isThere ? std::optional(versions[at = index]) : std::nullopt;
    };

    for (int steps = between(0, 300); steps > 0 || at > first; --steps) { // then all the way back
        const LayoutHistory::Layouts present = versions[at];
        if (const int step = steps > 0 ? between(0, 9) : 0; step < 2) {
            RC_ASSERT(history.undo(present) == version(at > first, at - 1));
        } else if (step == 2) {
            RC_ASSERT(history.redo(present) == version(at + 1 < versions.size(), at + 1));
        } else {
            history.record(QString::number(++at), present);
            versions = versions.first(at) << LayoutHistory::Layouts{WindowLayout{}};
            first = std::max(first, at - LayoutHistory::depth);
        }
        RC_ASSERT(history.undoTitle().value_or(u"0"_s) == QString::number(at > first ? at : 0));
    }
    RC_ASSERT(!history.undo(versions[at]));
}

TEST(LayoutHistoryTests, revertPutsOneLayoutBackAndCanItselfBeUndone)
{
    const WindowLayout saved{.name = u"Desk"_s};
    WindowLayout edited = saved;
    edited.name = u"Work"_s;
    const QList<WindowLayout> present{WindowLayout{}, edited};
    LayoutHistory history;
    history.setSaved({saved});

    EXPECT_EQ(history.revert(saved.id, {saved}), std::nullopt);
    EXPECT_EQ(history.revert(present[0].id, present), std::nullopt);
    EXPECT_EQ(history.revert(saved.id, present), (QList{present[0], saved}));
    EXPECT_EQ(history.undo({}), present);
}

} // namespace corvane
