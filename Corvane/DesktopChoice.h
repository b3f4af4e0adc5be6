#pragma once

#include "Expected.h"
#include "Platform.h"
#include "Updates.h"

#include <memory>

namespace corvane {

/// Opens the desktop of this session, by what answers, or the one that the variable CORVANE_BACKEND
/// names: "sway", "kwin", "gnome", "x11" or "simulated". A simulated desktop is described by the file that CORVANE_DESK names. The error
/// is one sentence. `onBroken` is called when the desktop goes away.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openDesktop(
    std::function<void()> onBroken);

/// Which one that is, as CORVANE_BACKEND would name it, where the compositor may come back after it went
/// away; else empty.
[[nodiscard]] QByteArray returningDesktop();

/// Sees to it that Qt will show windows on the desktop that `openDesktop` opens. To be called before the
/// application object that shows them is made. Empty, or one sentence that says why there is no desktop.
[[nodiscard]] QString prepareWindows();

/// How this copy of the program is updated.
[[nodiscard]] UpdateSource updateSource();

/// The file that starts this program, whichever version of it is installed by then.
[[nodiscard]] QString installedProgram();
/// Starts it for one that ends. Why that failed; empty when it runs.
[[nodiscard]] QString startAgain(const QString &program);

} // namespace corvane
