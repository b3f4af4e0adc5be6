#include "BoardText.h"

#include "BoardStyle.h"

#include <QtWidgets/QStyle>

namespace corvane {

BoardText::BoardText(const QString &text, Board::Type type, Tone tone, QWidget *parent)
    : QLabel(text, parent), m_tone(tone)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(type == Board::Type::body || type == Board::Type::secondary);
    setFont(Board::font(type));
    // Where the program is read from, whatever the text's own direction.
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading) | Qt::AlignAbsolute
        | Qt::AlignVCenter);
    connect(&BoardStyle::shared(), &BoardStyle::lookChanged, this, &BoardText::color);
    color();
}

void BoardText::setTone(Tone tone)
{
    m_tone = tone;
    color();
}

void BoardText::color()
{
    QPalette palette;
    palette.setColor(foregroundRole(), BoardStyle::shared().colors().*m_tone);
    setPalette(palette);
}

} // namespace corvane
