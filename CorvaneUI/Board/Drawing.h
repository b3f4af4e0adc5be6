#pragma once

#include "Board.h"

#include <QtWidgets/QWidget>

#include <functional>

namespace corvane {

/// A small picture beside a text, drawn anew in the colours of the look.
class Drawing final : public QWidget
{
public:
    using Paint =
        std::function<void(QPainter &painter, const QRectF &rect, const Board::Palette &palette)>;

    /// The size is one of the drawings.
    Drawing(const QSizeF &size, Paint paint);
    /// A symbol in a square.
    [[nodiscard]] static Drawing *ofSymbol(
        double side, const QString &symbol, QColor Board::Palette::*tone);

protected:
    void paintEvent(QPaintEvent *) override;

private:
    Paint m_paint;
};

} // namespace corvane
