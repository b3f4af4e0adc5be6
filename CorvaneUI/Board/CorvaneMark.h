#pragma once

#include "Board.h"

#include <QtGui/QIcon>

class QPainter;
class QRectF;
class QWidget;

/// The product's mark: a display's panes, the left one filled, on a rounded field of the accent.
namespace corvane::CorvaneMark {

void paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette);

/// For the icon of a window, in the light colours.
[[nodiscard]] QIcon icon();
/// As large as this length of the drawings, in the colours of the look.
[[nodiscard]] QWidget *widget(double side);

} // namespace corvane::CorvaneMark
