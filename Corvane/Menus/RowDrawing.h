#pragma once

#include "MenuRows.h"

/// One row of a menu: where its parts stand and how they look.
namespace corvane::RowDrawing {

enum class Kind {
    action,
    submenu,
};

[[nodiscard]] Kind kindOf(const QAction &action);

struct State {
    Kind kind = Kind::action;
    bool isLit = false;
    bool isEnabled = true;
};

/// Rectangles of a row's parts, null for those that it has not.
struct Places {
    QRectF field; ///< filled while the row is lit
    QRectF icon;
    QRectF title;
    QRectF subtitle;
    QRectF trailing;
};

/// Of a row that shows everything, margins included.
[[nodiscard]] QSizeF size(const MenuRows::Row &row, const MenuRows::Style &style, Kind kind);
[[nodiscard]] QSizeF headerSize(const MenuHeader &header);
[[nodiscard]] double separatorHeight();
/// From the menu's edge to the trailing column.
[[nodiscard]] double margin();

[[nodiscard]] Places places(
    const QRectF &rect, const MenuRows::Row &row, const MenuRows::Style &style, Kind kind);
[[nodiscard]] KeyCaps keyCaps(const QStringList &parts, const MenuRows::Style &style);

void paint(QPainter &painter, const QRectF &rect, const MenuRows::Row &row,
    const MenuRows::Style &style, const Board::Palette &palette, State state);
void paintHeader(QPainter &painter, const QRectF &rect, const MenuHeader &header,
    const Board::Palette &palette, bool isLit);
void paintSeparator(QPainter &painter, const QRectF &rect, const Board::Palette &palette);

} // namespace corvane::RowDrawing
