#include "SwayTree.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace corvane::sway {

using namespace Qt::StringLiterals;
using wayland::Desk;
using wayland::Toplevel;
using wayland::ToplevelKind;

namespace {

Rect rectOf(const QJsonValue &value)
{
    return {value[u"x"].toDouble(), value[u"y"].toDouble(), value[u"width"].toDouble(),
        value[u"height"].toDouble()};
}

/// The nodes inside, that which had the focus last first.
QList<QJsonObject> inFocusOrder(const QJsonObject &node)
{
    QList<QJsonObject> ordered;
    QList<QJsonObject> left;
    for (const QJsonValue &child : node[u"nodes"_s].toArray())
        left << child.toObject();
    for (const QJsonValue &id : node[u"focus"_s].toArray()) {
        const auto child = std::ranges::find_if(left,
            [&](const QJsonObject &each) { return each[u"id"_s].toInteger() == id.toInteger(); });
        if (child == left.end())
            continue;
        ordered << *child;
        left.erase(child);
    }
    return ordered + left;
}

/// What an X11 client says that its window is; a Wayland client says nothing of the kind.
ToplevelKind kindOf(const QString &windowType)
{
    if (windowType.isEmpty() || windowType == "normal"_L1 || windowType == "unknown"_L1)
        return ToplevelKind::standard;
    if (windowType == "dock"_L1)
        return ToplevelKind::panel;
    return windowType == "desktop"_L1 ? ToplevelKind::desktop : ToplevelKind::dialog;
}

/// Reads the tree from the top down, where each node inherits what its workspace is.
class TreeReader
{
public:
    explicit TreeReader(quint64 generation) : m_generation(generation) { }

    void read(const QJsonObject &root)
    {
        for (const QJsonObject &output : inFocusOrder(root)) {
            for (const QJsonObject &workspace : inFocusOrder(output))
                readWorkspace(workspace, output);
        }
        // What has full screen is above all, and what floats above what is tiled.
        std::ranges::stable_sort(m_found, {}, &Found::rank);
    }

    [[nodiscard]] Desk desk()
    {
        Desk desk;
        for (const Found &found : std::as_const(m_found))
            desk.windows << found.toplevel;
        desk.focused = m_focused;
        desk.workAreas = m_workAreas;
        return desk;
    }

private:
    struct Found {
        Toplevel toplevel;
        int rank = 0;
    };
    struct Place {
        bool shown = false;
        bool minimized = false; ///< put away in the scratchpad
        bool floating = false;
        bool insideFloating = false;
    };

    void readWorkspace(const QJsonObject &workspace, const QJsonObject &output)
    {
        const bool isScratchpad = output[u"name"_s] == "__i3"_L1;
        const bool isCurrent = workspace[u"name"_s] == output[u"current_workspace"_s];
        const Rect area = rectOf(workspace[u"rect"_s]);
        if (isCurrent && area.width > 0)
            m_workAreas << wayland::WorkArea{rectOf(output[u"rect"_s]), area};
        Place place{.shown = isScratchpad || isCurrent, .minimized = isScratchpad};
        const QJsonArray floating = workspace[u"floating_nodes"_s].toArray();
        place.floating = true;
        // The last one is in front.
        for (qsizetype i = floating.size() - 1; i >= 0; --i)
            readNode(floating.at(i).toObject(), place);
        place.floating = isScratchpad;
        readChildren(workspace, place);
    }

    void readChildren(const QJsonObject &node, const Place &place)
    {
        for (const QJsonObject &child : inFocusOrder(node))
            readNode(child, place);
    }

    void readNode(const QJsonObject &node, const Place &place)
    {
        const bool isWindow = node.contains(u"pid"_s) && node[u"nodes"_s].toArray().isEmpty();
        if (isWindow)
            return readWindow(node, place);
        Place inside = place;
        inside.insideFloating = place.floating;
        readChildren(node, inside);
    }

    void readWindow(const QJsonObject &node, const Place &place)
    {
        const QJsonValue names = node[u"window_properties"_s];
        Toplevel window;
        window.element = {quint64(node[u"id"_s].toInteger()), m_generation};
        window.traces = {.pid = pid_t(node[u"pid"_s].toInteger()),
            .publishedId = node[u"app_id"_s].toString(),
            // Desktop entries announce the id where they announced the class of X11.
            .className = names[u"class"].toString(node[u"app_id"_s].toString()),
            .instanceName = names[u"instance"].toString()};
        window.title = node[u"name"_s].toString();
        // The rectangle leaves the title bar out, which stands above it.
        window.frame = rectOf(node[u"rect"_s]);
        const double title = node[u"deco_rect"_s][u"height"].toDouble();
        window.frame.y -= title;
        window.frame.height += title;
        window.client = rectOf(node[u"window_rect"_s]).size();
        window.kind = kindOf(names[u"window_type"].toString());
        window.fullScreen = node[u"fullscreen_mode"_s].toInt() != 0;
        window.tiled = !place.floating || place.insideFloating;
        window.minimized = place.minimized;
        window.here = place.shown;
        window.concealed = place.shown && !place.minimized && !node[u"visible"_s].toBool(true);
        if (node[u"focused"_s].toBool())
            m_focused = window.element;
        const int rank = window.minimized ? 3 : window.fullScreen ? 0 : window.tiled ? 2 : 1;
        m_found << Found{window, rank};
    }

    quint64 m_generation;
    QList<Found> m_found;
    QList<wayland::WorkArea> m_workAreas;
    std::optional<WindowElement> m_focused;
};

} // namespace

Desk deskOf(const QJsonObject &tree, quint64 generation)
{
    TreeReader reader(generation);
    reader.read(tree);
    return reader.desk();
}

} // namespace corvane::sway
