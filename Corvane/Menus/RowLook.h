#pragma once

#include "KeyCaps.h"

namespace corvane {

/// How the rows of a menu are drawn. Lengths are in points.
struct RowLook {
    KeyCapStyle keyCaps;
    QFont titleFont;
    double iconSlot = 0; ///< the width left for a row's icon
    double gap = 0; ///< between icon and title
    Board::Palette palette;

    /// In the desktop's font, and in the colours for its look.
    [[nodiscard]] static RowLook of(const DesktopLook &look);
    /// The same for a menu in which no row has an icon.
    [[nodiscard]] RowLook withoutIcons() const;
};

} // namespace corvane
