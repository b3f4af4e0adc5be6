#include "EmptyBoard.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "DevicePixels.h"
#include "DraftingGrid.h"
#include "Drawing.h"
#include "SettingsPage.h"

#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>

namespace corvane {

namespace {

/// A desk with nothing on it yet.
void drawDesk(QPainter &painter, const QRectF &rect, const Board::Palette &palette)
{
    const double unit = rect.width() / 286;
    const auto box = [&](double x, double y, double width, double height) {
        return QRectF(rect.left() + x * unit, rect.top() + y * unit, width * unit, height * unit);
    };
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(palette.sheet);
    painter.setPen(QPen(palette.muted, 1.5));
    for (const QRectF &display : {box(1, 1, 176, 108), box(185, 35, 100, 74)})
        painter.drawRoundedRect(display, 7, 7);
    painter.setPen(QPen(palette.accent, 1.5, Qt::DashLine));
    for (const QRectF &pane :
        {box(7, 7, 64, 96), box(76, 7, 95, 45), box(76, 57, 95, 46), box(191, 41, 88, 62)})
        painter.drawRoundedRect(pane, 4, 4);
}

/// A card with the grid of drawings behind what stands on it.
class GridCard final : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const Board::Palette &palette = BoardStyle::shared().colors();
        drawField(painter, rect(), Board::length(10), palette.sheet, palette.hairline);
        DraftingGrid::paint(
            painter, QRectF(rect()).adjusted(1, 1, -1, -1), Board::length(18), palette);
    }
};

} // namespace

EmptyBoard::EmptyBoard(QWidget *parent) : QWidget(parent)
{
    auto *outer = new QVBoxLayout(this);
    const int margin = Board::length(20);
    outer->setContentsMargins(SettingsPage::sides() + QMargins(0, margin, 0, margin));
    auto *card = new GridCard;
    outer->addWidget(card);
    auto *column = new QVBoxLayout(card);
    column->addStretch(1);
    column->addWidget(new Drawing({286, 110}, drawDesk), 0, Qt::AlignHCenter);
    column->addSpacing(Board::length(30));
    auto *title = new BoardText(tr("No layouts yet"), Board::Type::title);
    title->setAlignment(Qt::AlignCenter);
    m_text = new BoardText(
        tr("Arrange your windows, then capture them: one shortcut puts the whole desk back, and "
           "opens what is not running."),
        Board::Type::body, &Board::Palette::muted);
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setFixedWidth(Board::length(400));
    column->addWidget(title);
    column->addWidget(m_text, 0, Qt::AlignHCenter);
    column->addSpacing(Board::length(12));
    auto *create = new QPushButton(tr("New Empty Layout"));
    auto *capture = new QPushButton(tr("Capture Current Windows"));
    connect(create, &QPushButton::clicked, this, &EmptyBoard::layoutAsked);
    connect(capture, &QPushButton::clicked, this, &EmptyBoard::captureAsked);
    capture->setDefault(true);
    auto *row = new QHBoxLayout;
    row->setSpacing(Board::length(8));
    row->addStretch(1);
    row->addWidget(create);
    row->addWidget(capture);
    row->addStretch(1);
    column->addLayout(row);
    column->addStretch(2);
}

void EmptyBoard::say(const QString &text)
{
    m_text->setText(text);
}

} // namespace corvane
