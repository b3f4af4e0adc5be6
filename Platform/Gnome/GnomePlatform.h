#pragma once

#include "Expected.h"
#include "Platform.h"

#include <functional>
#include <memory>

namespace corvane {

/// Whether the compositor of this session is GNOME Shell.
[[nodiscard]] bool gnomeAnswers();

/// The desktop of a GNOME session on Wayland. The error is one sentence. `onBroken` is called once when the
/// session goes away: nothing works after that. Windows cannot be moved while our extension is not switched on.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openGnomePlatform(
    std::function<void()> onBroken);

} // namespace corvane
