#pragma once

#include "Compositor.h"
#include "Connection.h"
#include "HotKeys.h"
#include "Keyboard.h"
#include "Platform.h"

#include <functional>
#include <memory>

namespace corvane::wayland {

/// What one compositor brings to the desktop that all of them share.
struct CompositorParts {
    std::unique_ptr<Compositor> compositor;
    std::function<std::unique_ptr<HotKeys>(Keyboard &keyboard)> makeHotKeys;
};

/// The desktop of the Wayland session that $WAYLAND_DISPLAY names. The error is one sentence. `onBroken` is
/// called once when the session goes away: nothing works after that.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openWaylandPlatform(
    CompositorParts parts, std::function<void()> onBroken);

} // namespace corvane::wayland
