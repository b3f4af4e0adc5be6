#pragma once

#include "WindowManagerLink.h"
#include "WindowRegistry.h"

namespace corvane::x11 {

struct SeenWindow {
    WindowElement element;
    pid_t pid = 0;
    WindowSnapshot snapshot;
};

/// The windows on this workspace, front to back, read in one go; of one process where one is given.
[[nodiscard]] QList<SeenWindow> readWorkspace(Connection &connection, WindowRegistry &registry,
    const WindowManagerLink &windowManager, std::optional<pid_t> pid = {});

} // namespace corvane::x11
