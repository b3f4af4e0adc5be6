#include "AXWindow.h"

#include "Geometry.h"
#include "Platform.h"

#include <cmath>
#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double onTarget = 4;
constexpr double samePoint = 0.5;
constexpr double larger = 2;
constexpr double inPlace = 1;
constexpr int settleRounds = 3;
constexpr Clock::Duration settlePause = 60ms;

WindowAccess &access()
{
    return Platform::current().windows();
}

bool isFinite(const Rect &rect)
{
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width)
        && std::isfinite(rect.height);
}

template <typename Refusal>
unexpected<MoveError> refused(const AXWindow &window, AXError code)
{
    return unexpected<MoveError>({Refusal{code, access().refusalDetail(window.element)}});
}

/// The window may have constrained the first size because of where it stood, so it is written once
/// more at the new place; only a window that refused both has refused.
expected<void, MoveError> writeFrame(const AXWindow &window, const Rect &target)
{
    const AXError firstSize = access().setSize(window.element, target.size());
    const AXError position = access().setPosition(window.element, target.origin());
    if (position != AXError::success)
        return refused<MoveError::Position>(window, position);
    const AXError secondSize = access().setSize(window.element, target.size());
    if (firstSize != AXError::success && secondSize != AXError::success)
        return refused<MoveError::Size>(window, secondSize);
    return {};
}

/// A window may take another size for reasons of its own, but stands where it was put.
bool isOnTarget(const Rect &reached, const Rect &target)
{
    return Geometry::approximatelyEqual(reached, target, onTarget)
        && std::abs(reached.x - target.x) <= samePoint
        && std::abs(reached.y - target.y) <= samePoint;
}

/// From here on a refusal no longer matters: the caller reads what the window took.
void nudge(const AXWindow &window, const Rect &target)
{
    const std::optional<Rect> reached = window.frame();
    if (reached && !isOnTarget(*reached, target))
        std::ignore = access().setPosition(window.element, target.origin());
}

void settle(const AXWindow &window, const Rect &target)
{
    for (int round = 0; round < settleRounds; ++round) {
        const std::optional<Rect> reached = window.frame();
        if (!reached || !Geometry::fallsShort(*reached, target)
            || access().isFinal(window.element, target.size()))
            return;
        Platform::current().clock().sleep(settlePause);
        access().readAnew(window.element);
        std::ignore = access().setPosition(window.element, target.origin());
        std::ignore = access().setSize(window.element, target.size());
    }
}

void alignToEdges(const AXWindow &window, const Rect &target, const Rect &bounds, double slack)
{
    const std::optional<Rect> reached = window.frame();
    if (!reached
        || (reached->width <= target.width + larger && reached->height <= target.height + larger))
        return;
    const Rect anchored = Geometry::anchored(target, reached->size(), bounds, slack);
    if (!Geometry::approximatelyEqual(anchored, *reached, inPlace))
        std::ignore = access().setPosition(window.element, anchored.origin());
}

/// A standard window that is not minimized.
expected<bool, AXError> standsOpen(const WindowElement &element)
{
    const auto isWindow = access().isWindow(element);
    if (!isWindow || !*isWindow)
        return isWindow;
    const auto isStandard = access().isStandard(element);
    if (!isStandard || !*isStandard)
        return isStandard;
    return access().isMinimized(element).map([](bool minimized) { return !minimized; });
}

} // namespace

AXWindow::Focused AXWindow::focused()
{
    const WindowAccess::Focused focused = access().focusedWindow();
    if (focused.status != AXError::success || !focused.window)
        return {std::nullopt, focused.status};
    return {AXWindow{*focused.window, focused.pid}, focused.status};
}

QList<AXWindow> AXWindow::windows(const RunningApplication &application)
{
    QList<AXWindow> windows = AXWindow::windows(application.pid);
    windows.removeIf([&application](const AXWindow &window) {
        return !window.belongsTo(application.bundleIdentifier);
    });
    return windows;
}

QList<AXWindow> AXWindow::windows(pid_t pid)
{
    return windowsIfAnswering(pid).value_or(QList<AXWindow>());
}

expected<QList<AXWindow>, AXError> AXWindow::windowsIfAnswering(pid_t pid)
{
    const auto elements = access().windows(pid);
    if (!elements)
        return unexpected<AXError>(elements.error());
    QList<AXWindow> standard;
    for (const WindowElement &element : *elements) {
        const auto stands = standsOpen(element);
        if (!stands && stands.error() == AXError::cannotComplete)
            return unexpected<AXError>(stands.error());
        if (stands.value_or(false))
            standard << AXWindow{element, pid};
    }
    return standard;
}

void AXWindow::bringForward(pid_t pid)
{
    access().bringForward(pid);
}

std::optional<Rect> AXWindow::frame() const
{
    const auto frame = access().frame(element);
    return frame ? std::optional(*frame) : std::nullopt;
}

QString AXWindow::title() const
{
    return access().title(element).value_or(QString());
}

bool AXWindow::belongsTo(const QString &bundleIdentifier) const
{
    const auto application = Platform::current().applications().applicationOf(element);
    return application && application->bundleIdentifier == bundleIdentifier;
}

QString AXWindow::appName() const
{
    Applications &applications = Platform::current().applications();
    const auto owner = applications.applicationOf(element);
    const auto application = owner ? owner : applications.application(pid);
    return application && !application->localizedName.isEmpty() ? application->localizedName
                                                                : u"pid %1"_s.arg(pid);
}

bool AXWindow::isFullScreen() const
{
    return access().isFullScreen(element).value_or(false);
}

bool AXWindow::isWindow() const
{
    return access().isWindow(element).value_or(false);
}

bool AXWindow::isStandard() const
{
    return access().isStandard(element).value_or(false);
}

bool AXWindow::isMinimized() const
{
    return access().isMinimized(element).value_or(false);
}

void AXWindow::raise() const
{
    access().raise(element);
}

void AXWindow::makeMain() const
{
    access().makeMain(element);
}

bool AXWindow::bringToFrontAlone() const
{
    return access().bringToFrontAlone(element);
}

expected<void, MoveError> AXWindow::setFrame(
    const Rect &target, const std::optional<Rect> &bounds, double slack) const
{
    const WindowOperation operation(access());
    if (isFullScreen())
        return unexpected<MoveError>({MoveError::FullScreen{}});
    if (!isFinite(target))
        return unexpected<MoveError>({MoveError::Position{AXError::failure}});

    if (auto written = writeFrame(*this, target); !written)
        return written;
    nudge(*this, target);
    settle(*this, target);
    if (bounds)
        alignToEdges(*this, target, *bounds, slack);
    return {};
}

expected<void, MoveError> AXWindow::restore(
    const Rect &frame, const std::optional<WindowState> &state) const
{
    const WindowOperation operation(access());
    if (isFullScreen())
        return unexpected<MoveError>({MoveError::FullScreen{}});
    if (state && access().restore(element, frame, state) == AXError::success
        && this->frame() == frame)
        return {};
    const auto moved = setFrame(frame, std::nullopt, 0);
    if (moved && this->frame() != frame)
        std::ignore = access().restore(element, frame, std::nullopt);
    return moved;
}

std::optional<WindowState> AXWindow::endedState() const
{
    return access().endedState(element);
}

} // namespace corvane
