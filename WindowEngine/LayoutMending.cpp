#include "LayoutMending.h"

#include "AXWindow.h"
#include "Platform.h"

#include <algorithm>

namespace corvane {

namespace {

bool isInstalled(const QString &bundleID)
{
    return Platform::current().applications().installation(bundleID).state
        != Installation::State::notInstalled;
}

struct Successor {
    AppRef app;
    QString title; ///< of its window
};

QList<Successor> successorsOf(const QString &bundleID, const QList<RunningApplication> &running)
{
    Applications &applications = Platform::current().applications();
    QList<Successor> successors;
    for (const RunningApplication &application : running) {
        const AppRef app{application.bundleIdentifier, application.localizedName};
        if (!application.isRegular || !isInstalled(app.bundleID))
            continue;
        for (const AXWindow &window : AXWindow::windows(application)) {
            if (applications.formerIdentifiers(window.element).contains(bundleID))
                successors << Successor{app, window.title()};
        }
    }
    return successors;
}

std::optional<AppRef> onlyApp(const QList<Successor> &successors)
{
    const bool isOne = std::ranges::all_of(
        successors, [&](const Successor &each) { return each.app == successors.first().app; });
    return isOne && !successors.isEmpty() ? std::optional(successors.first().app) : std::nullopt;
}

std::optional<AppRef> successor(const Pane &pane, const QList<RunningApplication> &running)
{
    QList<Successor> successors = successorsOf(pane.app->bundleID, running);
    if (const auto only = onlyApp(successors))
        return only;
    successors.removeIf([&pane](const Successor &each) {
        return !each.title.contains(pane.titleContains.value_or(QString()), Qt::CaseInsensitive);
    });
    return onlyApp(successors);
}

} // namespace

WindowLayout mended(WindowLayout layout)
{
    const WindowOperation operation(Platform::current().windows());
    const QList<RunningApplication> running = Platform::current().applications().running();
    for (Pane &pane : layout.panes) {
        const auto runs = [&pane](const RunningApplication &each) {
            return each.bundleIdentifier == pane.app->bundleID;
        };
        if (!pane.app || std::ranges::any_of(running, runs) || isInstalled(pane.app->bundleID))
            continue;
        if (const auto app = successor(pane, running))
            pane.app = app;
    }
    return layout;
}

} // namespace corvane
