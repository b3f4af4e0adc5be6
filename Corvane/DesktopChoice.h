#pragma once

#include "Expected.h"
#include "Platform.h"

#include <memory>

namespace corvane {

/// Opens the desktop of this session: that of X11, or the one that the variable CORVANE_BACKEND names,
/// "x11" or "simulated". A simulated desktop is described by the file that CORVANE_DESK names. The error
/// is one sentence. `onBroken` is called when the desktop goes away.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openDesktop(
    std::function<void()> onBroken);

/// Sees to it that Qt will show windows on the desktop that `openDesktop` opens. To be called before the
/// application object that shows them is made. Empty, or one sentence that says why there is no desktop.
[[nodiscard]] QString prepareWindows();

} // namespace corvane
