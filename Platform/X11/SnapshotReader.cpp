#include "SnapshotReader.h"

#include "Properties.h"

#include <algorithm>

namespace corvane::x11 {

namespace {

/// Where the window manager publishes no extents: what its frame window adds around the client.
Extents decorationFromParent(Connection &connection, xcb_window_t window, const Rect &client)
{
    const auto tree =
        connection.reply<xcb_query_tree_reply_t>(xcb_query_tree(connection.xcb(), window).sequence);
    if (!tree || (*tree)->parent == connection.root() || (*tree)->parent == noWindow)
        return {};
    const xcb_window_t parent = (*tree)->parent;
    const auto geometryCookie = xcb_get_geometry(connection.xcb(), parent);
    const auto originCookie =
        xcb_translate_coordinates(connection.xcb(), parent, connection.root(), 0, 0);
    const auto geometry = connection.reply<xcb_get_geometry_reply_t>(geometryCookie.sequence);
    const auto origin = connection.reply<xcb_translate_coordinates_reply_t>(originCookie.sequence);
    if (!geometry || !origin)
        return {};
    const Rect outer{double((*origin)->dst_x), double((*origin)->dst_y), double((*geometry)->width),
        double((*geometry)->height)};
    return {client.x - outer.x, outer.maxX() - client.maxX(), client.y - outer.y,
        outer.maxY() - client.maxY()};
}

void readState(
    const Connection &connection, std::span<const quint32> states, WindowSnapshot &window)
{
    const auto has = [&](Atom atom) {
        return std::ranges::find(states, connection.atom(atom)) != states.end();
    };
    window.maximizedHorizontally = has(Atom::stateMaximizedHorz);
    window.maximizedVertically = has(Atom::stateMaximizedVert);
    window.fullScreen = has(Atom::stateFullscreen);
    window.hidden = has(Atom::stateHidden);
}

} // namespace

SnapshotRequest requestSnapshot(const Connection &connection, xcb_window_t window)
{
    return {.window = window,
        .geometry = xcb_get_geometry(connection.xcb(), window),
        .origin = xcb_translate_coordinates(connection.xcb(), window, connection.root(), 0, 0),
        .attributes = xcb_get_window_attributes(connection.xcb(), window),
        .decoration = requestProperty(connection, window, Atom::netFrameExtents),
        .shadow = requestProperty(connection, window, Atom::gtkFrameExtents),
        .state = requestProperty(connection, window, Atom::netWmState),
        .hints = requestProperty(connection, window, XCB_ATOM_WM_NORMAL_HINTS),
        .desktop = requestProperty(connection, window, Atom::netWmDesktop),
        .floating = requestProperty(connection, window, Atom::i3FloatingWindow),
        .kind = requestKind(connection, window)};
}

expected<WindowSnapshot, AXError> readSnapshot(
    Connection &connection, const SnapshotRequest &request, bool windowManagerTiles)
{
    const Answers answers(connection);
    const auto geometry = connection.reply<xcb_get_geometry_reply_t>(request.geometry.sequence);
    if (!geometry) {
        discardSnapshot(connection, request);
        return unexpected<AXError>(geometry.error());
    }
    const auto origin =
        connection.reply<xcb_translate_coordinates_reply_t>(request.origin.sequence);
    const auto attributes =
        connection.reply<xcb_get_window_attributes_reply_t>(request.attributes.sequence);
    const auto decoration = propertyReply(connection, request.decoration);
    const auto shadow = propertyReply(connection, request.shadow);
    const auto state = propertyReply(connection, request.state);
    const auto hints = propertyReply(connection, request.hints);
    const auto desktop = propertyReply(connection, request.desktop);
    const auto floating = propertyReply(connection, request.floating);

    WindowSnapshot window;
    window.kind = readKind(connection, request.kind, request.window);
    if (!origin)
        return unexpected<AXError>(origin.error());
    window.client = {double((*origin)->dst_x), double((*origin)->dst_y), double((*geometry)->width),
        double((*geometry)->height)};

    window.border = (*geometry)->border_width;
    // A tiling window manager publishes none: what stands there is left from another one.
    const auto extents =
        windowManagerTiles ? std::nullopt : Extents::fromProperty(values32(decoration));
    window.publishesDecoration = extents.has_value();
    window.decoration =
        extents ? *extents : decorationFromParent(connection, request.window, window.client);
    const auto shadowExtents = Extents::fromProperty(values32(shadow));
    window.drawsOwnDecoration = shadowExtents.has_value();
    if (shadowExtents && shadowExtents->left + shadowExtents->right < window.client.width
        && shadowExtents->top + shadowExtents->bottom < window.client.height)
        window.shadow = *shadowExtents;

    readState(connection, values32(state), window);
    window.viewable = attributes && (*attributes)->map_state == XCB_MAP_STATE_VIEWABLE;
    window.hints = WindowHints::fromProperty(values32(hints));
    const auto desktops = values32(desktop);
    window.desktop = desktops.empty() ? 0 : desktops[0];
    window.tiled = windowManagerTiles && values32(floating).empty();
    if (!answers.complete())
        return unexpected<AXError>(AXError::cannotComplete);
    return window;
}

void discardSnapshot(Connection &connection, const SnapshotRequest &request)
{
    for (const unsigned sequence :
        {request.geometry.sequence, request.origin.sequence, request.attributes.sequence,
            request.decoration.sequence, request.shadow.sequence, request.state.sequence,
            request.hints.sequence, request.desktop.sequence, request.floating.sequence,
            request.kind.type.sequence, request.kind.transientFor.sequence})
        connection.discard(sequence);
}

} // namespace corvane::x11
