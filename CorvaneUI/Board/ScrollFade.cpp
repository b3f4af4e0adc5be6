#include "ScrollFade.h"

#include "BoardStyle.h"
#include "DevicePixels.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

namespace corvane {

ScrollFade::ScrollFade(QAbstractScrollArea &view, QColor Board::Palette::*ground)
    : QWidget(&view), m_view(view), m_ground(ground)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view.viewport()->installEventFilter(this);
    QScrollBar *bar = view.verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, [this] { update(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this] { update(); });
    follow();
}

ScrollEdges ScrollFade::edges() const
{
    const QScrollBar &bar = *m_view.verticalScrollBar();
    return {bar.value() > bar.minimum(), bar.value() < bar.maximum()};
}

bool ScrollFade::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        follow();
    return QWidget::eventFilter(watched, event);
}

void ScrollFade::follow()
{
    setGeometry(m_view.viewport()->geometry());
    raise();
}

void ScrollFade::paintEvent(QPaintEvent *)
{
    const BoardStyle &style = BoardStyle::shared();
    const Board::Palette &palette = style.colors();
    const int fade = Board::length(36);
    QPainter painter(this);
    const auto draw = [&](int edge, int inwards) {
        if (style.look().hasHighContrast)
            return painter.fillRect(
                QRect(0, edge - (inwards > 0 ? 0 : 2), width(), 2), palette.fore);
        QColor clear = palette.*m_ground;
        clear.setAlpha(0);
        QLinearGradient gradient(0, edge, 0, edge + inwards * fade);
        gradient.setColorAt(0, palette.*m_ground);
        gradient.setColorAt(1, clear);
        painter.fillRect(QRect(0, inwards > 0 ? edge : edge - fade, width(), fade), gradient);
        const QRectF cue(
            width() / 2.0 - Board::length(12), edge + inwards * 5 - 1, Board::length(24), 2);
        painter.fillRect(snapped(painter, cue), palette.edge);
    };
    const ScrollEdges edges = this->edges();
    if (edges.above)
        draw(0, 1);
    if (edges.below)
        draw(height(), -1);
}

} // namespace corvane
