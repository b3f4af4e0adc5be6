#pragma once

#include "Properties.h"

namespace corvane::x11 {

/// What a window says of the application that it belongs to. Some applications give a window its
/// final names only after it is shown.
struct WindowNames {
    QString className; ///< both parts of WM_CLASS
    QString instanceName;
    QString publishedId; ///< of the application, by its toolkit; mostly empty

    bool operator==(const WindowNames &) const = default;
};

struct NamesRequest {
    xcb_get_property_cookie_t windowClass{};
    xcb_get_property_cookie_t gtkId{};
    xcb_get_property_cookie_t kdeFile{};
};

[[nodiscard]] NamesRequest requestNames(const Connection &connection, xcb_window_t window);
/// Nothing when the window is gone or the server does not answer.
[[nodiscard]] std::optional<WindowNames> readNames(
    Connection &connection, const NamesRequest &request);
/// Whether it is one of the properties that are read for the names.
[[nodiscard]] bool isOfNames(const Connection &connection, xcb_atom_t property);

} // namespace corvane::x11
