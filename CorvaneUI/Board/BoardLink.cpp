#include "BoardLink.h"

#include "BoardStyle.h"
#include "Symbol.h"

#include <QtGui/QPainter>

namespace corvane {

using namespace Qt::StringLiterals;

BoardLink::BoardLink(const QString &title, Target target, QWidget *parent)
    : QAbstractButton(parent), m_target(target)
{
    setText(title);
    QFont font = Board::font(Board::Type::secondary);
    font.setWeight(QFont::Medium);
    setFont(font);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
}

int BoardLink::arrowWidth() const
{
    return m_target == Target::external ? fontMetrics().height() : 0;
}

QSize BoardLink::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + arrowWidth(), fontMetrics().height()};
}

void BoardLink::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor ink = BoardStyle::shared().colors().accentType;
    QFont font = this->font();
    font.setUnderline(underMouse() || isDown());
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignLeading | Qt::AlignVCenter, text());
    const int side = arrowWidth();
    QRect arrow(width() - side, 0, side, height());
    arrow = QStyle::visualRect(layoutDirection(), rect(), arrow);
    if (side > 0)
        Symbol::paint(painter, QRectF(arrow).adjusted(2, 2, -2, -2), u"arrow.up.right"_s, {ink});
}

} // namespace corvane
