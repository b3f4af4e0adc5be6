#pragma once

#include "Displays.h"
#include "Outputs.h"
#include "ToplevelRegistry.h"

#include <QtCore/QTimer>

namespace corvane::wayland {

/// The outputs, and what panels leave of them.
class WaylandDisplays final : public Displays
{
    Q_OBJECT

public:
    WaylandDisplays(Outputs &outputs, Connection &connection, ToplevelRegistry &registry);

    QList<ScreenInfo> all() override;

private:
    Outputs &m_outputs;
    Connection &m_connection;
    ToplevelRegistry &m_registry;
    QList<WorkArea> m_workAreas; ///< as they were told last
    QTimer m_burst;
    QList<ScreenInfo> m_announced;
};

} // namespace corvane::wayland
