#pragma once

#include "PaneResult.h"

namespace corvane {

/// What helps a pane whose app is not in its place.
enum class PaneCure {
    none, ///< is needed
    applyAgain,
    chooseApp,
    useAnotherDisplay,
    turnOnOpening,
    changeTitle,
    openWindow,
};

[[nodiscard]] PaneCure cureOf(const PaneResult &result);
/// What the button says that does it.
[[nodiscard]] QString title(PaneCure cure);

} // namespace corvane
