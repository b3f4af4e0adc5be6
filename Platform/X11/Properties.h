#pragma once

#include "Connection.h"

#include <span>

namespace corvane::x11 {

/// Asks for at most 16 KB of a property: other clients may have written anything.
inline xcb_get_property_cookie_t requestProperty(
    const Connection &connection, xcb_window_t window, xcb_atom_t property)
{
    return xcb_get_property(
        connection.xcb(), false, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 4096);
}

inline xcb_get_property_cookie_t requestProperty(
    const Connection &connection, xcb_window_t window, Atom property)
{
    return requestProperty(connection, window, connection.atom(property));
}

/// A property's 32-bit values, or nothing where it has another format.
inline std::span<const quint32> values32(const xcb_get_property_reply_t &reply)
{
    if (reply.format != 32)
        return {};
    return {static_cast<const quint32 *>(xcb_get_property_value(&reply)), reply.value_len};
}

using PropertyReply = expected<Owned<xcb_get_property_reply_t>, AXError>;

inline std::span<const quint32> values32(const PropertyReply &reply)
{
    return reply ? values32(**reply) : std::span<const quint32>{};
}

inline PropertyReply propertyReply(Connection &connection, xcb_get_property_cookie_t cookie)
{
    return connection.reply<xcb_get_property_reply_t>(cookie.sequence);
}

/// The whole of a list that may be long, such as the client list.
QList<quint32> readList(Connection &connection, xcb_window_t window, Atom property);

/// A text property; broken UTF-8 shows replacement characters.
QString textOf(const PropertyReply &reply);

} // namespace corvane::x11
