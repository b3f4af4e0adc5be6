#pragma once

#include "ScreenInfo.h"

#include <QtCore/QList>

namespace corvane {

/// A bar that keeps windows off one edge of a display.
struct SimulatedPanel {
    enum class Edge { top, bottom, left, right };

    Edge edge = Edge::top;
    double thickness = 0;
};

struct SimulatedDisplay {
    Rect frame; ///< accessibility coordinates
    QString name{};
    QList<SimulatedPanel> panels{};
    quint32 displayID = 0; ///< 0: the desktop gives it the next free number

    [[nodiscard]] ScreenInfo info() const;
};

} // namespace corvane
