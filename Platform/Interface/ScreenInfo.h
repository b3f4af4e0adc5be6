#pragma once

#include "Rect.h"

#include <QtCore/QString>

namespace corvane {

/// One connected display. Both rectangles in accessibility coordinates.
struct ScreenInfo {
    Rect frame; ///< of the whole display
    Rect visibleFrame; ///< of the display less the panels on it
    quint32 displayID = 0;
    QString name;

    bool operator==(const ScreenInfo &) const = default;
};

} // namespace corvane
