#pragma once

#include "Connection.h"
#include "Rect.h"

namespace corvane::x11 {

/// Panels that the window manager draws itself, such as its task bar: they are no clients and
/// reserve nothing, but its work area leaves them out. `windowManager` is any window of its own,
/// `desk` the size of the root window. Rectangles in root coordinates.
[[nodiscard]] QList<Rect> ownPanels(Connection &connection, xcb_window_t windowManager, Size desk);

} // namespace corvane::x11
