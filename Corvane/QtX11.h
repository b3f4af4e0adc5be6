#pragma once

#include <QtCore/QByteArrayView>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

/// The X server by Qt's own connection, for what concerns the windows that Qt shows.
namespace corvane::QtX11 {

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// Null where Qt shows its windows on no X server. Needs a `QGuiApplication`.
[[nodiscard]] xcb_connection_t *connection();
[[nodiscard]] xcb_atom_t atom(xcb_connection_t *connection, QByteArrayView name);
/// None where nobody owns it.
[[nodiscard]] xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection);

} // namespace corvane::QtX11
