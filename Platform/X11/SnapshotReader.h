#pragma once

#include "ClientProperties.h"
#include "WindowSnapshot.h"

namespace corvane::x11 {

struct SnapshotRequest {
    xcb_window_t window = noWindow;
    xcb_get_geometry_cookie_t geometry{};
    xcb_translate_coordinates_cookie_t origin{};
    xcb_get_window_attributes_cookie_t attributes{};
    xcb_get_property_cookie_t decoration{};
    xcb_get_property_cookie_t shadow{};
    xcb_get_property_cookie_t state{};
    xcb_get_property_cookie_t hints{};
    xcb_get_property_cookie_t desktop{};
    xcb_get_property_cookie_t floating{};
    KindRequest kind;
};

/// Sends every request that a snapshot needs; nothing waits.
[[nodiscard]] SnapshotRequest requestSnapshot(const Connection &connection, xcb_window_t window);
[[nodiscard]] expected<WindowSnapshot, AXError> readSnapshot(
    Connection &connection, const SnapshotRequest &request, bool windowManagerTiles);
void discardSnapshot(Connection &connection, const SnapshotRequest &request);

} // namespace corvane::x11
