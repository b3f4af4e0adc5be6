#include "FoldRow.h"

#include "BoardStyle.h"
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
    painter.setRenderHint(QPainter::Antialiasing);
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

    // It points along the line, and down once the rows below show.
    const QRectF room = placed({width() - Board::length(margin) - tip, middle(tip), tip, tip});
    painter.translate(room.center());
    painter.rotate(isChecked() ? 90 : layoutDirection() == Qt::RightToLeft ? 180 : 0);
    painter.setPen(QPen(underMouse() ? palette.fore : palette.muted, 1.5, Qt::SolidLine,
        Qt::RoundCap, Qt::RoundJoin));
    const double half = tip / 2.0;
    painter.drawPolyline(
        QPolygonF{QPointF(-half / 2, -half), QPointF(half / 2, 0), QPointF(-half / 2, half)});
}

} // namespace corvane
