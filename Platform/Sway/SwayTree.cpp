#include "SwayTree.h"

#include <algorithm>
#include <vector>

namespace corvane::sway {

using namespace wayland;

namespace {

Rect rectOf(const Json &value)
{
    return {numberOf(at(value, "x")), numberOf(at(value, "y")), numberOf(at(value, "width")),
        numberOf(at(value, "height"))};
}

using Nodes = std::vector<const Json *>;

/// The nodes inside, that which had the focus last first.
Nodes inFocusOrder(const Json &node)
{
    Nodes left;
    for (const Json &child : itemsOf(at(node, "nodes")))
        left.push_back(&child);
    Nodes ordered;
    for (const Json &id : itemsOf(at(node, "focus"))) {
        if (left.empty())
            break;
        const auto child = std::ranges::find_if(
            left, [&](const Json *each) { return integerOf(at(*each, "id")) == integerOf(id); });
        if (child == left.end())
            continue;
        ordered.push_back(*child);
        left.erase(child);
    }
    ordered.insert(ordered.end(), left.begin(), left.end());
    return ordered;
}

/// What an X11 client says that its window is; a Wayland client says nothing of the kind.
ToplevelKind kindOf(std::string_view windowType)
{
    if (windowType.empty() || windowType == "normal" || windowType == "unknown")
        return ToplevelKind::standard;
    if (windowType == "dock")
        return ToplevelKind::panel;
    return windowType == "desktop" ? ToplevelKind::desktop : ToplevelKind::dialog;
}

/// Reads the tree from the top down, where each node inherits what its workspace is.
class TreeReader
{
public:
    explicit TreeReader(quint64 generation) : m_generation(generation) { }

    void read(const Json &root)
    {
        for (const Json *output : inFocusOrder(root)) {
            for (const Json *workspace : inFocusOrder(*output))
                readWorkspace(*workspace, *output);
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

    void readWorkspace(const Json &workspace, const Json &output)
    {
        const bool isScratchpad = textOf(at(output, "name")) == "__i3";
        const bool isCurrent =
            textOf(at(workspace, "name")) == textOf(at(output, "current_workspace"));
        const Rect area = rectOf(at(workspace, "rect"));
        if (isCurrent && area.width > 0)
            m_workAreas << WorkArea{rectOf(at(output, "rect")), area};
        Place place{.shown = isScratchpad || isCurrent, .minimized = isScratchpad};
        const auto floating = itemsOf(at(workspace, "floating_nodes"));
        place.floating = true;
        // The last one is in front.
        for (size_t i = floating.size(); i > 0; --i)
            readNode(floating[i - 1], place);
        place.floating = isScratchpad;
        readChildren(workspace, place);
    }

    void readChildren(const Json &node, const Place &place)
    {
        for (const Json *child : inFocusOrder(node))
            readNode(*child, place);
    }

    void readNode(const Json &node, const Place &place)
    {
        const bool isWindow = !at(node, "pid").IsNull() && itemsOf(at(node, "nodes")).empty();
        if (isWindow)
            return readWindow(node, place);
        Place inside = place;
        inside.insideFloating = place.floating;
        readChildren(node, inside);
    }

    void readWindow(const Json &node, const Place &place)
    {
        const Json &names = at(node, "window_properties");
        Toplevel window;
        window.element = {quint64(integerOf(at(node, "id"))), m_generation};
        window.traces = {.pid = pid_t(integerOf(at(node, "pid"))),
            .publishedId = stringOf(at(node, "app_id")),
            // Desktop entries announce the id where they announced the class of X11.
            .className = stringOf(names.IsObject() ? at(names, "class") : at(node, "app_id")),
            .instanceName = stringOf(at(names, "instance"))};
        window.title = stringOf(at(node, "name"));
        // The rectangle leaves the title bar out, which stands above it.
        window.frame = rectOf(at(node, "rect"));
        const double title = numberOf(at(at(node, "deco_rect"), "height"));
        window.frame.y -= title;
        window.frame.height += title;
        window.client = rectOf(at(node, "window_rect")).size();
        window.kind = kindOf(textOf(at(names, "window_type")));
        window.fullScreen = integerOf(at(node, "fullscreen_mode")) != 0;
        window.tiled = !place.floating || place.insideFloating;
        window.minimized = place.minimized;
        window.here = place.shown;
        window.concealed = place.shown && !place.minimized && at(node, "visible").IsFalse();
        if (at(node, "focused").IsTrue())
            m_focused = window.element;
        const int rank = window.minimized ? 3 : window.fullScreen ? 0 : window.tiled ? 2 : 1;
        m_found << Found{window, rank};
    }

    quint64 m_generation;
    QList<Found> m_found;
    QList<WorkArea> m_workAreas;
    std::optional<WindowElement> m_focused;
};

} // namespace

Desk deskOf(const Json &tree, quint64 generation)
{
    TreeReader reader(generation);
    reader.read(tree);
    return reader.desk();
}

} // namespace corvane::sway
