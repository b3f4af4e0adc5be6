#include "FoldRow.h"

#include "BoardStyle.h"
#include "Chevron.h"
#include "Symbol.h"

#include <QtGui/QPainter>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double margin = 16;
constexpr double mark = 16;
constexpr double gap = 12;
constexpr double chevron = 6;

} // namespace

FoldRow::FoldRow(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setObjectName(u"fold"_s);
    setCheckable(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    const auto describe = [this](bool isOpen) {
        setAccessibleDescription(isOpen ? tr("Hides its panes") : tr("Shows its panes"));
    };
    connect(this, &FoldRow::toggled, this, describe);
    describe(false);
}

QSize FoldRow::sizeHint() const
{
    return {0, std::max(Board::length(40), fontMetrics().height() + Board::length(12))};
}

void FoldRow::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const auto placed = [this](const QRect &rect) {
        return QStyle::visualRect(layoutDirection(), this->rect(), rect);
    };
    const auto middle = [this](int side) { return (height() - side) / 2; };
    QPainter painter(this);
    const int side = Board::length(mark);
    Symbol::paint(painter, placed({Board::length(margin), middle(side), side, side}),
        u"checkmark"_s, {palette.ready});

    const int tip = Board::length(chevron);
    const int before = Board::length(margin) + side + Board::length(gap);
    const int after = Board::length(margin) + 2 * tip;
    painter.setPen(palette.fore);
    painter.drawText(placed({before, 0, width() - before - after, height()}),
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading)) | int(Qt::AlignVCenter)
            | int(Qt::TextWordWrap),
        text());

    const QRectF room = placed({width() - Board::length(margin) - tip, middle(tip), tip, tip});
    drawChevron(
        painter, room, isChecked(), layoutDirection(), underMouse() ? palette.fore : palette.muted);
}

} // namespace corvane
