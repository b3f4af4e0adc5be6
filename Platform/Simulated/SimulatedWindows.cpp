#include "SimulatedWindows.h"

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

SimulatedWindows::SimulatedWindows(SimulatedDesktop &desktop) : m_desktop(desktop)
{
    connect(&desktop, &SimulatedDesktop::windowClosed, this, &WindowAccess::windowClosed);
    connect(&desktop, &SimulatedDesktop::trustChanged, this, &WindowAccess::trustChanged);
    connect(&desktop, &SimulatedDesktop::windowOpened, this,
        [this](const WindowElement &window, pid_t pid) {
            if (m_observed.contains(pid) && m_desktop.isTrusted())
                Q_EMIT windowCreated(window, pid);
        });
}

bool SimulatedWindows::isTrusted()
{
    return m_desktop.isTrusted();
}

QString SimulatedWindows::distrustReason()
{
    return m_desktop.distrustReason();
}

void SimulatedWindows::setMessagingTimeout(double seconds)
{
    m_messagingTimeout = Clock::Duration(std::llround(seconds * 1000));
}

WindowAccess::Focused SimulatedWindows::focusedWindow()
{
    m_desktop.catchUp();
    if (!m_desktop.isTrusted())
        return {{}, 0, AXError::apiDisabled};
    const auto focused = m_desktop.focused();
    if (!focused)
        return {};
    const SimulatedWindow &window = m_desktop.window(*focused);
    if (const AXError status = answer(window.pid); status != AXError::success)
        return {{}, window.pid, status};
    Focused found{window.element, window.pid};
    if (!window.isOrdinary())
        found.window.reset();
    return found;
}

expected<QList<WindowElement>, AXError> SimulatedWindows::windows(pid_t pid)
{
    m_desktop.catchUp();
    QList<WindowElement> windows;
    if (!m_desktop.isTrusted())
        return windows;
    if (const AXError status = answer(pid); status != AXError::success)
        return unexpected<AXError>(status);
    for (const WindowElement &element : m_desktop.stack()) {
        const SimulatedWindow &window = m_desktop.window(element);
        if (window.pid == pid && !window.onOtherWorkspace)
            windows << element;
    }
    return windows;
}

QList<OnScreenWindow> SimulatedWindows::onScreenWindows()
{
    m_desktop.catchUp();
    QList<OnScreenWindow> windows;
    for (const WindowElement &element : m_desktop.stack()) {
        const SimulatedWindow &window = m_desktop.window(element);
        if (!window.onOtherWorkspace && !window.minimised && window.kind != WindowKind::desktop)
            windows << OnScreenWindow{window.pid, window.frame};
    }
    return windows;
}

expected<Rect, AXError> SimulatedWindows::frame(const WindowElement &window)
{
    return reachToRead(window).map(
        [this](const SimulatedWindow *seen) { return seenFrame(*seen); });
}

expected<QString, AXError> SimulatedWindows::title(const WindowElement &window)
{
    return reachToRead(window).map([](const SimulatedWindow *seen) { return seen->title; });
}

expected<bool, AXError> SimulatedWindows::isFullScreen(const WindowElement &window)
{
    return reachToRead(window).map([](const SimulatedWindow *seen) { return seen->fullScreen; });
}

expected<bool, AXError> SimulatedWindows::isMinimized(const WindowElement &window)
{
    return reachToRead(window).map([](const SimulatedWindow *seen) { return seen->minimised; });
}

expected<bool, AXError> SimulatedWindows::isWindow(const WindowElement &window)
{
    return reachToRead(window).map([](const SimulatedWindow *seen) { return seen->isOrdinary(); });
}

expected<bool, AXError> SimulatedWindows::isStandard(const WindowElement &window)
{
    return reachToRead(window).map(
        [](const SimulatedWindow *seen) { return seen->kind == WindowKind::standard; });
}

AXError SimulatedWindows::setPosition(const WindowElement &window, Point origin)
{
    const AXError status = writePosition(window, origin);
    m_writes << WindowWrite{window, origin, status};
    return status;
}

