#include "TilePlaces.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace corvane::sway {

using namespace Qt::StringLiterals;

namespace {

// A mark of sway's that exists only while our commands run.
constexpr const char *mark = "_corvane_neighbour";

/// The tiled node around the one with this id; empty where it is not among the tiled ones.
QJsonObject parentOf(qint64 id, const QJsonObject &node)
{
    for (const QJsonValue &child : node[u"nodes"_s].toArray()) {
        if (child[u"id"].toInteger() == id)
            return node;
        const QJsonObject found = parentOf(id, child.toObject());
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QByteArray criteria(qint64 id)
{
    return "[con_id=" + QByteArray::number(id) + "] ";
}

} // namespace

void TilePlaces::remember(const WindowElement &window, const QJsonObject &tree)
{
    const auto id = static_cast<qint64>(window.number);
    const QJsonArray siblings = parentOf(id, tree)[u"nodes"_s].toArray();
    for (qsizetype i = 0; i < siblings.size(); ++i) {
        const QJsonValue node = siblings.at(i);
        if (node[u"id"].toInteger() != id)
            continue;
        const QJsonValue rect = node[u"rect"];
        const int title = node[u"deco_rect"][u"height"].toInt();
        m_places.insert(window,
            {i > 0 ? siblings.at(i - 1)[u"id"].toInteger() : 0,
                i + 1 < siblings.size() ? siblings.at(i + 1)[u"id"].toInteger() : 0,
                rect[u"width"].toInt(), rect[u"height"].toInt() + title});
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

void TilePlaces::keepOnly(const QList<wayland::Toplevel> &windows)
{
    m_places.removeIf([&](auto entry) {
        return std::ranges::find(windows, entry.key(), &wayland::Toplevel::element)
            == windows.end();
    });
}

} // namespace corvane::sway
