#include "Disclosure.h"

#include "BoardStyle.h"
#include "Chevron.h"

#include <QtGui/QPainter>

namespace corvane {

namespace {

constexpr double chevron = 6;
constexpr double textStart = 14;

} // namespace

Disclosure::Disclosure(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setCheckable(true);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QFont font = Board::font(Board::Type::secondary);
    font.setWeight(QFont::Medium);
    setFont(font);
}

QSize Disclosure::sizeHint() const
{
    return {Board::length(textStart) + fontMetrics().horizontalAdvance(text()),
        fontMetrics().height() + Board::length(4)};
}

void Disclosure::paintEvent(QPaintEvent *)
{
    const QColor ink = BoardStyle::shared().colors().accentType;
    QPainter painter(this);
    const int side = Board::length(chevron);
    const QRect tip(Board::length(2), (height() - side) / 2, side, side);
    drawChevron(painter, QStyle::visualRect(layoutDirection(), rect(), tip), isChecked(),
        layoutDirection(), ink);
    QFont font = this->font();
    font.setUnderline(underMouse());
    painter.setFont(font);
    painter.setPen(ink);
    const QRect words = rect().adjusted(Board::length(textStart), 0, 0, 0);
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), words),
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading)) | int(Qt::AlignVCenter),
        text());
}

} // namespace corvane
