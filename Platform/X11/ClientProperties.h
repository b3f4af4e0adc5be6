#pragma once

#include "WindowRegistry.h"

#include <xcb/res.h>

namespace corvane::x11 {

struct StrutRequest {
    xcb_get_property_cookie_t partial{};
    xcb_get_property_cookie_t whole{};
};

[[nodiscard]] StrutRequest requestStruts(const Connection &connection, xcb_window_t window);
[[nodiscard]] QList<Strut> readStruts(Connection &connection, const StrutRequest &request);
/// The reservations in the twelve values of _NET_WM_STRUT_PARTIAL or the four of _NET_WM_STRUT.
[[nodiscard]] QList<Strut> strutsFromProperty(std::span<const quint32> values);

struct KindRequest {
    xcb_get_property_cookie_t type{};
    xcb_get_property_cookie_t transientFor{};
};

[[nodiscard]] KindRequest requestKind(const Connection &connection, xcb_window_t window);
[[nodiscard]] WindowKind readKind(
    Connection &connection, const KindRequest &request, xcb_window_t window);

/// Whether the task bar lists a window of these states (_NET_WM_STATE).
[[nodiscard]] bool isInTaskbar(const Connection &connection, std::span<const quint32> states);

/// The number that a process has in its own namespace, from its /proc status; 0 when it is not told.
[[nodiscard]] pid_t innermostPid(const QByteArray &status);

/// Whether a client that names its machine runs on this one, called `host`. Either name may come
/// with its domain or without.
[[nodiscard]] bool isThisMachine(const QString &machine, const QString &host);

struct ClientPropertiesRequest {
    xcb_window_t window = noWindow;
    xcb_get_geometry_cookie_t geometry{};
    xcb_get_property_cookie_t pid{};
    xcb_get_property_cookie_t machine{};
    xcb_res_query_client_ids_cookie_t clientIds{};
    NamesRequest names;
    xcb_get_property_cookie_t state{};
    KindRequest kind;
    StrutRequest struts;
};

[[nodiscard]] ClientPropertiesRequest requestClientProperties(
    const Connection &connection, xcb_window_t window);
/// Nothing when the window is gone. Its process is 0 when it runs elsewhere or tells none. The
/// generation and whether it was listed are the caller's to set.
[[nodiscard]] std::optional<KnownWindow> clientProperties(
    Connection &connection, const ClientPropertiesRequest &request);

} // namespace corvane::x11
