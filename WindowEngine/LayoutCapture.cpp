#include "Geometry.h"
#include "LayoutEngine.h"
#include "Platform.h"
#include "Screens.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr Size smallest{100, 80};
constexpr double oversize = 2;
constexpr double leastVisible = 0.15;
constexpr int samples = 24;
constexpr double sameColumn = 0.01;

bool isCaptured(const RunningApplication &application)
{
    return application.isRegular && !application.bundleIdentifier.isEmpty()
        && application.pid != static_cast<pid_t>(QCoreApplication::applicationPid());
}

AppRef reference(const RunningApplication &application)
{
    const QString &id = application.bundleIdentifier;
    return {id, application.localizedName.isEmpty() ? id : application.localizedName};
}

/// The frames of the process's windows that can be seen, front to back.
QList<Rect> framesOf(pid_t pid, const QList<OnScreenWindow> &onScreen)
{
    QList<Rect> frames;
    for (const OnScreenWindow &window : onScreen) {
        if (window.pid == pid)
            frames << window.bounds;
    }
    return frames;
}

bool fits(const Rect &frame, const ScreenInfo &screen)
{
    return frame.width >= smallest.width && frame.height >= smallest.height
        && frame.width <= screen.visibleFrame.width + oversize
        && frame.height <= screen.visibleFrame.height + oversize
        && frame.intersectionArea(screen.frame) > 0;
}

std::optional<Pane> paneOf(const AXWindow &window, const AppRef &app,
    const QList<ScreenInfo> &screens, const QList<Rect> &onScreen, double gap)
{
    const std::optional<Rect> frame = window.frame();
    if (!frame)
        return std::nullopt;
    const qsizetype position = onScreen.indexOf(*frame);
    const std::optional<ScreenInfo> screen = Screens::screenContaining(*frame, screens);
    if (position < 0 || !screen || !fits(*frame, *screen) || window.isFullScreen())
        return std::nullopt;
    const QString title = window.title();
    return Pane{.display = static_cast<int>(screens.indexOf(*screen)),
        .rect = WindowLayout::unitRect(*frame, screen->visibleFrame, gap),
        .app = app,
        .titleContains = title.isEmpty() ? std::nullopt : std::optional(title),
        .stack = static_cast<int>(position),
        .capturedTitle = title};
}

QList<Pane> panesOnScreen(const QList<ScreenInfo> &screens, double gap)
{
    Platform &platform = Platform::current();
    const WindowOperation operation(platform.windows());
    QList<RunningApplication> applications = platform.applications().running();
    applications.removeIf([](const RunningApplication &each) { return !isCaptured(each); });
    QList<pid_t> pids;
    for (const RunningApplication &application : applications)
        pids << application.pid;
    platform.windows().readAhead(pids);

    const QList<OnScreenWindow> onScreen = platform.windows().onScreenWindows();
    QList<Pane> panes;
    for (const RunningApplication &application : applications) {
        const QList<Rect> frames = framesOf(application.pid, onScreen);
        for (const AXWindow &window : AXWindow::windows(application)) {
            if (const auto pane = paneOf(window, reference(application), screens, frames, gap))
                panes << *pane;
        }
    }
    return panes;
}

bool touches(const UnitRect &a, const UnitRect &b)
{
    return a.x <= b.x + b.w && b.x <= a.x + a.w && a.y <= b.y + b.h && b.y <= a.y + a.h;
}

/// Panes count as lying in front by their place among their own app's windows, whatever their apps.
bool isMostlyHidden(const Pane &pane, const QList<Pane> &all)
{
    QList<UnitRect> inFront;
    for (const Pane &other : all) {
        if (other.display == pane.display && other.stack < pane.stack
            && touches(other.rect, pane.rect))
            inFront << other.rect;
    }
    return Geometry::visibleFraction(pane.rect, inFront, samples) < leastVisible;
}

bool standsBefore(const Pane &a, const Pane &b)
{
    if (a.display != b.display)
        return a.display < b.display;
    return std::abs(a.rect.x - b.rect.x) > sameColumn ? a.rect.x < b.rect.x : a.rect.y < b.rect.y;
}

/// Columns that are nearly the same make no strict order, which a library sort would need.
void insertInReadingOrder(const Pane &pane, QList<Pane> &sorted)
{
    qsizetype place = sorted.size();
    while (place > 0 && standsBefore(pane, sorted[place - 1]))
        --place;
    sorted.insert(place, pane);
}

} // namespace

WindowLayout LayoutEngine::capture(const QString &name) const
{
    const QList<ScreenInfo> screens = Screens::all();
    WindowLayout layout{.name = name,
        .displays = Screens::signature(screens),
        .created = Platform::current().clock().date().toUTC()};
    const QList<Pane> panes = panesOnScreen(screens, gap);
    for (const Pane &pane : panes) {
        if (!isMostlyHidden(pane, panes))
            insertInReadingOrder(pane, layout.panes);
    }
    return layout;
}

} // namespace corvane
