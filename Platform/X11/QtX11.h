#pragma once

#include <QtCore/QByteArrayView>

#include <xcb/xcb.h>

/// The X server by Qt's own connection, for what concerns the windows that Qt shows.
namespace corvane::x11::QtX11 {

/// Null where Qt shows its windows on no X server, or shows none.
[[nodiscard]] xcb_connection_t *connection();
[[nodiscard]] xcb_atom_t atom(xcb_connection_t *connection, QByteArrayView name);
/// None where nobody owns the selection.
[[nodiscard]] xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection);

} // namespace corvane::x11::QtX11
