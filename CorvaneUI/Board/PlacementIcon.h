#pragma once

#include "Board.h"
#include "Placement.h"

#include <QtGui/QIcon>

class QPainter;

/// A small picture of what a placement does, drawn 20 wide and 16 high.
namespace corvane::PlacementIcon {

struct Colors {
    QColor display; ///< the outline
    QColor window; ///< the filled part, and arrows
};

enum class Form {
    plain,
    lit, ///< on an accent fill
    dimmed,
};

[[nodiscard]] Colors colors(const Board::Palette &palette, Form form);
/// Draws the picture as large as fits the middle of the rectangle.
void paint(QPainter &painter, const QRectF &rect, Placement placement, const Colors &colors);
[[nodiscard]] QIcon icon(Placement placement, const Board::Palette &palette);

} // namespace corvane::PlacementIcon
