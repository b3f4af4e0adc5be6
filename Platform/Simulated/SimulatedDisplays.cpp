#include "SimulatedDisplays.h"

namespace corvane {

SimulatedDisplays::SimulatedDisplays(SimulatedDesktop &desktop) : m_desktop(desktop)
{
    connect(&desktop, &SimulatedDesktop::displaysChanged, this, &Displays::changed);
}

QList<ScreenInfo> SimulatedDisplays::all()
{
    m_desktop.catchUp();
    return m_desktop.screens();
}

} // namespace corvane
