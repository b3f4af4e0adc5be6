#include "WaylandWindowAccess.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <unistd.h>

namespace corvane::wayland {

using namespace Qt::StringLiterals;
using Scope = Compositor::Scope;

namespace {

template <typename Read>
auto read(const expected<Toplevel, AXError> &window, Read value)
    -> expected<decltype(value(*window)), AXError>
{
    if (!window)
        return unexpected<AXError>(window.error());
    return value(*window);
}

} // namespace

WaylandWindowAccess::WaylandWindowAccess(ToplevelRegistry &registry, Placer &placer)
    : m_registry(registry), m_compositor(registry.compositor()), m_placer(placer)
{
    connect(&registry, &ToplevelRegistry::appeared, this, &WaylandWindowAccess::announce);
    connect(&registry, &ToplevelRegistry::vanished, this, &WaylandWindowAccess::forget);
    connect(&m_compositor, &Compositor::presenceChanged, this, [this] {
        m_registry.defer(
            [this, isPresent = m_compositor.isPresent()] { Q_EMIT trustChanged(isPresent); });
    });
}

bool WaylandWindowAccess::isTrusted()
{
    return m_compositor.isPresent();
}

QString WaylandWindowAccess::distrustReason()
{
    return isTrusted()
        ? QString()
        : QCoreApplication::translate("corvane::wayland",
            "The compositor of this session does not answer, so no window can be moved.");
}

void WaylandWindowAccess::setMessagingTimeout(double seconds)
{
    m_compositor.setMessagingTimeout(
        std::chrono::duration_cast<Compositor::Duration>(std::chrono::duration<double>(seconds)));
}

WindowAccess::Focused WaylandWindowAccess::focusedWindow()
{
    const auto desk = m_registry.desk(Scope::focused);
    if (!desk)
        return {.window = {}, .status = desk.error()};
    const Toplevel *window = desk->focused ? desk->find(*desk->focused) : nullptr;
    if (!window || window->kind == ToplevelKind::panel || window->kind == ToplevelKind::desktop)
        return {};
    return {.window = window->element, .pid = window->traces.pid};
}

expected<QList<WindowElement>, AXError> WaylandWindowAccess::windows(pid_t pid)
{
    if (!isTrusted())
        return QList<WindowElement>();
    const auto desk = m_registry.desk(Scope::all);
    if (!desk)
        return unexpected<AXError>(desk.error());
    QList<WindowElement> windows;
    for (const Toplevel &window : desk->windows) {
        if (window.traces.pid == pid && window.here)
            windows << window.element;
    }
    return windows;
}

QList<OnScreenWindow> WaylandWindowAccess::onScreenWindows()
{
    const auto desk = m_registry.desk(Scope::all);
    QList<OnScreenWindow> windows;
    for (const Toplevel &window : desk ? desk->windows : QList<Toplevel>()) {
        if (window.isOnScreen() && window.kind != ToplevelKind::desktop)
            windows << OnScreenWindow{window.traces.pid, window.frame};
    }
    return windows;
}

expected<Rect, AXError> WaylandWindowAccess::frame(const WindowElement &window)
{
    return read(toplevel(window), [this](const Toplevel &told) { return m_placer.dueFrame(told); });
}

expected<QString, AXError> WaylandWindowAccess::title(const WindowElement &window)
{
    return read(toplevel(window), [](const Toplevel &told) { return told.title; });
}

expected<bool, AXError> WaylandWindowAccess::isFullScreen(const WindowElement &window)
{
    return read(toplevel(window), [](const Toplevel &told) { return told.fullScreen; });
}

expected<bool, AXError> WaylandWindowAccess::isMinimized(const WindowElement &window)
{
    return read(toplevel(window), [](const Toplevel &told) { return told.minimized; });
}

expected<bool, AXError> WaylandWindowAccess::isWindow(const WindowElement &window)
{
    return read(toplevel(window), [](const Toplevel &told) {
        return told.kind != ToplevelKind::panel && told.kind != ToplevelKind::desktop;
    });
}

expected<bool, AXError> WaylandWindowAccess::isStandard(const WindowElement &window)
{
    return read(
        toplevel(window), [](const Toplevel &told) { return told.kind == ToplevelKind::standard; });
}

AXError WaylandWindowAccess::setPosition(const WindowElement &window, Point origin)
{
    // The held size goes out with the position, in one request.
    std::optional<Size> size;
    if (m_pendingSize && m_pendingSize->window == window) {
        size = m_pendingSize->size;
        m_pendingSize.reset();
    }
    const auto before = toplevel(window);
    if (!before)
        return before.error();
    const Size wanted = size.value_or(before->frame.size());
    return place(*before, {origin.x, origin.y, wanted.width, wanted.height});
}

AXError WaylandWindowAccess::setSize(const WindowElement &window, Size size)
{
    if (!isTrusted())
        return AXError::apiDisabled;
    if (!m_registry.known(window))
        return AXError::invalidUIElement;
    if (m_pendingSize && m_pendingSize->window != window)
        std::ignore = flushSize();
    m_pendingSize = PendingSize{window, size};
    return m_registry.isInOperation() ? AXError::success : flushSize();
}

bool WaylandWindowAccess::isFinal(const WindowElement &window, Size size)
{
    const auto now = toplevel(window);
    return now
        && (m_placer.hasAnswered(window, size) || m_unanswering.contains(window)
            || now->sizeFor(size) == now->frame.size());
}

QString WaylandWindowAccess::refusalDetail(const WindowElement &)
{
    return m_refusalDetail;
}

std::optional<WindowState> WaylandWindowAccess::endedState(const WindowElement &window) const
{
    const auto ended = m_endedStates.constFind(window);
    return ended == m_endedStates.cend() ? std::nullopt : std::optional(*ended);
}

AXError WaylandWindowAccess::restore(
    const WindowElement &window, const Rect &frame, const std::optional<WindowState> &state)
{
    const auto before = toplevel(window);
    if (!before)
        return before.error();
    if (!state)
        return place(*before, frame);
    if (!state->tiled) {
        if (const AXError error = place(*before, state->normalFrame); error != AXError::success)
            return error;
    }
    m_placer.forget(window);
    if (const AXError error = m_compositor.enterState(window, *state); error != AXError::success)
        return error;
    // The others of its layout may stand otherwise by now, and waiting changes nothing of that where a
    // frame is told as soon as it is asked for.
    const bool isToldAtOnce = m_compositor.holdTime() > Compositor::Duration::zero();
    if (state->tiled && !state->fullScreenByUs && isToldAtOnce) {
        m_registry.outdate();
        const auto now = toplevel(window);
        return now && isSame(now->frame, frame) ? AXError::success : AXError::failure;
    }
    const bool isBack =
        m_placer.waitFor(window, [&](const Toplevel &now) { return isSame(now.frame, frame); });
    return isBack ? AXError::success : AXError::cannotComplete;
}

void WaylandWindowAccess::raise(const WindowElement &window)
{
    if (isTrusted() && m_registry.known(window)) {
        m_compositor.raise(window);
        m_registry.outdate();
    }
}

void WaylandWindowAccess::makeMain(const WindowElement &window)
{
    bringToFrontAlone(window);
}

void WaylandWindowAccess::bringForward(pid_t pid)
{
    const auto ofProcess = windows(pid);
    if (ofProcess && !ofProcess->isEmpty())
        bringToFrontAlone(ofProcess->first());
}

bool WaylandWindowAccess::bringToFrontAlone(const WindowElement &window)
{
    if (!isTrusted() || !m_registry.known(window))
        return false;
    if (m_registry.isInOperation())
        m_toFront << window;
    else
        bringToFront({window});
    return true;
}

AXError WaylandWindowAccess::observe(pid_t pid)
{
    m_observed.insert(pid);
    return isTrusted() ? AXError::success : AXError::apiDisabled;
}

void WaylandWindowAccess::stopObserving(pid_t pid)
{
    m_observed.remove(pid);
}

void WaylandWindowAccess::endOperation()
{
    std::ignore = flushSize();
    m_registry.endOperation();
    if (m_registry.isInOperation())
        return;
    m_endedStates.clear();
    m_unanswering.clear();
    if (const auto windows = std::exchange(m_toFront, {}); !windows.isEmpty() && isTrusted())
        bringToFront(windows);
}

void WaylandWindowAccess::readAhead(const QList<pid_t> &)
{
    std::ignore = m_registry.desk(Scope::all);
}

void WaylandWindowAccess::moveAhead(const QList<WindowMove> &moves)
{
    QList<WindowMove> plain;
    for (const WindowMove &move : moves) {
        const auto before = toplevel(move.window);
        const bool isOnItsWay = before && !before->hasState() && !before->minimized
            && !isSame(before->frame, move.frame);
        if (isOnItsWay)
            plain << move;
    }
    if (plain.isEmpty() || m_placer.place(plain) != AXError::cannotComplete)
        return;
    for (const WindowMove &move : std::as_const(plain)) {
        if (!m_placer.hasAnswered(move.window, move.frame.size()))
            m_unanswering.insert(move.window);
    }
}

expected<Toplevel, AXError> WaylandWindowAccess::toplevel(const WindowElement &window)
{
    if (m_pendingSize && m_pendingSize->window == window)
        std::ignore = flushSize();
    if (!isTrusted())
        return unexpected<AXError>(AXError::apiDisabled);
    return m_registry.toplevel(window);
}

AXError WaylandWindowAccess::flushSize()
{
    const auto pending = std::exchange(m_pendingSize, std::nullopt);
    if (!pending)
        return AXError::success;
    const auto before = toplevel(pending->window);
    if (!before)
        return before.error();
    const Point origin = before->frame.origin();
    return place(*before, {origin.x, origin.y, pending->size.width, pending->size.height});
}

AXError WaylandWindowAccess::place(const Toplevel &before, const Rect &frame)
{
    m_refusalDetail.clear();
    const WindowElement &window = before.element;
    if (before.tiled && m_tiledStay)
        return refuse(AXError::failure, u"tiled by the window manager"_s);
    if (!before.movable)
        return refuse(AXError::failure, u"the window cannot be moved"_s);
    if (m_unanswering.contains(window))
        return refuse(AXError::cannotComplete, u"the app did not answer"_s);
    const Rect rounded{std::round(frame.x), std::round(frame.y),
        std::max(1.0, std::round(frame.width)), std::max(1.0, std::round(frame.height))};
    if (!before.hasState() && isSame(before.frame, rounded))
        return AXError::success;
    if (before.hasState() && !m_endedStates.contains(window)) {
        const auto normal = leaveStates(before);
        if (!normal)
            return normal.error();
        if (m_registry.isInOperation())
            m_endedStates.insert(window,
                {.maximizedHorizontally = before.maximizedHorizontally,
                    .maximizedVertically = before.maximizedVertically,
                    .fullScreenByUs = before.fullScreen,
                    .normalFrame = normal->frame,
                    .tiled = before.tiled});
    }
    const AXError error = m_placer.place({{window, rounded}});
    if (error != AXError::cannotComplete)
        return error;
    if (m_registry.isInOperation())
        m_unanswering.insert(window);
    return refuse(error, u"the app did not answer"_s);
}

/// To know where the compositor would put the window if its user ended the state.
expected<Toplevel, AXError> WaylandWindowAccess::leaveStates(const Toplevel &before)
{
    if ((!before.isMaximized() && !before.fullScreen) || before.traces.pid == getpid())
        return before;
    const WindowElement &window = before.element;
    if (const AXError error = m_compositor.leaveStates(window); error != AXError::success)
        return unexpected<AXError>(error);
    const bool hasLeft = m_placer.waitFor(window, [&](const Toplevel &now) {
        return !now.isMaximized() && !now.fullScreen && !isSame(now.frame, before.frame);
    });
    if (!hasLeft)
        return unexpected<AXError>(refuse(AXError::cannotComplete, u"the app did not answer"_s));
    const auto normal = toplevel(window);
    if (normal)
        m_placer.noteGiven(*normal);
    return normal;
}

AXError WaylandWindowAccess::refuse(AXError error, const QString &detail)
{
    m_refusalDetail = detail;
    return error;
}

void WaylandWindowAccess::bringToFront(const QList<WindowElement> &windows)
{
    for (const WindowElement &window : windows)
        Q_EMIT activating(window);
    m_compositor.bringToFront(windows);
    m_registry.outdate();
}

void WaylandWindowAccess::announce(const Toplevel &window)
{
    m_registry.defer([this, element = window.element, pid = window.traces.pid] {
        if (m_observed.contains(pid))
            Q_EMIT windowCreated(element, pid);
    });
}

void WaylandWindowAccess::forget(const Toplevel &window)
{
    if (m_pendingSize && m_pendingSize->window == window.element)
        m_pendingSize.reset();
    m_registry.defer([this, element = window.element] { Q_EMIT windowClosed(element); });
}

} // namespace corvane::wayland
