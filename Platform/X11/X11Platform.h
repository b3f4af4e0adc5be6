#pragma once

#include "Expected.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace corvane {

class Platform;

/// The X11 desktop that $DISPLAY names. The error is one sentence. `onBroken` is called once when
/// the server goes away: nothing works after that.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openX11Platform(
    std::function<void()> onBroken);

/// Why there is no such desktop, in one sentence; empty when there is. Looks no further than that.
[[nodiscard]] QString x11Problem();

} // namespace corvane
