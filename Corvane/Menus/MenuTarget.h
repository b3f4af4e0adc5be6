#pragma once

#include "Competitors.h"
#include "Placement.h"
#include "WindowLayout.h"

#include <functional>

namespace corvane {

/// What the rows of the menus do. A row without a function is disabled.
struct MenuTarget {
    std::function<void(Placement)> perform;
    std::function<void(const WindowLayout &shown)> applyLayout;
    std::function<void()> captureLayout;
    std::function<void(const QUuid &layout)> editLayout;

    std::function<void()> grantAccess;
    std::function<void()> openShortcuts;
    std::function<void(const Competitor::Running &)> quitCompetitor;
    std::function<void()> openUpdates;

    std::function<void()> openAbout;
    std::function<void()> openSettings;
    std::function<void()> openTremorLog;
    std::function<void()> openWebsite;
    std::function<void()> showTour;
    std::function<void()> reportProblem;

    std::function<void()> hide;
    std::function<void()> hideOthers;
    std::function<void()> showAll;
    std::function<void()> quit;

    std::function<void()> undo; ///< what Undo does where no text field has the focus
    std::function<void()> redo;
};

} // namespace corvane
