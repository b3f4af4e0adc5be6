#pragma once

#include "Connection.h"

namespace corvane::x11 {

struct TitleRequest {
    xcb_get_property_cookie_t modern{};
    xcb_get_property_cookie_t old{};
};

/// Sends both requests; nothing waits.
[[nodiscard]] TitleRequest requestTitle(const Connection &connection, xcb_window_t window);
[[nodiscard]] expected<QString, AXError> readTitle(
    Connection &connection, const TitleRequest &request);

} // namespace corvane::x11
