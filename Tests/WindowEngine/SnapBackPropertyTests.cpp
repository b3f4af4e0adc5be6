#include "Desk.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

namespace corvane {

namespace {

WindowSpec anyWindow()
{
    const double minimumWidth = *rc::gen::inRange(1, 900);
    const double minimumHeight = *rc::gen::inRange(1, 700);
    WindowSpec wanted;
    wanted.minimum = {minimumWidth, minimumHeight};
    wanted.frame = {double(*rc::gen::inRange(-500, 3300)), double(*rc::gen::inRange(-300, 1300)),
        minimumWidth + *rc::gen::inRange(0, 900), minimumHeight + *rc::gen::inRange(0, 600)};
    wanted.maximised = *rc::gen::weightedElement<bool>({{3, false}, {1, true}});
    wanted.fixedSize = *rc::gen::weightedElement<bool>({{4, false}, {1, true}});
    wanted.resizesAfter = Clock::Duration(*rc::gen::element(0, 0, 0, 50));
    return wanted;
}

struct Step {
    std::size_t window;
    Rect before;
    std::optional<Rect> unmaximised; ///< where it would have gone back to, if it was maximised
};

std::optional<Rect> unmaximised(const SimulatedWindow &window)
{
    return window.maximised ? std::optional(window.unmaximised) : std::nullopt;
}

} // namespace

RC_GTEST_PROP(SnapBackPropertyTests, snapBackUndoesAnySequenceOfMovesAndGivesStatesBack, ())
{
    Desk desk;
    desk.plugMonitor();
    desk.manager.setOptions({.gap = double(*rc::gen::inRange(0, 30)),
        .cycling = *rc::gen::arbitrary<bool>(),
        .sizeStep = double(*rc::gen::inRange(1, 200))});
    const std::vector<AXWindow> windows{desk.open(anyWindow()), desk.open(anyWindow())};
    desk.watcher.start();
    const auto perform = [&](std::size_t window, Placement placement) {
        desk.desktop.focus(windows[window].element);
        const MoveOutcome outcome = desk.manager.perform(placement);
        RC_ASSERT(std::holds_alternative<MoveOutcome::Moved>(outcome.value));
        desk.advance(Clock::Duration(1000));
    };

    std::vector<Step> steps;
    const int count = *rc::gen::inRange(0, 30);
    for (int i = 0; i < count; ++i) {
        const Placement placement = *rc::gen::elementOf(allPlacements());
        if (placement == Placement::snapBack)
            continue;
        const std::size_t window = *rc::gen::inRange<std::size_t>(0, windows.size());
        SimulatedWindow &simulated = desk.simulated(windows[window]);
        if (!simulated.maximised && *rc::gen::weightedElement<bool>({{3, false}, {1, true}}))
            desk.desktop.maximise(simulated.element);
        steps.push_back({window, desk.frameOf(windows[window]), unmaximised(simulated)});
        perform(window, placement);
    }

    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        perform(step->window, Placement::snapBack);
        RC_ASSERT(desk.frameOf(windows[step->window]) == step->before);
        RC_ASSERT(unmaximised(desk.simulated(windows[step->window])) == step->unmaximised);
    }
    RC_ASSERT(desk.manager.history().isEmpty());
}

} // namespace corvane
