#include "Desk.h"

#include "Screens.h"

namespace corvane {

const AppRef Desk::editorApp{u"org.example.Editor"_s, u"Editor"_s};
const AppRef Desk::mail{u"org.example.Mail"_s, u"Mail"_s};

Desk::Desk()
{
    laptop = desktop.plug({.frame = {0, 0, 1440, 900},
        .name = u"Laptop"_s,
        .panels = {{SimulatedPanel::Edge::top, 25}}});
    editor = desktop.start(editorApp.bundleID, editorApp.name);
    engine.onPlaced = [this](const AXWindow &window, const Rect &previous) {
        placed << window;
        placedFrom << previous;
        placedAt << platform.clock().now();
    };
    engine.onDiagnostic = [this](const QString &line) { diagnostics << line; };
    watcher.onDiagnostic = engine.onDiagnostic;
}

AXWindow Desk::openFrom(pid_t pid, const WindowSpec &wanted)
{
    return {desktop.openWindow(pid, wanted), pid};
}

AXWindow Desk::openOf(const AppRef &app, const WindowSpec &wanted)
{
    return openFrom(desktop.start(app.bundleID, app.name), wanted);
}

void Desk::drag(const AXWindow &window, const Rect &frame)
{
    desktop.moveWindow(simulated(window), frame.origin());
    desktop.resizeWindow(simulated(window), frame.size());
}

void Desk::later(Clock::Duration delay, std::function<void()> event)
{
    platform.clock().after(delay, &desktop, std::move(event));
}

QString Desk::stack()
{
    QString titles;
    for (const WindowElement &element : desktop.stack())
        titles += desktop.window(element).title;
    return titles;
}

Pane Desk::left(const AppRef &app, const QString &title, std::optional<int> stack)
{
    return {.rect = {0, 0, 0.5, 1}, .app = app, .titleContains = title, .stack = stack};
}

Pane Desk::right(const AppRef &app, const QString &title)
{
    return {.rect = {0.5, 0, 0.5, 1}, .app = app, .titleContains = title};
}

QString Desk::apply(const WindowLayout &layout, Clock::Duration retryFor)
{
    bool isDone = false;
    const auto keep = [&](const QList<PaneResult> &done) {
        results = done;
        applied = platform.clock().now();
        isDone = true;
    };
    const auto task = engine.apply(layout, 8s, retryFor).then(keep);
    const Clock::Duration deadline = platform.clock().now() + 60s;
    while (!isDone && platform.clock().now() < deadline)
        advance(50ms);
    EXPECT_TRUE(isDone);
    QStringList names;
    for (const PaneResult &result : std::as_const(results))
        names << statusName(result.status);
    return names.join(u' ');
}

QString Desk::fill(const QList<Pane> &panes, Clock::Duration retryFor)
{
    return apply({.displays = Screens::signature(), .panes = panes}, retryFor);
}

std::ostream &operator<<(std::ostream &out, const Rect &rect)
{
    return out << '(' << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height
               << ')';
}

std::ostream &operator<<(std::ostream &out, Placement placement)
{
    return out << rawValue(placement).data();
}

} // namespace corvane
