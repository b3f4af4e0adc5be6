#include "Card.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "DevicePixels.h"
#include "KeySentence.h"

#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 10;
constexpr double rowHeight = 48;

} // namespace

Card::Card(QWidget *parent) : QWidget(parent), m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

QHBoxLayout *Card::layoutRow(QWidget *row, int height)
{
    auto *layout = new QHBoxLayout(row);
    const int margin = Board::length(16);
    layout->setContentsMargins(margin, Board::length(4), margin, Board::length(4));
    layout->setSpacing(Board::length(12));
    row->setMinimumHeight(height);
    return layout;
}

QWidget *Card::addRow(
    const QString &title, const QString &explanation, QWidget *control, QWidget *lead)
{
    auto *row = new QWidget;
    QHBoxLayout *layout = layoutRow(row, Board::length(rowHeight));
    const int upright = Board::length(12);
    layout->setContentsMargins(
        layout->contentsMargins().left(), upright, layout->contentsMargins().right(), upright);
    if (lead)
        layout->addWidget(lead);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(Board::length(2));
    texts->addWidget(new BoardText(title));
    if (!explanation.isEmpty())
        texts->addWidget(
            new KeySentence(explanation, Board::Type::secondary, &Board::Palette::muted));
    layout->addLayout(texts, 1);
    if (control) {
        if (!qobject_cast<QPushButton *>(control)) // which says what it does itself
            control->setAccessibleName(title);
        control->setAccessibleDescription(KeySentence::spoken(explanation));
        layout->addWidget(control, 0, Qt::AlignVCenter);
    }
    addRow(row);
    return row;
}

void Card::addRow(QWidget *row)
{
    m_rows->addWidget(row);
}

void Card::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    QPainter painter(this);
    drawField(painter, rect(), Board::length(radius), palette.sheet, palette.hairline);
    bool isFirst = true;
    for (int i = 0; i < m_rows->count(); ++i) {
        const QWidget *row = m_rows->itemAt(i)->widget();
        if (!row || row->isHidden())
            continue;
        if (!std::exchange(isFirst, false))
            drawRule(painter, QRectF(0, row->y() - 0.5, width(), 1), palette.hairline);
    }
}

} // namespace corvane
