#pragma once

#include "Connection.h"

namespace corvane::x11 {

/// The window that the window manager says has the focus; `noWindow` when it names none.
[[nodiscard]] xcb_window_t activeWindow(Connection &connection);
/// Asks the window manager to give the window the focus; nothing waits.
void requestActivation(Connection &connection, xcb_window_t window);

} // namespace corvane::x11
