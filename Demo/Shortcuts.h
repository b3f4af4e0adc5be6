#pragma once

#include "KeyPresser.h"
#include "Placement.h"

namespace corvane::demo {

/// The keys that a user presses for the placement. Absent for one without a shortcut.
[[nodiscard]] std::optional<desktop::KeyStroke> shortcut(Placement placement);
/// As a person reads it, such as "Ctrl+Alt+Super+Left".
[[nodiscard]] QString keysText(const desktop::KeyStroke &stroke);

} // namespace corvane::demo
