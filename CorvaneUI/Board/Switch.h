#pragma once

#include "Board.h"

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QCheckBox>

namespace corvane {

/// A check box without a text of its own, drawn as a switch.
class Switch final : public QCheckBox
{
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    [[nodiscard]] static QSize drawnSize();
    void draw(QPainter &painter, const QRectF &rect, const Board::Palette &palette,
        const QColor &edge) const;

private:
    void move(bool isOn);

    QVariantAnimation m_position; ///< of the knob: 0 is off, 1 is on
};

} // namespace corvane
