#pragma once

#include "Board.h"

class QPainter;
class QRectF;

/// The product's mark: a display's panes, the left one filled.
namespace corvane::CorvaneMark {

enum class Field {
    filled, ///< panes on a rounded field of the accent
    bare,
};

void paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette,
    Field field = Field::filled);

} // namespace corvane::CorvaneMark
