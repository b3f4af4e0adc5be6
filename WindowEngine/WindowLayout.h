#pragma once

#include "DisplayKey.h"
#include "KeyCombo.h"
#include "PaneGrid.h"
#include "Rect.h"

#include <QtCore/QDateTime>

namespace corvane {

/// Which way the lines run that cut a display: vertical ones make columns, horizontal ones rows.
enum class CutLines {
    vertical,
    horizontal,
};

/// A saved arrangement of a whole desk: which app goes in which part of which display. Made here, it
/// has an id of its own and was created now.
struct WindowLayout {
    struct Edges {
        QList<double> vertical;
        QList<double> horizontal;
    };

    QUuid id = QUuid::createUuid();
    QString name = {};
    QList<DisplayKey> displays = {}; ///< those connected when the layout was made
    QList<Pane> panes = {};
    bool applyOnConnect = false; ///< by itself, when exactly its displays become connected
    std::optional<KeyCombo> shortcut = {};
    QDateTime created = QDateTime::currentDateTimeUtc();

    /// The cell of a display whose `Geometry::frame` is this window's, in as few digits as tell it.
    /// Both rectangles in accessibility coordinates. The whole display for a window that is not on it.
    [[nodiscard]] static UnitRect unitRect(
        const Rect &frame, const Rect &visibleFrame, double gap = 0);
    /// In stored order.
    [[nodiscard]] QList<Pane> panesOn(int display) const;
    /// Whether just these displays, in whatever order, are the layout's.
    [[nodiscard]] bool matches(const QList<DisplayKey> &connected) const;
    /// The displays, for the user.
    [[nodiscard]] QString displaySummary() const;

    [[nodiscard]] QJsonObject toJson() const;
    /// A damaged field takes its default and is counted. Absent only for what is no object.
    [[nodiscard]] static std::optional<WindowLayout> fromJson(
        const QJsonValue &json, DecodeProblems &problems);

    /// Cuts the pane in halves. Its app stays in the left or upper one; the other half is a new pane
    /// directly after it.
    void split(const QUuid &paneID, CutLines cut);
    /// The first pane in the list that shares a whole edge with the removed one grows into its space.
    void remove(const QUuid &paneID);
    /// Moves every pane edge that lies at `from` to `to`, or as near as leaves each of the panes on
    /// either side `minimum` and pushes none over a pane behind a gap. Fractions of the display.
    void moveEdge(int display, CutLines cut, double from, double to, double minimum);
    /// The positions that can be dragged: distinct pane edges other than the display's own.
    [[nodiscard]] Edges edges(int display) const;

    /// Absent when the panes do not line up as one pane per cell over the whole display.
    [[nodiscard]] std::optional<PaneGrid> grid(int display) const;
    /// Replaces the display's panes with the grid's cells, row by row. Does nothing unless every row
    /// has a cell for each column and every size is positive.
    void setGrid(int display, const PaneGrid &grid);
    /// Sets a column's width or a row's height; the next band, or for the last one the band before,
    /// absorbs the difference. Neither gets smaller than `minimum`.
    void setGridBand(int display, CutLines cut, int index, double fraction, double minimum);
    /// Cuts the last column or the bottom row in halves, unless they would be smaller than `minimum`.
    void addGridBand(int display, CutLines cut, double minimum);
    /// Drops the last column or the bottom row; the one before it grows into the space.
    void removeGridBand(int display, CutLines cut);
    /// Replaces the display's panes with one band per fraction. Panes with an app live on in the
    /// first bands, in reading order. Does nothing unless the fractions are positive and fit.
    void setSplit(int display, const QList<double> &fractions, CutLines cut);

    /// Numbers between commas, slashes or spaces, scaled to come to 1; those that are not positive
    /// are dropped. Absent for anything else.
    [[nodiscard]] static std::optional<QList<double>> parseFractions(QStringView text);
    /// Ascending, without those that are the same edge as the one before. Finite values only.
    [[nodiscard]] static QList<double> distinct(QList<double> values);

    bool operator==(const WindowLayout &) const = default;
};

/// `base`, or `base` with the first number from 2 on that no layout's name has yet.
[[nodiscard]] QString uniqueName(const QString &base, const QList<WindowLayout> &layouts);

} // namespace corvane
