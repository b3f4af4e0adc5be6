#include "TilePlaces.h"

#include <algorithm>

namespace corvane::sway {

using namespace wayland;

namespace {

// A mark of sway's that exists only while our commands run.
constexpr const char *mark = "_corvane_neighbour";

/// The tiled nodes around the one with this id; none where it is not among the tiled ones.
std::span<const Json> siblingsOf(qint64 id, const Json &node)
{
    const auto children = itemsOf(at(node, "nodes"));
    for (const Json &child : children) {
        if (integerOf(at(child, "id")) == id)
            return children;
        if (const auto found = siblingsOf(id, child); !found.empty())
            return found;
    }
    return {};
}

QByteArray criteria(qint64 id)
{
    return "[con_id=" + QByteArray::number(id) + "] ";
}

} // namespace

void TilePlaces::remember(const WindowElement &window, const Json &tree)
{
    const auto id = static_cast<qint64>(window.number);
    const auto siblings = siblingsOf(id, tree);
    const auto idAt = [&](size_t index) {
        return index < siblings.size() ? integerOf(at(siblings[index], "id")) : 0;
    };
    for (size_t i = 0; i < siblings.size(); ++i) {
        if (idAt(i) != id)
            continue;
        const Json &rect = at(siblings[i], "rect");
        const double title = numberOf(at(at(siblings[i], "deco_rect"), "height"));
        m_places.insert(window,
            {i > 0 ? idAt(i - 1) : 0, idAt(i + 1), int(numberOf(at(rect, "width"))),
                int(numberOf(at(rect, "height")) + title)});
    }
}

QByteArray TilePlaces::wayBack(const WindowElement &window) const
{
    const auto id = static_cast<qint64>(window.number);
    const auto place = m_places.constFind(window);
    const QByteArray tile = criteria(id) + "floating disable";
    const qint64 neighbour =
        place == m_places.cend() ? 0 : (place->before != 0 ? place->before : place->behind);
    if (neighbour == 0)
        return tile;
    QByteArray commands = criteria(neighbour) + "mark --add " + mark + "; " + tile
        + ", move container to mark " + mark + "; " + criteria(neighbour) + "unmark " + mark;
    if (place->before == 0)
        commands +=
            "; " + criteria(id) + "swap container with con_id " + QByteArray::number(neighbour);
    return commands + "; " + criteria(id) + "resize set width " + QByteArray::number(place->width)
        + " px height " + QByteArray::number(place->height) + " px";
}

void TilePlaces::keepOnly(const QList<Toplevel> &windows)
{
    m_places.removeIf([&](auto entry) {
        return std::ranges::find(windows, entry.key(), &Toplevel::element) == windows.end();
    });
}

} // namespace corvane::sway
