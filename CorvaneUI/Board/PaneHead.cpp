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
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, Board::length(16));
    column->setSpacing(Board::length(10));
    m_row = new QHBoxLayout;
    m_row->setSpacing(Board::length(12));
    column->addLayout(m_row);
    auto *place = new BoardText(
        u"%1/%2"_s.arg(numeral).arg(of), Board::Type::smallNumerals, &Board::Palette::muted);
    auto *name = new BoardText(title, Board::Type::title);
    m_trailing = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    m_row->addWidget(place);
    m_row->addWidget(name, 1);
    m_row->addWidget(m_trailing);
    m_trailing->hide();
    m_controls = new QWidget;
    (new QHBoxLayout(m_controls))->setContentsMargins(0, 0, 0, 0);
    m_controls->layout()->setSpacing(m_row->spacing());
    m_row->addWidget(m_controls);
    m_controls->hide();
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

void PaneHead::addControl(QWidget *control)
{
    m_controls->layout()->addWidget(control);
    m_controls->show();
}

void PaneHead::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_controls->isHidden())
        return;
    int words = 0;
    for (int i = 0; i < m_row->count(); ++i) {
        if (const QWidget *each = m_row->itemAt(i)->widget(); each && each != m_controls)
            words += each->sizeHint().width() + m_row->spacing();
    }
    // The mark that says "Saved" has its room between the two.
    const int mark = fontMetrics().horizontalAdvance(tr("Saved")) + 2 * fontMetrics().height();
    const bool isBelow = words + mark + m_controls->sizeHint().width() > width();
    if (isBelow != (m_row->indexOf(m_controls) < 0)) {
        auto *column = static_cast<QVBoxLayout *>(layout());
        if (isBelow)
            column->addWidget(m_controls, 0, Qt::AlignLeading);
        else
            m_row->addWidget(m_controls);
        updateGeometry();
    }
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
    const bool isBeside = !m_controls->isHidden() && m_row->indexOf(m_controls) >= 0;
    const int taken = isBeside ? m_controls->width() + m_row->spacing() : 0;
    const QRect row = m_row->geometry();
    const QRect all = QStyle::visualRect(layoutDirection(), row, row.adjusted(0, 0, -taken, 0));
    const QRect mark = QStyle::visualRect(
        layoutDirection(), all, QRect(all.right() - wide, all.top(), wide, all.height()));
    painter.drawText(mark, Qt::AlignTrailing | Qt::AlignVCenter, text);
    const QRect check = QStyle::visualRect(
        layoutDirection(), mark, QRect(mark.left(), mark.top(), side, mark.height()));
    Symbol::paint(painter, QRectF(check).adjusted(0, 0, -4, 0), u"checkmark"_s, {palette.muted});
}

} // namespace corvane
