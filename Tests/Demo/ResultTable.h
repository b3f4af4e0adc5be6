#pragma once

#include "Walkthrough.h"

namespace corvane::demo {

/// The lines of the table, one per step.
[[nodiscard]] QString tableHead();
[[nodiscard]] QString tableLine(const StepResult &result);

} // namespace corvane::demo
