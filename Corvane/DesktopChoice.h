#pragma once

#include "AXError.h"
#include "Platform.h"

#include <memory>

namespace corvane {

/// Opens the desktop of this session: X11, or the one that CORVANE_BACKEND names ("x11", or
/// "simulated" with the desk that the file CORVANE_DESK describes). The only place that knows the
/// back ends. The error is one sentence. `onBroken` is called when the desktop goes away.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openDesktop(
    std::function<void()> onBroken);

/// Before the application object that is to show windows: has it show them on the desktop that
/// `openDesktop` opens. Why there is none, in one sentence; empty when there is.
[[nodiscard]] QString prepareWindows();

} // namespace corvane
