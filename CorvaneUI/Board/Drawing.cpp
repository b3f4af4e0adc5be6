#include "Drawing.h"

#include "BoardStyle.h"
#include "Symbol.h"

#include <QtGui/QPainter>

namespace corvane {

Drawing::Drawing(const QSizeF &size, Paint paint) : m_paint(std::move(paint))
{
    setFixedSize(Board::length(size.width()), Board::length(size.height()));
}

Drawing *Drawing::ofSymbol(double side, const QString &symbol, QColor Board::Palette::*tone)
{
    return new Drawing({side, side},
        [symbol, tone](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            Symbol::paint(painter, rect, symbol, {palette.*tone});
        });
}

void Drawing::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_paint(painter, rect(), BoardStyle::shared().colors());
}

} // namespace corvane
