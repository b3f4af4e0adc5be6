#pragma once

#include "Session.h"

#include <QtCore/QMargins>
#include <QtGui/QColor>
#include <QtGui/QFont>

/// The look that all windows and menus share.
namespace corvane::Board {

struct Palette {
    QColor ground; ///< of a window
    QColor sheet; ///< of cards and menus
    QColor raised;
    QColor fore; ///< main text
    QColor muted; ///< secondary text
    QColor faint; ///< tertiary text, and whatever is disabled
    QColor accent; ///< a fill
    QColor accentType; ///< text in the accent colour
    QColor onAccent; ///< text on an accent fill
    QColor hairline;
    QColor grid; ///< behind pictures
    QColor control; ///< a control's fill
    QColor edge; ///< a control's outline
    QColor error;
    QColor ready; ///< all is well
    QColor attention; ///< something needs the user

    bool operator==(const Palette &) const = default;
};

enum class Type {
    title,
    body,
    secondary,
    label, ///< of a section: capitals, spaced
    numerals, ///< of one width: numbers, dates and measures
    smallNumerals, ///< of one width: places and counts
};

[[nodiscard]] const Palette &palette(const DesktopLook &look);

/// Has the application write in the desktop's font, where that is known.
void useFont(const DesktopLook &look);
/// The desktop's own font and size, or its share of it. Needs the application.
[[nodiscard]] QFont font(Type type);
/// A length of the drawings, which are made for text of 13 pixels, at the desktop's size of text: in
/// whole points.
[[nodiscard]] int length(double drawn);
/// Margins as they are from left to right, for the direction in which the program is read.
[[nodiscard]] QMargins margins(int leading, int top, int trailing, int bottom);

} // namespace corvane::Board