AXError SimulatedWindows::setSize(const WindowElement &window, Size size)
{
    const AXError status = writeSize(window, size);
    m_writes << WindowWrite{window, size, status};
    return status;
}

bool SimulatedWindows::isFinal(const WindowElement &window, Size size)
{
    const auto seen = reachToRead(window);
    return seen && seenFrame(**seen).size() == (*seen)->constrained(size);
}

QString SimulatedWindows::refusalDetail(const WindowElement &window)
{
    const SimulatedWindow *there = m_desktop.findWindow(window);
    return there ? there->lastRefusal : QString();
}

std::optional<WindowState> SimulatedWindows::endedState(const WindowElement &window) const
{
    const SimulatedWindow *there = m_desktop.findWindow(window);
    return there ? there->endedState : std::nullopt;
}

AXError SimulatedWindows::restore(
    const WindowElement &window, const Rect &frame, const std::optional<WindowState> &state)
{
    const auto there = reachToRead(window);
    if (!there)
        return there.error();
    if (const auto refused = refusal(**there, (*there)->refusesPosition))
        return *refused;
    if (const auto refused = refusal(**there, (*there)->refusesSize))
        return *refused;
    m_desktop.restoreWindow(**there, frame, state);
    return AXError::success;
}

void SimulatedWindows::raise(const WindowElement &window)
{
    if (reachToRead(window))
        m_desktop.raise(window);
}

void SimulatedWindows::makeMain(const WindowElement &window)
{
    const auto seen = reachToRead(window);
    if (!seen)
        return;
    const auto focused = m_desktop.focused();
    const pid_t pid = (*seen)->pid;
    if (focused && m_desktop.window(*focused).pid == pid)
        m_desktop.focus(window);
    else
        m_desktop.application(pid).mainWindow = window;
}

void SimulatedWindows::bringForward(pid_t pid)
{
    m_desktop.catchUp();
    const SimulatedApplication *application = m_desktop.findApplication(pid);
    if (!application || !m_desktop.isTrusted() || answer(pid) != AXError::success)
        return;
    m_desktop.raiseApplication(pid);
    if (application->mainWindow)
        return m_desktop.focus(*application->mainWindow);
    if (const auto its = windows(pid); its && !its->isEmpty())
        m_desktop.focus(its->first());
}

bool SimulatedWindows::bringToFrontAlone(const WindowElement &window)
{
    const auto seen = reachToRead(window);
    if (!seen || !m_desktop.bringsOneForward)
        return false;
    (*seen)->minimised = false;
    m_desktop.raise(window);
    m_desktop.focus(window);
    return true;
}

AXError SimulatedWindows::observe(pid_t pid)
{
    m_desktop.catchUp();
    if (!m_desktop.isTrusted())
        return AXError::apiDisabled;
    if (!m_desktop.findApplication(pid))
        return AXError::failure;
    const AXError status = answer(pid);
    if (status == AXError::success)
        m_observed.insert(pid);
    return status;
}

void SimulatedWindows::stopObserving(pid_t pid)
{
    m_observed.remove(pid);
}

void SimulatedWindows::beginOperation()
{
    ++m_operationDepth;
}

void SimulatedWindows::endOperation()
{
    Q_ASSERT(m_operationDepth > 0);
    if (--m_operationDepth > 0)
        return;
    ++m_operationCount;
    for (const WindowElement &element : m_heldSizes.keys())
        if (SimulatedWindow *window = m_desktop.findWindow(element))
            sendHeldSize(*window);
    m_heldSizes.clear();
    m_seenFrames.clear();
    for (const WindowElement &element : m_desktop.stack())
        m_desktop.window(element).endedState.reset();
}

