#pragma once

#include "ManualClock.h"
#include "Platform.h"
#include "SimulatedApplications.h"
#include "SimulatedDesktop.h"
#include "SimulatedDisplays.h"
#include "SimulatedHotKeys.h"
#include "SimulatedOwnWindows.h"
#include "SimulatedSession.h"
#include "SimulatedWindows.h"

#include <memory>

namespace corvane {

/// A desktop in memory behind the interfaces of a real one. It starts bare: no display, no
/// application, trusted.
class SimulatedPlatform final : public Platform
{
public:
    enum class Time { manual, real };

    explicit SimulatedPlatform(Time time = Time::manual);

    SimulatedWindows &windows() override { return m_windows; }
    SimulatedDisplays &displays() override { return m_displays; }
    SimulatedApplications &applications() override { return m_applications; }
    SimulatedHotKeys &hotKeys() override { return m_hotKeys; }
    SimulatedSession &session() override { return m_session; }
    SimulatedOwnWindows &ownWindows() override { return m_ownWindows; }
    Clock &clock() override { return *m_clock; }

    [[nodiscard]] SimulatedDesktop &desktop() { return m_desktop; }
    /// Only of a platform whose time is manual.
    [[nodiscard]] ManualClock &manualClock();
    /// Sends the notices that wait, without moving the clock.
    void deliver();

private:
    std::unique_ptr<Clock> m_clock;
    ManualClock *m_manualClock = nullptr;
    SimulatedDesktop m_desktop;
    SimulatedWindows m_windows{m_desktop};
    SimulatedDisplays m_displays{m_desktop};
    SimulatedApplications m_applications{m_desktop};
    SimulatedHotKeys m_hotKeys{m_desktop.notices()};
    SimulatedSession m_session;
    SimulatedOwnWindows m_ownWindows;
};

} // namespace corvane
