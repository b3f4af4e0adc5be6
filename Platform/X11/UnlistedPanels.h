#pragma once

#include "WindowRegistry.h"

namespace corvane::x11 {

/// What panels reserve that the window manager manages but leaves out of its client list, as i3 does.
[[nodiscard]] QList<Strut> unlistedStruts(Connection &connection, const WindowRegistry &registry);

} // namespace corvane::x11