/// Asks nothing of a window and tells nothing about it, as a request sent without waiting.
void SimulatedWindows::moveAhead(const QList<WindowMove> &moves)
{
    Q_ASSERT(m_operationDepth > 0);
    m_movesAhead << moves;
    for (const WindowMove &move : moves) {
        SimulatedWindow *window = m_desktop.findWindow(move.window);
        if (!window || m_desktop.application(window->pid).hung
            || refusal(*window, window->refusesPosition) || refusal(*window, window->refusesSize))
            continue;
        this->move(*window, move.frame.origin());
        resize(*window, move.frame.size());
    }
}

expected<SimulatedWindow *, AXError> SimulatedWindows::reach(const WindowElement &element)
{
    m_desktop.catchUp();
    if (!m_desktop.isTrusted())
        return unexpected(AXError::apiDisabled);
    SimulatedWindow *window = m_desktop.findWindow(element);
    if (window && window->vanishesAfterCalls && (*window->vanishesAfterCalls)-- <= 0) {
        m_desktop.closeWindow(element);
        window = nullptr;
    }
    if (!window)
        return unexpected(AXError::invalidUIElement);
    if (const AXError status = answer(window->pid); status != AXError::success)
        return unexpected(status);
    return window;
}

expected<SimulatedWindow *, AXError> SimulatedWindows::reachToRead(const WindowElement &element)
{
    const auto window = reach(element);
    if (window)
        sendHeldSize(**window);
    return window;
}

Rect SimulatedWindows::seenFrame(const SimulatedWindow &window)
{
    if (!m_desktop.sharesReads || m_operationDepth == 0)
        return window.frame;
    if (!m_seenFrames.contains(window.element))
        m_seenFrames.insert(window.element, window.frame);
    return m_seenFrames.value(window.element);
}

AXError SimulatedWindows::answer(pid_t pid)
{
    const SimulatedApplication *application = m_desktop.findApplication(pid);
    if (!application || !application->hung)
        return AXError::success;
    m_desktop.clock().sleep(m_messagingTimeout);
    return AXError::cannotComplete;
}

std::optional<AXError> SimulatedWindows::refusal(
    SimulatedWindow &window, std::optional<AXError> refused)
{
    window.lastRefusal.clear();
    if (m_desktop.tiling && window.kind == WindowKind::standard) {
        window.lastRefusal = u"tiled by the window manager"_s;
        return AXError::failure;
    }
    if (window.fullScreen) {
        window.lastRefusal = u"in full screen"_s;
        return AXError::failure;
    }
    if (refused)
        window.lastRefusal = window.refusalDetail;
    return refused;
}

AXError SimulatedWindows::writePosition(const WindowElement &element, Point origin)
{
    const auto window = reach(element);
    if (!window)
        return window.error();
    if (const auto refused = refusal(**window, (*window)->refusesPosition))
        return *refused;
    if (!std::isfinite(origin.x) || !std::isfinite(origin.y))
        return AXError::failure;
    move(**window, origin);
    sendHeldSize(**window);
    return AXError::success;
}

AXError SimulatedWindows::writeSize(const WindowElement &element, Size size)
{
    const auto window = reach(element);
    if (!window)
        return window.error();
    if (const auto refused = refusal(**window, (*window)->refusesSize))
        return *refused;
    if (!std::isfinite(size.width) || !std::isfinite(size.height))
        return AXError::failure;
    if (m_desktop.holdsSizes && m_operationDepth > 0)
        m_heldSizes.insert(element, size);
    else
        resize(**window, size);
    return AXError::success;
}

void SimulatedWindows::sendHeldSize(SimulatedWindow &window)
{
    if (const auto held = m_heldSizes.constFind(window.element); held != m_heldSizes.constEnd()) {
        resize(window, *held);
        m_heldSizes.erase(held);
    }
}

void SimulatedWindows::move(SimulatedWindow &window, Point origin)
{
    const Rect before = window.frame;
    m_desktop.moveWindow(window, origin);
    if (window.frame != before)
        m_seenFrames.remove(window.element);
}

void SimulatedWindows::resize(SimulatedWindow &window, Size size)
{
    const Rect before = window.frame;
    m_desktop.resizeWindow(window, size);
    if (window.frame != before)
        m_seenFrames.remove(window.element);
}

} // namespace corvane
