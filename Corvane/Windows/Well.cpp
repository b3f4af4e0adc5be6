#include "Well.h"

#include "BoardStyle.h"
#include "DevicePixels.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

namespace corvane {

Well::Well(QAbstractScrollArea *area, double height)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(3, 3, 3, 3);
    area->setFixedHeight(Board::length(height));
    area->setFrameShape(QFrame::NoFrame);
    area->viewport()->setAutoFillBackground(false);
    column->addWidget(area);
}

void Well::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    QPainter painter(this);
    drawField(painter, rect(), Board::length(7), palette.control, palette.edge);
}

} // namespace corvane
