#include "SimulatedDesktop.h"

#include <algorithm>

namespace corvane {

SimulatedDesktop::SimulatedDesktop(Clock &clock) : m_clock(clock), m_notices(clock) { }

quint32 SimulatedDesktop::plug(SimulatedDisplay display)
{
    if (display.displayID == 0)
        display.displayID = m_lastDisplayID + 1;
    Q_ASSERT(std::ranges::find(m_displays, display.displayID, &SimulatedDisplay::displayID)
        == m_displays.end());
    m_lastDisplayID = std::max(m_lastDisplayID, display.displayID);
    m_displays << display;
    tellDisplayChange();
    return display.displayID;
}

void SimulatedDesktop::unplug(quint32 displayID)
{
    m_displays.removeIf([&](const SimulatedDisplay &each) { return each.displayID == displayID; });
    tellDisplayChange();
}

void SimulatedDesktop::makePrimary(quint32 displayID)
{
    m_displays.move(&display(displayID) - m_displays.constData(), 0);
    tellDisplayChange();
}

void SimulatedDesktop::addPanel(quint32 displayID, SimulatedPanel panel)
{
    display(displayID).panels << panel;
    tellDisplayChange();
}

QList<ScreenInfo> SimulatedDesktop::screens() const
{
    QList<ScreenInfo> screens;
    for (const SimulatedDisplay &display : m_displays)
        screens << display.info();
    return screens;
}

void SimulatedDesktop::loseTrust(const QString &reason)
{
    Q_ASSERT(isTrusted() && !reason.isEmpty());
    m_distrustReason = reason;
    m_notices.post([this] { Q_EMIT trustChanged(false); });
}

void SimulatedDesktop::regainTrust()
{
    Q_ASSERT(!isTrusted());
    m_distrustReason.clear();
    m_notices.post([this] { Q_EMIT trustChanged(true); });
}

void SimulatedDesktop::catchUp()
{
    while (!m_timeline.empty() && m_timeline.begin()->first <= m_clock.now()) {
        const auto event = m_timeline.extract(m_timeline.begin());
        event.mapped()();
    }
}

SimulatedDisplay &SimulatedDesktop::display(quint32 displayID)
{
    const auto display = std::ranges::find(m_displays, displayID, &SimulatedDisplay::displayID);
    Q_ASSERT(display != m_displays.end());
    return *display;
}

void SimulatedDesktop::tellDisplayChange()
{
    if (std::exchange(m_displayChangePending, true))
        return;
    m_notices.post([this] {
        m_displayChangePending = false;
        Q_EMIT displaysChanged();
    });
}

// What is late is late even while the caller sleeps and no action can run: every call reads the
// timeline first. The clock's action is for what nobody calls for.
void SimulatedDesktop::schedule(Duration delay, std::function<void()> event)
{
    m_timeline.emplace(m_clock.now() + delay, std::move(event));
    m_clock.after(delay, this, [this] { catchUp(); });
}

ScreenInfo SimulatedDesktop::screenOf(const Rect &frame) const
{
    ScreenInfo best{frame, frame, 0, {}};
    double bestArea = 0;
    for (const ScreenInfo &screen : screens()) {
        const double area = screen.frame.intersectionArea(frame);
        if (area > bestArea) {
            best = screen;
            bestArea = area;
        }
    }
    return best;
}

} // namespace corvane
