#include "SimulatedPlatform.h"

#include "SystemClock.h"

namespace corvane {

namespace {

std::unique_ptr<Clock> makeClock(SimulatedPlatform::Time time)
{
    if (time == SimulatedPlatform::Time::real)
        return std::make_unique<SystemClock>();
    return std::make_unique<ManualClock>();
}

} // namespace

SimulatedPlatform::SimulatedPlatform(Time time)
    : m_clock(makeClock(time))
    , m_manualClock(dynamic_cast<ManualClock *>(m_clock.get()))
    , m_desktop(*m_clock)
{
}

ManualClock &SimulatedPlatform::manualClock()
{
    Q_ASSERT(m_manualClock);
    return *m_manualClock;
}

void SimulatedPlatform::deliver()
{
    m_desktop.catchUp();
    m_desktop.notices().deliver();
}

} // namespace corvane
