#pragma once

#include "Board.h"

#include <QtCore/QRectF>

class QPainter;

/// The quiet grid behind pictures.
namespace corvane::DraftingGrid {

/// Lines `step` apart, from the rectangle's middle outwards.
void paint(QPainter &painter, const QRectF &rect, double step, const Board::Palette &palette);

} // namespace corvane::DraftingGrid
