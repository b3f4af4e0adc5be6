#include "LayoutScene.h"

#include "DisplayMapping.h"
#include "PaneSpan.h"
#include "Screens.h"

#include <QtCore/QLineF>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double between = 8; ///< two displays, in points of the picture

QRectF toQt(const Rect &rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

/// The display as it is on the desk.
struct Standing {
    LayoutScene::Display display;
    QRectF frame;
    QRectF visible;
};

QList<Standing> standing(const WindowLayout &layout, const QList<ScreenInfo> &connected)
{
    QList<Standing> all;
    const QMap<int, int> mapping = displayMapping(layout.displays, Screens::signature(connected));
    QRectF desk;
    for (const auto &[index, screen] : mapping.asKeyValueRange()) {
        const ScreenInfo &info = connected[screen];
        all << Standing{{.index = index, .key = layout.displays[index], .isConnected = true},
            toQt(info.frame), toQt(info.visibleFrame)};
        desk |= all.last().frame;
    }
    for (int index = 0; index < layout.displays.size(); ++index) {
        if (mapping.contains(index))
            continue;
        const DisplayKey &key = layout.displays[index];
        const QRectF frame(
            desk.right(), desk.top(), std::max(1, key.width), std::max(1, key.height));
        all << Standing{{.index = index, .key = key}, frame, frame};
        desk |= frame;
    }
    std::ranges::sort(all, {}, [](const Standing &each) { return each.display.index; });
    return all;
}

} // namespace

LayoutScene LayoutScene::of(
    const WindowLayout &layout, const QList<ScreenInfo> &connected, const QRectF &room)
{
    LayoutScene scene;
    const QList<Standing> displays = standing(layout, connected);
    QRectF desk;
    for (const Standing &each : displays)
        desk |= each.frame;
    if (desk.isEmpty())
        return scene;
    scene.scale = std::min(room.width() / desk.width(), room.height() / desk.height());
    const QPointF origin = room.center() - desk.center() * scene.scale;
    const auto drawn = [&](const QRectF &rect) {
        return QRectF(rect.topLeft() * scene.scale + origin, rect.size() * scene.scale);
    };
    constexpr double inset = between / 2;
    for (const Standing &each : displays) {
        Display display = each.display;
        const QRectF whole = drawn(each.frame);
        display.frame = whole.adjusted(inset, inset, -inset, -inset);
        // What is shrunk for the space between displays shrinks alike within.
        const double x = display.frame.width() / whole.width();
        const double y = display.frame.height() / whole.height();
        const QRectF visible = drawn(each.visible).translated(-whole.topLeft());
        display.visible = QRectF(display.frame.left() + visible.left() * x,
            display.frame.top() + visible.top() * y, visible.width() * x, visible.height() * y);
        scene.displays << display;
    }
    return scene;
}

const LayoutScene::Display *LayoutScene::display(int index) const
{
    const auto found = std::ranges::find(displays, index, &Display::index);
    return found == displays.end() ? nullptr : &*found;
}

QRectF LayoutScene::bounds() const
{
    QRectF all;
    for (const Display &each : displays)
        all |= each.frame;
    return all;
}

QRectF LayoutScene::rectOf(const Pane &pane) const
{
    const Display *display = this->display(pane.display);
    if (!display)
        return {};
    const QRectF &area = display->visible;
    return {area.left() + pane.rect.x * area.width(), area.top() + pane.rect.y * area.height(),
        pane.rect.w * area.width(), pane.rect.h * area.height()};
}

const Pane *LayoutScene::paneAt(const WindowLayout &layout, const QPointF &point) const
{
    const auto size = [this](const Pane &pane) {
        const QRectF rect = rectOf(pane);
        return rect.width() * rect.height();
    };
    const Pane *found = nullptr;
    for (const Pane &pane : layout.panes) {
        if (rectOf(pane).contains(point) && (!found || size(pane) <= size(*found)))
            found = &pane;
    }
    return found;
}

QList<PaneEdge> edgesOf(const WindowLayout &layout)
{
    QList<PaneEdge> all;
    for (int display = 0; display < layout.displays.size(); ++display) {
        const WindowLayout::Edges edges = layout.edges(display);
        for (const double at : edges.vertical)
            all << PaneEdge{display, CutLines::vertical, at};
        for (const double at : edges.horizontal)
            all << PaneEdge{display, CutLines::horizontal, at};
    }
    return all;
}

QList<QLineF> segmentsOf(const PaneEdge &edge, const WindowLayout &layout, const LayoutScene &scene)
{
    const LayoutScene::Display *display = scene.display(edge.display);
    if (!display)
        return {};
    const bool isUpright = edge.cut == CutLines::vertical;
    QList<std::pair<double, double>> stretches;
    for (const Pane &pane : layout.panesOn(edge.display)) {
        const PaneSpan span = spanOf(pane.rect, edge.cut);
        const PaneSpan across = spanOf(pane.rect, crossing(edge.cut));
        if (sameEdge(span.start, edge.at) || sameEdge(span.end(), edge.at))
            stretches.emplaceBack(across.start, across.end());
    }
    std::ranges::sort(stretches);
    QList<std::pair<double, double>> joined;
    for (const auto &stretch : stretches) {
        if (!joined.isEmpty() && stretch.first <= joined.last().second + edgeTolerance)
            joined.last().second = std::max(joined.last().second, stretch.second);
        else
            joined << stretch;
    }
    const QRectF &area = display->visible;
    QList<QLineF> lines;
    for (const auto &[from, to] : std::as_const(joined)) {
        if (isUpright) {
            const double x = area.left() + edge.at * area.width();
            lines << QLineF(
                x, area.top() + from * area.height(), x, area.top() + to * area.height());
        } else {
            const double y = area.top() + edge.at * area.height();
            lines << QLineF(
                area.left() + from * area.width(), y, area.left() + to * area.width(), y);
        }
    }
    return lines;
}

QList<Spot> spotsOf(const WindowLayout &layout, const LayoutScene &scene)
{
    QList<Spot> spots;
    for (const Pane &pane : layout.panes) {
        if (scene.display(pane.display))
            spots << Spot{pane.id, pane.display, scene.rectOf(pane)};
    }
    for (const LayoutScene::Display &display : scene.displays) {
        if (layout.panesOn(display.index).isEmpty())
            spots << Spot{{}, display.index, display.visible};
    }
    return spots;
}

std::optional<Spot> neighbour(const QList<Spot> &spots, const Spot &spot, Qt::ArrowType direction)
{
    const QPointF ahead = direction == Qt::LeftArrow ? QPointF(-1, 0)
        : direction == Qt::RightArrow                ? QPointF(1, 0)
        : direction == Qt::UpArrow                   ? QPointF(0, -1)
                                                     : QPointF(0, 1);
    std::optional<Spot> nearest;
    double least = 0;
    for (const Spot &each : spots) {
        const QPointF way = each.rect.center() - spot.rect.center();
        const double along = QPointF::dotProduct(way, ahead);
        if (each == spot || along <= 1)
            continue;
        const double aside = std::abs(way.x() * ahead.y() - way.y() * ahead.x());
        // What lies straight ahead is nearer than what lies as far away aslant.
        const double distance = along + 2 * aside;
        if (!nearest || distance < least) {
            nearest = each;
            least = distance;
        }
    }
    return nearest;
}

} // namespace corvane
