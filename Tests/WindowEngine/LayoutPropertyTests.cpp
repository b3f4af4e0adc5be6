#include "Decoding.h"
#include "LayoutHistory.h"
#include "PaneSpan.h"

#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <numeric>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double minimum = 0.05;

/// Evenly, in early runs as well, which would otherwise know the first few edits only.
int below(int limit)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, limit));
}

bool coin()
{
    return below(2) == 1;
}

template <typename List>
auto anyOf(const List &list)
{
    return list[below(static_cast<int>(list.size()))];
}

CutLines anyCut()
{
    return coin() ? CutLines::vertical : CutLines::horizontal;
}

/// Any UTF-16 units, among them NUL, quotes and lone surrogates.
QString anyText()
{
    QString text;
    for (const int unit : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 0x10000)))
        text.append(QChar(unit));
    return text;
}

Pane anyPane()
{
    const auto fraction = [] { return *rc::gen::inRange(-3000, 3000) / 997.0; };
    Pane pane{.display = *rc::gen::arbitrary<int>(),
        .rect = {fraction(), fraction(), fraction(), fraction()},
        .launch = coin()};
    if (coin())
        pane.app = AppRef{anyText(), anyText()};
    if (coin())
        pane.titleContains = anyText();
    if (coin())
        pane.stack = *rc::gen::arbitrary<int>();
    if (coin())
        pane.capturedTitle = anyText();
    return pane;
}

WindowLayout anyLayout()
{
    constexpr qint64 years = 10'000'000'000'000;
    WindowLayout layout{.name = anyText(),
        .applyOnConnect = coin(),
        .created =
            QDateTime::fromMSecsSinceEpoch(*rc::gen::inRange<qint64>(-years, years), Qt::UTC)};
    for (int i = below(4); i > 0; --i)
        layout.displays << DisplayKey{anyText(), *rc::gen::arbitrary<int>(), below(10000)};
    for (int i = below(6); i > 0; --i)
        layout.panes << anyPane();
    if (coin())
        layout.shortcut = KeyCombo(*rc::gen::arbitrary<quint16>(), *rc::gen::arbitrary<quint64>());
    return layout;
}

QJsonObject throughAFile(const QJsonObject &json)
{
    return QJsonDocument::fromJson(QJsonDocument(json).toJson()).object();
}

QList<double> anyFractions()
{
    QList<double> numbers;
    for (int i = 1 + below(5); i > 0; --i)
        numbers << 1 + below(20);
    const double total = std::accumulate(numbers.begin(), numbers.end(), 0.0);
    for (double &number : numbers)
        number /= total;
    return numbers;
}

/// Two displays, a whole pane on each.
WindowLayout twoWholePanes()
{
    return {.panes = {Pane{.display = 0}, Pane{.display = 1}}};
}

WindowLayout gridWithHoles()
{
    PaneGrid grid{anyFractions(), anyFractions(), {}};
    for (qsizetype row = 0; row < grid.rows.size(); ++row) {
        grid.cells << QList<Pane>();
        for (qsizetype column = 0; column < grid.columns.size(); ++column)
            grid.cells.last() << Pane{};
    }
    WindowLayout layout = twoWholePanes();
    layout.setGrid(0, grid);
    layout.panes.removeIf([](const Pane &) { return below(3) == 0; });
    return layout;
}

double anyEdge(const WindowLayout &layout, int display, CutLines cut)
{
    const WindowLayout::Edges all = layout.edges(display);
    QList<double> edges = cut == CutLines::vertical ? all.vertical : all.horizontal;
    edges << 0 << 1;
    return anyOf(edges);
}

void editOnce(WindowLayout &layout)
{
    const int display = below(2);
    const CutLines cut = anyCut();
    const QUuid id = layout.panes.isEmpty() ? QUuid() : anyOf(layout.panes).id;
    switch (below(12)) {
    case 0:
        return layout.setSplit(display, anyFractions(), cut);
    case 1:
        return layout.setGridBand(display, cut, below(4), below(100) * 0.01, minimum);
    case 2:
        return layout.addGridBand(display, cut, minimum);
    case 3:
        return layout.removeGridBand(display, cut);
    case 4:
    case 5:
        return layout.remove(id);
    case 6:
    case 7:
    case 8:
        return layout.moveEdge(
            display, cut, anyEdge(layout, display, cut), below(121) * 0.01 - 0.1, minimum);
    default:
        return layout.split(id, cut);
    }
}

void expectInsideTheDisplay(const WindowLayout &layout)
{
    constexpr double rounding = 1e-6;
    for (const Pane &pane : layout.panes) {
        for (const CutLines cut : {CutLines::vertical, CutLines::horizontal}) {
            const PaneSpan span = spanOf(pane.rect, cut);
            RC_ASSERT(span.start >= -rounding && span.length > 0 && span.end() <= 1 + rounding);
        }
    }
}

void expectNoOverlap(const WindowLayout &layout)
{
    for (qsizetype i = 0; i < layout.panes.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j) {
            const Pane &a = layout.panes[i];
            const Pane &b = layout.panes[j];
            RC_ASSERT(a.display != b.display || !overlap(a.rect, b.rect));
        }
    }
}

