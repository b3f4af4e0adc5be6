#pragma once

#include "Board.h"

#include <QtWidgets/QLabel>

namespace corvane {

/// A text in one of the board's fonts and colours.
class BoardText final : public QLabel
{
    Q_OBJECT

public:
    /// A colour of the palette.
    using Tone = QColor Board::Palette::*;

    explicit BoardText(const QString &text, Board::Type type = Board::Type::body,
        Tone tone = &Board::Palette::fore, QWidget *parent = nullptr);

    void setTone(Tone tone);

private:
    void color();

    Tone m_tone;
};

} // namespace corvane
