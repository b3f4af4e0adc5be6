#pragma once

#include "WindowManagerLink.h"
#include "WindowRegistry.h"

namespace corvane::x11 {

struct SeenWindow {
    WindowElement element;
    pid_t pid = 0;
    WindowSnapshot snapshot;
};

/// The windows on this workspace, front to back, read in one go; only those of `pids` where there
/// are any.
[[nodiscard]] expected<QList<SeenWindow>, AXError> readWorkspace(Connection &connection,
    WindowRegistry &registry, const WindowManagerLink &windowManager,
    const QList<pid_t> &pids = {});

} // namespace corvane::x11
