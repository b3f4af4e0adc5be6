#include "PaneCure.h"

#include "Match.h"
#include "PaneChoice.h"

#include <QtCore/QCoreApplication>

namespace corvane {

PaneCure cureOf(const PaneResult &result)
{
    return match(
        result.status.value, [](const PaneStatus::Placed &) { return PaneCure::none; },
        [](const PaneStatus::Refused &) { return PaneCure::applyAgain; },
        [](PaneStatus::Empty) { return PaneCure::chooseApp; },
        [](PaneStatus::DisplayMissing) { return PaneCure::useAnotherDisplay; },
        [](PaneStatus::NotInstalled) { return PaneCure::chooseApp; },
        [](PaneStatus::NotRunning) { return PaneCure::turnOnOpening; },
        [](PaneStatus::Launched) { return PaneCure::applyAgain; },
        [&](PaneStatus::NoWindow) {
            // The title that came with a capture keeps no window out.
            return demandsTitle(result.pane) ? PaneCure::changeTitle : PaneCure::openWindow;
        });
}

QString title(PaneCure cure)
{
    switch (cure) {
    case PaneCure::none:
        return {};
    case PaneCure::applyAgain:
        return QCoreApplication::translate("PaneCure", "Apply Again");
    case PaneCure::chooseApp:
        return QCoreApplication::translate("PaneCure", "Choose App…");
    case PaneCure::useAnotherDisplay:
        return QCoreApplication::translate("PaneCure", "Use Another Display…");
    case PaneCure::turnOnOpening:
        return QCoreApplication::translate("PaneCure", "Turn On Opening");
    case PaneCure::changeTitle:
        return QCoreApplication::translate("PaneCure", "Change Title…");
    case PaneCure::openWindow:
        return QCoreApplication::translate("PaneCure", "Open a Window");
    }
    Q_UNREACHABLE();
}

} // namespace corvane
