#include "Switch.h"

#include "DevicePixels.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace corvane {

Switch::Switch(QWidget *parent) : QCheckBox(parent)
{
    m_position.setEasingCurve(QEasingCurve::OutCubic);
    m_position.setStartValue(0.0);
    m_position.setEndValue(0.0);
    connect(&m_position, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(this, &QCheckBox::toggled, this, &Switch::move);
}

QSize Switch::drawnSize()
{
    return {Board::length(36), Board::length(20)};
}

void Switch::move(bool isOn)
{
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    const double from = m_position.currentValue().toDouble();
    m_position.stop();
    m_position.setStartValue(from);
    m_position.setEndValue(isOn ? 1.0 : 0.0);
    m_position.setDuration(isVisible() ? duration : 0);
    m_position.start();
}

void Switch::draw(
    QPainter &painter, const QRectF &rect, const Board::Palette &palette, const QColor &edge) const
{
    const double position = m_position.currentValue().toDouble();
    const bool isOn = position > 0.5;
    const double corner = rect.height() / 2;
    const QColor fill = isOn ? (isEnabled() ? palette.accent : palette.faint) : palette.control;
    // A switch that is off must be seen, so its outline is that of text.
    drawField(painter, rect, corner, fill, isOn ? fill : isEnabled() ? palette.muted : edge);
    const double inset = Board::length(2);
    const double side = rect.height() - 2 * inset;
    const double way = rect.width() - side - 2 * inset;
    const double along = layoutDirection() == Qt::LeftToRight ? position : 1 - position;
    const QRectF knob(rect.left() + inset + along * way, rect.top() + inset, side, side);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isOn ? palette.onAccent : palette.muted);
    painter.drawEllipse(isOn ? knob : knob.adjusted(2, 2, -2, -2));
    painter.restore();
}

} // namespace corvane
