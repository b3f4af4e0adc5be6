#pragma once

#include "Displays.h"
#include "SimulatedDesktop.h"

namespace corvane {

class SimulatedDisplays final : public Displays
{
    Q_OBJECT

public:
    explicit SimulatedDisplays(SimulatedDesktop &desktop);

    QList<ScreenInfo> all() override;

private:
    SimulatedDesktop &m_desktop;
};

} // namespace corvane
