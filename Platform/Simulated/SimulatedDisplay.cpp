#include "SimulatedDisplay.h"

namespace corvane {

ScreenInfo SimulatedDisplay::info() const
{
    Rect visible = frame;
    for (const SimulatedPanel &panel : panels) {
        switch (panel.edge) {
        case SimulatedPanel::Edge::top:
            visible.y += panel.thickness;
            [[fallthrough]];
        case SimulatedPanel::Edge::bottom:
            visible.height -= panel.thickness;
            break;
        case SimulatedPanel::Edge::left:
            visible.x += panel.thickness;
            [[fallthrough]];
        case SimulatedPanel::Edge::right:
            visible.width -= panel.thickness;
            break;
        }
    }
    return {frame, visible, displayID, name};
}

} // namespace corvane
