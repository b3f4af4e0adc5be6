#include "SimulatedOwnWindows.h"

namespace corvane {

Tray SimulatedOwnWindows::tray()
{
    return m_tray;
}

bool SimulatedOwnWindows::takePointer(quint64)
{
    return isPointerFree;
}

bool SimulatedOwnWindows::showsTranslucency()
{
    return blendsWindows;
}

void SimulatedOwnWindows::setListed(quint64 window, bool isListed)
{
    listed.insert(window, isListed);
}

void SimulatedOwnWindows::changeTray(const Tray &tray)
{
    m_tray = tray;
    Q_EMIT trayChanged();
}

} // namespace corvane
