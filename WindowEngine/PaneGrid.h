#pragma once

#include "Pane.h"

#include <QtCore/QList>

namespace corvane {

/// One display's panes read as columns and rows. Never stored.
struct PaneGrid {
    QList<double> columns; ///< widths, as fractions of the display, from the left
    QList<double> rows; ///< heights, from the top
    QList<QList<Pane>> cells; ///< the panes of each row, from the left

    bool operator==(const PaneGrid &) const = default;
};

} // namespace corvane
