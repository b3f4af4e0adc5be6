#pragma once

#include "Board.h"
#include "PaneResult.h"

class QPainter;

/// The mark of what became of a pane: in a corner of its picture, and before its row of a report.
namespace corvane::PaneBadge {

/// No two statuses share a symbol, so that none is told by its colour alone.
struct Look {
    QString symbol;
    QColor Board::Palette::*tone;
};

[[nodiscard]] Look look(const PaneStatus &status);
/// Draws it into the lower right corner of a pane's rectangle, where there is room.
void paint(QPainter &painter, const QRectF &pane, const PaneStatus &status);
/// Draws a dotted ring there: the pane waits for a window.
void paintWaiting(QPainter &painter, const QRectF &pane);

} // namespace corvane::PaneBadge
