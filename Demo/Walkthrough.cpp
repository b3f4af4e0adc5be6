#include "Walkthrough.h"

#include "Shortcuts.h"

#include <thread>

namespace corvane::demo {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using desktop::KeyStroke;
using desktop::settled;
using desktop::waitUntil;
using Timer = std::chrono::steady_clock;

namespace {

constexpr auto landingDeadline = 2s;
constexpr auto lookInterval = 100us;
constexpr desktop::Milliseconds rest = 60ms;

double millisecondsSince(Timer::time_point start)
{
    return std::chrono::duration<double, std::milli>(Timer::now() - start).count();
}

} // namespace

Walkthrough::Walkthrough(Desk &desk, desktop::CorvaneProcess &corvane)
    : m_desk(desk)
    , m_corvane(corvane)
    , m_probe(desk.connection())
    , m_pager(desk.connection())
    , m_keys(desk.connection())
    , m_expectation(desk.areas())
{
    for (const Application application : applications) {
        if (const auto frame = m_probe.settledFrame(desk.window(application)))
            m_expectation.setOriginal(application, *frame);
    }
}

StepResult Walkthrough::perform(const Step &step)
{
    const xcb_window_t window = m_desk.window(step.application);
    const bool inFront = bringForward(step);
    const Rect before = m_probe.visibleFrame(window).value_or(Rect());
    const SizeLimits limits = sizeLimits(m_desk.connection(), window);
    const qsizetype seen = m_corvane.log().size();
    StepResult result{step, {}, m_expectation.ask(step, before), {}, {}, false, {}};
    const auto hasLanded = [&](const Rect &frame) {
        return m_expectation.isLanding(frame, result.asked, limits);
    };
    const auto keys = shortcut(step.pressed);
    if (keys && isRegistered(step.pressed)) {
        result.keys = keysText(*keys);
        result.milliseconds = press(*keys, window, hasLanded);
    } else {
        result.keys = u"corvane --place "_s + rawValue(step.pressed);
        const auto answer = m_corvane.place(rawValue(step.pressed));
        if (answer.exitStatus == 0)
            result.milliseconds = answer.duration.count();
    }
    static_cast<void>(m_corvane.waitForLog(rawValue(step.pressed) + u':', seen, 2s));
    result.report = m_corvane.log().mid(seen).join(u'\n');
    result.reached = settled([&] { return m_probe.visibleFrame(window); }, rest);
    // A window that stood there all along proves nothing.
    result.landed = inFront && !hasLanded(before) && result.milliseconds && result.reached
        && hasLanded(*result.reached);
    return result;
}

bool Walkthrough::bringForward(const Step &step)
{
    const xcb_window_t window = m_desk.window(step.application);
    m_pager.activate(window);
    const bool inFront = waitUntil([&] { return m_probe.activeWindow() == window; });
    if (step.start == Step::Start::asItStands)
        return inFront;
    const auto isMaximized = [&] {
        return m_probe.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT");
    };
    m_pager.setMaximized(window, desktop::Pager::Change::add);
    const bool maximized = waitUntil(isMaximized);
    static_cast<void>(m_probe.settledFrame(window));
    return inFront && maximized;
}

std::optional<double> Walkthrough::press(
    const KeyStroke &stroke, xcb_window_t window, const Predicate &hasLanded)
{
    m_keys.holdModifiers(stroke);
    const auto start = Timer::now();
    m_keys.key(stroke.key, true);
    m_keys.key(stroke.key, false);
    std::optional<double> duration;
    while (!duration && Timer::now() - start < landingDeadline) {
        if (const auto frame = m_probe.visibleFrame(window); frame && hasLanded(*frame))
            duration = millisecondsSince(start);
        else
            std::this_thread::sleep_for(lookInterval);
    }
    m_keys.releaseModifiers(stroke);
    return duration;
}

// The line of readiness names the shortcuts that the desktop keeps for itself.
bool Walkthrough::isRegistered(Placement placement) const
{
    const QString refused = m_corvane.readyLine().section(u"another app: "_s, 1);
    return !refused.split(u", "_s).contains(rawValue(placement));
}

} // namespace corvane::demo
