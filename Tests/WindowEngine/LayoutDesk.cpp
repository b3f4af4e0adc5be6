#include "LayoutDesk.h"

#include "Screens.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace std::chrono_literals;

LayoutDesk::LayoutDesk()
{
    engine.onPlaced = [this](const AXWindow &window, const Rect &) { placed << window; };
    engine.onDiagnostic = [this](const QString &line) { diagnostics << line; };
}

QList<PaneResult> LayoutDesk::apply(const WindowLayout &layout, Clock::Duration retryFor)
{
    std::optional<QList<PaneResult>> results;
    const auto keep = [&](const QList<PaneResult> &done) {
        results = done;
        applied = platform.clock().now();
    };
    const auto task = engine.apply(layout, 8s, retryFor).then(keep);
    const Clock::Duration deadline = platform.clock().now() + 60s;
    while (!results && platform.clock().now() < deadline)
        advance(50ms);
    EXPECT_TRUE(results.has_value());
    return results.value_or(QList<PaneResult>());
}

QString LayoutDesk::outcomes(const QList<Pane> &panes, Clock::Duration retryFor)
{
    QStringList names;
    for (const auto &result : apply({.displays = Screens::signature(), .panes = panes}, retryFor))
        names << statusName(result.status);
    return names.join(u' ');
}

} // namespace corvane
