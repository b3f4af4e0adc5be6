#include "SimulatedOwnWindows.h"

namespace corvane {

Tray SimulatedOwnWindows::tray()
{
    return m_tray;
}

void SimulatedOwnWindows::bringForward(quint64, const QString &token)
{
    broughtForward << token;
}

bool SimulatedOwnWindows::takePointer(quint64)
{
    return isPointerFree;
}

void SimulatedOwnWindows::setTakesAllKeys(quint64 window, bool takesAll)
{
    if (takesAll)
        takingAllKeys.insert(window);
    else
        takingAllKeys.remove(window);
}

bool SimulatedOwnWindows::showsTranslucency()
{
    return blendsWindows;
}

void SimulatedOwnWindows::setListed(quint64 window, bool isListed)
{
    listed.insert(window, isListed);
}

void SimulatedOwnWindows::setOverlay(quint64, const Rect &frame)
{
    overlays << frame;
}

void SimulatedOwnWindows::changeTray(const Tray &tray)
{
    m_tray = tray;
    Q_EMIT trayChanged();
}

} // namespace corvane
