#include "PaneHead.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "DevicePixels.h"
#include "Symbol.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>

#include <chrono>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

PaneHead::PaneHead(int numeral, int of, const QString &title, QWidget *parent) : QWidget(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, Board::length(16));
    row->setSpacing(Board::length(12));
    auto *place = new BoardText(
        u"%1/%2"_s.arg(numeral).arg(of), Board::Type::smallNumerals, &Board::Palette::muted);
    auto *name = new BoardText(title, Board::Type::title);
    m_trailing = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    row->addWidget(place);
    row->addWidget(name, 1);
    row->addWidget(m_trailing);
    m_trailing->hide();
    m_opacity.setStartValue(0.0);
    m_opacity.setEndValue(0.0);
    m_opacity.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_opacity, &QVariantAnimation::valueChanged, this, [this] { update(); });
    m_shown.setSingleShot(true);
    m_shown.setInterval(2s);
    connect(&m_shown, &QTimer::timeout, this, [this] { fade(0); });
}

void PaneHead::setTrailing(const QString &text)
{
    m_trailing->setText(text);
    m_trailing->setVisible(!text.isEmpty());
}

void PaneHead::showSaved()
{
    fade(1);
    m_shown.start();
}

void PaneHead::fade(double to)
{
    const double from = m_opacity.currentValue().toDouble();
    m_opacity.stop();
    m_opacity.setDuration(style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this));
    m_opacity.setStartValue(from);
    m_opacity.setEndValue(to);
    m_opacity.start();
    m_trailing->setVisible(to < 1 && !m_trailing->text().isEmpty());
}

void PaneHead::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    QPainter painter(this);
    drawRule(painter, QRectF(0, height() - 1, width(), 1), palette.hairline);
    const double opacity = m_opacity.currentValue().toDouble();
    if (opacity <= 0)
        return;
    const QString text = tr("Saved");
    painter.setOpacity(opacity);
    painter.setFont(Board::font(Board::Type::secondary));
    painter.setPen(palette.muted);
    const int side = painter.fontMetrics().height();
    const int wide = painter.fontMetrics().horizontalAdvance(text) + side;
    const QRect all = rect().adjusted(0, 0, 0, -Board::length(16));
    const QRect mark = QStyle::visualRect(
        layoutDirection(), all, QRect(all.right() - wide, all.top(), wide, all.height()));
    painter.drawText(mark, Qt::AlignTrailing | Qt::AlignVCenter, text);
    const QRect check = QStyle::visualRect(
        layoutDirection(), mark, QRect(mark.left(), mark.top(), side, mark.height()));
    Symbol::paint(painter, QRectF(check).adjusted(0, 0, -4, 0), u"checkmark"_s, {palette.muted});
}

} // namespace corvane
