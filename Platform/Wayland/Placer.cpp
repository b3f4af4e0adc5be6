#include "Placer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unistd.h>

namespace corvane::wayland {

using namespace std::chrono_literals;

namespace {

constexpr double tolerance = 1;
// A window that makes another size of a request may be on its way through it.
constexpr auto quietTime = 20ms;
// When a window's frame is looked at again. Clients that are slow to draw have answered by then.
constexpr std::array reviewTimes{50ms, 150ms, 300ms, 900ms};
// What a window was asked for longer ago no longer comes back.
constexpr auto answersWithin = 1s;
constexpr int mostRepairs = 5;
constexpr qsizetype mostEarlier = 16;
// A window that becomes smaller than it has ever been may refuse, after it has laid itself out.
constexpr int holdsToShrink = 3;

bool isSame(double a, double b)
{
    return std::abs(a - b) < tolerance;
}

bool isSame(Size a, Size b)
{
    return isSame(a.width, b.width) && isSame(a.height, b.height);
}

bool hasGrown(const Rect &before, const Rect &now)
{
    return isSame(before.x, now.x) && isSame(before.y, now.y)
        && now.width > before.width - tolerance && now.height > before.height - tolerance;
}

bool isOurs(const Toplevel &window)
{
    static const pid_t ours = getpid();
    return window.traces.pid == ours;
}

} // namespace

bool isSame(const Rect &a, const Rect &b)
{
    return isSame(a.x, b.x) && isSame(a.y, b.y) && isSame(a.size(), b.size());
}

Placer::Placer(ToplevelRegistry &registry)
    : m_registry(registry), m_compositor(registry.compositor())
{
    m_review.setSingleShot(true);
    m_review.setTimerType(Qt::PreciseTimer);
    connect(&m_review, &QTimer::timeout, this, &Placer::review);
    connect(&m_compositor, &Compositor::framesChanged, this, &Placer::review);
    connect(&registry, &ToplevelRegistry::vanished, this, [this](const Toplevel &window) {
        forget(window.element);
        m_least.remove(window.element);
        m_refusals.remove(window.element);
    });
}

AXError Placer::place(const QList<WindowMove> &moves)
{
    QList<WindowElement> windows;
    for (const WindowMove &move : moves) {
        const auto placement = m_placements.constFind(move.window);
        if (placement != m_placements.cend() && placement->state == State::asked)
            windows << move.window;
    }
    if (!windows.isEmpty())
        await(windows, Clock::now() + m_compositor.messagingTimeout());
    const auto requests = requestsFor(moves);
    if (!requests || requests->isEmpty())
        return requests ? AXError::success : requests.error();
    QList<WindowMove> asked;
    for (const auto &[window, frame] : *requests)
        asked << WindowMove{window.element, frame};
    if (const AXError error = m_compositor.place(asked); error != AXError::success)
        return error;
    const Time now = Clock::now();
    windows.clear();
    for (const auto &[window, frame] : *requests) {
        if (!isOurs(window))
            windows << window.element;
        m_placements.insert(window.element, begun(window, frame, now));
    }
    await(windows, now + m_compositor.messagingTimeout());
    scheduleReview();
    const bool isComplete = std::ranges::none_of(windows, [this](const WindowElement &window) {
        return m_placements.value(window).state == State::unanswered;
    });
    return isComplete ? AXError::success : AXError::cannotComplete;
}

/// Without the windows that are gone, and those that stand as they would again.
expected<QList<Placer::Request>, AXError> Placer::requestsFor(const QList<WindowMove> &moves)
{
    QList<Request> requests;
    for (const WindowMove &move : moves) {
        const auto told = m_registry.toplevel(move.window);
        if (!told && told.error() != AXError::invalidUIElement)
            return unexpected<AXError>(told.error());
        const Rect frame = told ? askedFor(*told, move.frame) : Rect();
        const bool standsAgain = told && !isSame(frame, move.frame) && isSame(frame, told->frame);
        if (told && !standsAgain)
            requests << Request{*told, frame};
    }
    return requests;
}

/// Asked once more for a size that it refused, a window has nothing new to tell, and a compositor that
/// tells what is asked for would never be corrected.
Rect Placer::askedFor(const Toplevel &window, const Rect &frame) const
{
    const auto refusal = m_refusals.constFind(window.element);
    const bool isRefused = refusal != m_refusals.cend() && !window.hasState()
        && m_compositor.holdTime() > 0ms && isSame(refusal->asked, frame.size())
        && isSame(refusal->taken, window.frame.size());
    return isRefused ? Rect{frame.x, frame.y, refusal->taken.width, refusal->taken.height} : frame;
}

Placer::Placement Placer::begun(const Toplevel &window, const Rect &frame, Time now) const
{
    Placement placement{.wanted = frame,
        .before = window.frame,
        .earlier = {},
        .sent = now,
        .seen = window.frame,
        .seenSince = now};
    const Placement last = m_placements.value(window.element);
    const bool isSoon = last.sent != Time() && now - last.sent < answersWithin;
    if (isSoon)
        placement.earlier << last.earlier << last.wanted.size();
    if (isSoon || window.hasState())
        placement.earlier << window.frame.size() << window.client; // which may lose its border
    // A tile may be smaller than the window that draws itself behind it, but what ours want they take.
    placement.isSuspect = isOurs(window) && window.hasState();
    placement.earlier.removeIf([&](Size size) { return isSame(size, frame.size()); });
    if (placement.earlier.size() > mostEarlier)
        placement.earlier.remove(0, placement.earlier.size() - mostEarlier);
    return placement;
}

bool Placer::waitFor(
    const WindowElement &window, const std::function<bool(const Toplevel &)> &isDone)
{
    const Time deadline = Clock::now() + m_compositor.messagingTimeout();
    do {
        m_registry.outdate();
        const auto now = m_registry.toplevel(window);
        if (!now)
            return false;
        if (isDone(*now))
            return true;
    } while (m_compositor.waitForFrames(deadline));
    return false;
}

/// Reads the windows until all of them have settled.
void Placer::await(const QList<WindowElement> &windows, Time deadline)
{
    QList<WindowElement> left = windows;
    // A question would hold up a compositor that has yet to hand the sizes out.
    if (!left.isEmpty())
        std::ignore = m_compositor.waitForFrames(std::min(deadline, Clock::now() + quietTime));
    while (true) {
        m_registry.outdate();
        const auto desk = m_registry.desk(Compositor::Scope::all);
        if (!desk)
            return;
        const Time now = Clock::now();
        left.removeIf([&](const WindowElement &window) {
            const auto placement = m_placements.find(window);
            const Toplevel *told = desk->find(window);
            if (!told || placement == m_placements.end())
                return true;
            look(*placement, *told, now);
            return placement->state == State::settled;
        });
        if (left.isEmpty())
            return;
        // Until a frame that deviates has been quiet for long enough, were nothing told.
        if (!m_compositor.waitForFrames(std::min(deadline, now + quietTime))
            && Clock::now() >= deadline)
            break;
    }
    for (const WindowElement &window : std::as_const(left))
        m_placements[window].state = State::unanswered;
}

void Placer::look(Placement &placement, const Toplevel &window, Time now)
{
    if (!isSame(std::exchange(placement.seen, window.frame), window.frame))
        placement.seenSince = now;
    if (placement.state == State::settled)
        return;
    const Rect &frame = window.frame;
    if (isSame(frame, placement.wanted)) {
        placement.wasTaken = true;
        if (now - placement.sent >= holdTime(placement, window.element)) {
            placement.state = State::settled;
            learn(window.element, frame.size());
        }
        return;
    }
    if (isStale(window.element, placement, frame)) {
        repeatIfDue(window.element, placement, now);
        return;
    }
    const Rect answer{placement.wanted.x, placement.wanted.y, frame.width, frame.height};
    const bool mayAnswer = !isSame(frame, placement.before)
        || (isSame(frame, answer) && isSame(window.sizeFor(placement.wanted.size()), frame.size()));
    const bool mayResize = isSame(frame.size(), placement.before.size())
        && !isSame(window.sizeFor(placement.wanted.size()), frame.size());
    const auto quiet = std::max<Clock::duration>(
        {quietTime, m_compositor.holdTime(), mayResize ? m_compositor.resizeTime() : 0ms});
    if (mayAnswer && now - std::max(placement.seenSince, placement.sent) >= quiet) {
        placement.state = State::settled;
        m_refusals.insert(window.element, {placement.wanted.size(), frame.size()});
    }
}

Compositor::Duration Placer::holdTime(const Placement &placement, const WindowElement &window) const
{
    const Size wanted = placement.wanted.size();
    const Size least = m_least.value(window, placement.before.size());
    const bool isNew = wanted.width < least.width || wanted.height < least.height;
    return m_compositor.holdTime() * (isNew ? holdsToShrink : 1);
}

void Placer::learn(const WindowElement &window, Size taken)
{
    const Size least = m_least.value(window, taken);
    m_least[window] = {std::min(least.width, taken.width), std::min(least.height, taken.height)};
}

/// Whether the frame is the answer to an earlier request, that has come after the last one.
bool Placer::isStale(
    const WindowElement &window, const Placement &placement, const Rect &frame) const
{
    const bool isUntouched = isSame(frame, placement.before) && !placement.wasTaken;
    if (isUntouched || isSame(frame.size(), placement.wanted.size()))
        return false;
    const bool isEarlier = std::ranges::any_of(
        placement.earlier, [&](Size size) { return isSame(size, frame.size()); });
    return placement.repairs < mostRepairs
        && (placement.isSuspect || (isEarlier && !isLimit(window, placement, frame.size())));
}

/// Whether it is a size that the window insisted on before, and may insist on again: no smaller than what it
/// was asked for.
bool Placer::isLimit(const WindowElement &window, const Placement &placement, Size size) const
{
    const auto refusal = m_refusals.constFind(window);
    return refusal != m_refusals.cend() && isSame(refusal->taken, size)
        && size.width > placement.wanted.width - tolerance
        && size.height > placement.wanted.height - tolerance;
}

/// A window on a busy machine has each time twice as long to answer.
void Placer::repeatIfDue(const WindowElement &window, Placement &placement, Time now)
{
    if (placement.repairs > 0 && now - placement.sent < quietTime * (1 << (placement.repairs - 1)))
        return;
    ++placement.repairs;
    std::ignore = m_compositor.place({{window, placement.wanted}});
    placement.sent = placement.seenSince = now;
    placement.reviews = 0;
}

bool Placer::hasAnswered(const WindowElement &window, Size asked) const
{
    const auto placement = m_placements.constFind(window);
    const auto refusal = m_refusals.constFind(window);
    return placement != m_placements.cend() && placement->state == State::settled
        && (isSame(placement->wanted.size(), asked)
            || (refusal != m_refusals.cend() && isSame(refusal->asked, asked)
                && isSame(refusal->taken, placement->wanted.size())));
}

Rect Placer::dueFrame(const Toplevel &window)
{
    const auto placement = m_placements.find(window.element);
    if (placement == m_placements.end())
        return window.frame;
    if (isOurs(window) && placement->state == State::asked)
        return placement->wanted;
    if (!isStale(window.element, *placement, window.frame))
        return window.frame;
    repeatIfDue(window.element, *placement, Clock::now());
    scheduleReview();
    return placement->wanted;
}

/// A window that stood at an edge of its display, and has grown beyond it.
void Placer::bringInside(
    const Toplevel &window, const Rect &wanted, const QList<WorkArea> &workAreas)
{
    m_refusals.insert(window.element, {wanted.size(), window.frame.size()});
    const auto area = std::ranges::max_element(
        workAreas, {}, [&](const WorkArea &each) { return each.visible.intersectionArea(wanted); });
    if (area == workAreas.end())
        return;
    const Rect &bounds = area->visible;
    Rect frame = window.frame;
    if (frame.maxX() > bounds.maxX())
        frame.x = std::max(bounds.x, wanted.maxX() - frame.width);
    if (frame.maxY() > bounds.maxY())
        frame.y = std::max(bounds.y, wanted.maxY() - frame.height);
    if (!isSame(frame, window.frame))
        std::ignore = m_compositor.place({{window.element, frame}});
}

void Placer::scheduleReview()
{
    std::optional<Time> next;
    for (const Placement &placement : std::as_const(m_placements)) {
        const Time due = placement.sent + reviewTimes.at(placement.reviews);
        next = next ? std::min(*next, due) : due;
    }
    if (next)
        m_review.start(
            std::max(0ms, std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now())));
    else
        m_review.stop();
}

/// Looks at what was placed a while ago.
void Placer::review()
{
    if (m_placements.isEmpty())
        return;
    m_registry.outdate();
    const auto desk = m_registry.desk(Compositor::Scope::all);
    const Time now = Clock::now();
    m_placements.removeIf([&](auto entry) {
        Placement &placement = entry.value();
        const Toplevel *window = desk ? desk->find(entry.key()) : nullptr;
        if (!window)
            return true;
        if (isOurs(*window))
            look(placement, *window, now);
        else if (isStale(entry.key(), placement, window->frame))
            repeatIfDue(entry.key(), placement, now);
        // Somebody else has moved it, or it does not become as small as it seemed to.
        if (placement.state == State::settled && !isSame(placement.seen, window->frame)) {
            if (hasGrown(placement.wanted, window->frame))
                bringInside(*window, placement.wanted, desk->workAreas);
            return true;
        }
        while (placement.reviews < reviewTimes.size()
            && now - placement.sent >= reviewTimes.at(placement.reviews))
            ++placement.reviews;
        return placement.reviews >= reviewTimes.size();
    });
    scheduleReview();
}

} // namespace corvane::wayland
