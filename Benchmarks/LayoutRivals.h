#pragma once

#include "CrowdedDesk.h"

namespace corvane::bench {

/// Corvane with the desk's layouts among its files.
[[nodiscard]] Rival corvaneWithLayouts(desktop::VirtualDesktop &desktop, const CrowdedDesk &desk);
[[nodiscard]] Rival pipelinedProgram(desktop::VirtualDesktop &desktop, const CrowdedDesk &desk);
/// A script at its best: it knows the windows' numbers beforehand.
[[nodiscard]] Rival wmctrlScript(desktop::VirtualDesktop &desktop, const CrowdedDesk &desk);

} // namespace corvane::bench
