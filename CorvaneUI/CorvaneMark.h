#pragma once

#include "Board.h"

class QPainter;
class QRectF;

/// The product's mark: a display's panes, the left one filled, on a rounded field of the accent.
namespace corvane::CorvaneMark {

void paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette);

} // namespace corvane::CorvaneMark
