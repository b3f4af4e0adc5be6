#include "StrayWatch.h"

#include "Geometry.h"

namespace corvane {

using namespace std::chrono_literals;

namespace {

constexpr Clock::Duration quietFor = 500ms;
constexpr Clock::Duration atMost = 5s;
constexpr double tolerance = 4; // points
// A program that insists on its place is let have it.
constexpr int mostReturns = 5;

} // namespace

StrayWatch::StrayWatch(
    const Rect &target, const Rect &place, Clock::Duration now, Clock::Duration atLeast)
    : m_target(target)
    , m_place(place)
    , m_seen(place)
    , m_begin(now)
    , m_atLeast(atLeast)
    , m_changed(now)
{
}

StrayWatch::Finding StrayWatch::judge(const Rect &frame, bool isButtonDown, Clock::Duration now)
{
    if (isButtonDown)
        m_buttonDown = now;
    const bool isChanging = frame != m_seen;
    if (isChanging && m_buttonDown && now <= *m_buttonDown + quietFor)
        return Finding::over;
    if (isChanging) {
        m_seen = frame;
        m_changed = now;
    }
    if (now > m_begin + atMost)
        return Finding::over;
    if (!isInPlace(frame)) {
        if (m_returns == mostReturns)
            return Finding::over;
        return isChanging ? Finding::inPlace : Finding::strayed;
    }
    const bool isQuiet = now >= m_begin + m_atLeast && now >= m_changed + quietFor;
    return isQuiet ? Finding::over : Finding::inPlace;
}

void StrayWatch::settle(const Rect &place, Clock::Duration now)
{
    m_place = place;
    m_seen = place;
    m_changed = now;
    ++m_returns;
}

bool StrayWatch::isInPlace(const Rect &frame) const
{
    return Geometry::approximatelyEqual(frame, m_place, tolerance)
        || Geometry::approximatelyEqual(frame, m_target, tolerance);
}

} // namespace corvane
