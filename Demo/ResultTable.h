#pragma once

#include "Restoration.h"
#include "Walkthrough.h"

namespace corvane::demo {

/// The lines of the table, one per step.
[[nodiscard]] QString tableHead();
[[nodiscard]] QString tableLine(const StepResult &result);

/// The same for a layout, one line per pane.
[[nodiscard]] QString layoutTableHead();
[[nodiscard]] QString layoutTableLine(const RestoredPane &restored);

} // namespace corvane::demo
