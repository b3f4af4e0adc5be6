#include "UnlistedPanels.h"

#include "ClientProperties.h"

namespace corvane::x11 {

namespace {

QList<xcb_window_t> childrenOf(Connection &connection, const QList<xcb_window_t> &parents)
{
    QList<xcb_query_tree_cookie_t> cookies;
    for (const xcb_window_t parent : parents)
        cookies << xcb_query_tree(connection.xcb(), parent);
    QList<xcb_window_t> children;
    for (const xcb_query_tree_cookie_t cookie : std::as_const(cookies)) {
        const auto tree = connection.reply<xcb_query_tree_reply_t>(cookie.sequence);
        if (!tree)
            continue;
        const xcb_window_t *first = xcb_query_tree_children(tree->get());
        for (int i = 0; i < xcb_query_tree_children_length(tree->get()); ++i)
            children << first[i];
    }
    return children;
}

} // namespace

QList<Strut> unlistedStruts(Connection &connection, const WindowRegistry &registry)
{
    const auto frames = childrenOf(connection, {connection.root()});
    QList<StrutRequest> requests;
    for (const xcb_window_t client : childrenOf(connection, frames)) {
        if (!registry.known().contains(client))
            requests << requestStruts(connection, client);
    }
    QList<Strut> struts;
    for (const StrutRequest &request : std::as_const(requests))
        struts << readStruts(connection, request);
    return struts;
}

} // namespace corvane::x11
