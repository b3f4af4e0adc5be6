#include "OwnPanels.h"

#include "Properties.h"

#include <algorithm>

namespace corvane::x11 {

namespace {

/// The strips of the desk that the work area, one box over all displays, leaves out.
QList<Rect> stripsOutsideWorkArea(Connection &connection, Size desk)
{
    const auto reply = propertyReply(
        connection, requestProperty(connection, connection.root(), Atom::netWorkarea));
    const auto values = values32(reply);
    if (values.size() < 4)
        return {};
    const Rect area{
        double(qint32(values[0])), double(qint32(values[1])), double(values[2]), double(values[3])};
    QList<Rect> strips{{0, 0, area.minX(), desk.height}, {0, 0, desk.width, area.minY()},
        {area.maxX(), 0, desk.width - area.maxX(), desk.height},
        {0, area.maxY(), desk.width, desk.height - area.maxY()}};
    strips.removeIf([](const Rect &strip) { return strip.width <= 0 || strip.height <= 0; });
    return strips;
}

struct Candidate {
    xcb_get_geometry_cookie_t geometry;
    xcb_get_window_attributes_cookie_t attributes;
};

} // namespace

QList<Rect> ownPanels(Connection &connection, xcb_window_t windowManager, Size desk)
{
    const QList<Rect> strips = stripsOutsideWorkArea(connection, desk);
    if (strips.isEmpty())
        return {};
    const auto tree = connection.reply<xcb_query_tree_reply_t>(
        xcb_query_tree(connection.xcb(), connection.root()).sequence);
    if (!tree)
        return {};

    const uint32_t ownIds = ~xcb_get_setup(connection.xcb())->resource_id_mask;
    QList<Candidate> candidates;
    const std::span children(
        xcb_query_tree_children(tree->get()), size_t(xcb_query_tree_children_length(tree->get())));
    for (const xcb_window_t child : children) {
        if ((child & ownIds) == (windowManager & ownIds))
            candidates << Candidate{xcb_get_geometry(connection.xcb(), child),
                xcb_get_window_attributes(connection.xcb(), child)};
    }

    QList<Rect> panels;
    for (const Candidate &candidate : std::as_const(candidates)) {
        const auto geometry =
            connection.reply<xcb_get_geometry_reply_t>(candidate.geometry.sequence);
        const auto attributes =
            connection.reply<xcb_get_window_attributes_reply_t>(candidate.attributes.sequence);
        if (!geometry || !attributes || (*attributes)->map_state != XCB_MAP_STATE_VIEWABLE
            || (*attributes)->_class == XCB_WINDOW_CLASS_INPUT_ONLY)
            continue;
        const int border = 2 * (*geometry)->border_width;
        const Rect rect{double((*geometry)->x), double((*geometry)->y),
            double((*geometry)->width + border), double((*geometry)->height + border)};
        const bool fillsItsStrip = std::ranges::any_of(strips, [&rect](const Rect &strip) {
            return strip.intersectionArea(rect) == rect.width * rect.height
                && (rect.width == strip.width || rect.height == strip.height);
        });
        if (fillsItsStrip)
            panels << rect;
    }
    return panels;
}

} // namespace corvane::x11