/// Overwrites a field with junk, which may happen to be of its type.
QString damage(QJsonObject &record)
{
    const QList<QJsonValue> junk{
        QJsonValue(), 5, -1.5, true, u"junk"_s, QJsonArray{1}, QJsonObject{{u"junk"_s, 1}}};
    const QString key = anyOf(record.keys());
    record.insert(key, anyOf(junk));
    return key;
}

} // namespace

RC_GTEST_PROP(LayoutPropertyTests, editsKeepPanesInsideTheDisplayAndApart, ())
{
    WindowLayout layout = gridWithHoles();

    for (int edits = below(40); edits > 0; --edits) {
        editOnce(layout);
        expectInsideTheDisplay(layout);
        expectNoOverlap(layout);
    }
}

RC_GTEST_PROP(LayoutPropertyTests, splitThenRemoveGivesThePaneBack, ())
{
    const CutLines bands = anyCut();
    WindowLayout layout = twoWholePanes();
    layout.setSplit(1, anyFractions(), bands);
    const WindowLayout before = layout;
    const qsizetype index = below(static_cast<int>(layout.panes.size()));

    // Cut the other way, the new half may border on an earlier pane as wide as itself, which then
    // has the first claim.
    layout.split(layout.panes[index].id, bands);
    RC_ASSERT(layout.panes.size() == before.panes.size() + 1);
    layout.remove(layout.panes[index + 1].id);

    RC_ASSERT(layout == before);
}

RC_GTEST_PROP(LayoutPropertyTests, everyEditIsUndoneAndRedoneExactly, ())
{
    QList<WindowLayout> layouts{twoWholePanes(), twoWholePanes()};
    QList<QList<WindowLayout>> past;
    LayoutHistory history;
    for (int edits = below(30); edits > 0; --edits) {
        past << layouts;
        history.record(QString::number(edits), layouts);
        editOnce(layouts[below(2)]);
    }
    past << layouts;

    for (qsizetype i = past.size() - 2; i >= 0; --i)
        RC_ASSERT((layouts = history.undo(layouts).value()) == past[i]);
    RC_ASSERT(!history.undo(layouts));
    for (qsizetype i = 1; i < past.size(); ++i)
        RC_ASSERT((layouts = history.redo(layouts).value()) == past[i]);
    RC_ASSERT(!history.redo(layouts));
}

RC_GTEST_PROP(LayoutPropertyTests, aTypedBandTakesOnlyFromItsPartner, ())
{
    const CutLines cut = anyCut();
    WindowLayout layout = twoWholePanes();
    layout.setSplit(0, anyFractions(), cut);
    const auto sizes = [&layout, cut] {
        const PaneGrid grid = layout.grid(0).value();
        return cut == CutLines::vertical ? grid.columns : grid.rows;
    };
    const QList<double> before = sizes();
    const int index = below(static_cast<int>(before.size()));

    layout.setGridBand(0, cut, index, below(120) * 0.01, minimum);

    const QList<double> after = sizes();
    RC_ASSERT(after.size() == before.size());
    const qsizetype partner = index + 1 < before.size() ? index + 1 : index - 1;
    double sum = 0;
    for (qsizetype i = 0; i < after.size(); ++i) {
        sum += after[i];
        RC_ASSERT(i == index || i == partner || std::abs(after[i] - before[i]) < 1e-9);
    }
    RC_ASSERT(std::abs(sum - 1) < 1e-9);
}

RC_GTEST_PROP(LayoutPropertyTests, anyLayoutSurvivesItsFile, ())
{
    const WindowLayout layout = anyLayout();
    DecodeProblems problems;

    const auto read = decode<WindowLayout>(throughAFile(layout.toJson()), problems);

    RC_ASSERT(read == layout);
    RC_ASSERT(problems.count == 0);
}

RC_GTEST_PROP(LayoutPropertyTests, damageCostsAFieldOrAPaneAndNothingElse, ())
{
    QJsonObject intact = anyLayout().toJson();
    QJsonArray panes = intact.value(u"panes").toArray();
    QJsonObject pane = anyPane().toJson();
    damage(pane);
    panes.append(pane);
    QJsonObject damaged = intact;
    damaged.insert(u"panes"_s, panes);
    const QString key = damage(damaged);
    DecodeProblems problems;

    QJsonObject read = decode<WindowLayout>(throughAFile(damaged), problems).value().toJson();

    if (key != u"panes") {
        const QJsonArray kept = read.value(u"panes").toArray();
        const int lost = kept.size() == panes.size() ? 0 : 1;
        const bool isGood = damaged.value(key).isNull() || read.value(key) == damaged.value(key);
        RC_ASSERT(problems.count == lost + (isGood ? 0 : 1));
        for (qsizetype i = 0; i + 1 < panes.size(); ++i)
            RC_ASSERT(kept[i] == panes[i]);
    }
    for (const QString &undamaged : {key, u"panes"_s}) {
        read.remove(undamaged);
        intact.remove(undamaged);
    }
    RC_ASSERT(read == intact);
}

} // namespace corvane
