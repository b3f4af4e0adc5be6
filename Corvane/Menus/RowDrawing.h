#pragma once

#include "MenuRow.h"
#include "RowLook.h"

class QPainter;

/// How large a row of a menu is, where its parts stand, and how it is painted. A row is an action that
/// holds a `MenuRow` or the `MenuHeader`, or a separator.
namespace corvane::RowDrawing {

/// What stands at the row's end: its key caps, or a submenu's arrow.
enum class Kind {
    action,
    submenu,
};

[[nodiscard]] Kind kindOf(const QAction &action);

/// The rectangles of a row's parts. That of a part which the row lacks is null.
struct Places {
    QRectF field; ///< is filled while the row is lit
    QRectF icon;
    QRectF title;
    QRectF subtitle;
    QRectF trailing;
};

[[nodiscard]] Places places(const QRectF &rect, const MenuRow &row, const RowLook &look, Kind kind);

/// The row's size where nothing of it is cut off, margins included. The width of a separator is 0.
[[nodiscard]] QSizeF size(const QAction &action, const RowLook &look);
/// From the menu's edge to the trailing column, in points.
[[nodiscard]] double margin();
/// Of the menu itself, in points.
[[nodiscard]] int cornerRadius();

enum class State {
    idle,
    lit, ///< is the one that would be chosen
};

void paint(
    QPainter &painter, const QRectF &rect, const QAction &action, const RowLook &look, State state);

} // namespace corvane::RowDrawing
