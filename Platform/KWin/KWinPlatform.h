#pragma once

#include "Expected.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace corvane {

class Platform;

/// Whether KWin is the compositor of this Wayland session, and answers on the session bus.
[[nodiscard]] bool kwinAnswers();

/// The desktop of the Wayland session of KWin. The error is one sentence. `onBroken` is called
/// once when the session goes away: nothing works after that.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openKWinPlatform(
    std::function<void()> onBroken);

} // namespace corvane
