#pragma once

#include "ScreenInfo.h"
#include "WindowLayout.h"

#include <QtCore/QRectF>

namespace corvane {

/// Where a layout's displays and panes are in a picture. Rectangles are in the picture's points.
struct LayoutScene {
    struct Display {
        int index = 0; ///< in the layout
        DisplayKey key = {};
        QRectF frame = {};
        QRectF visible = {}; ///< without panels: what the panes divide
        bool isConnected = false;

        bool operator==(const Display &) const = default;
    };

    /// Those connected stand as they do on the desk, the others to their right in the layout's order, with
    /// their tops on one line; all in one scale, as large as the room lets them be.
    [[nodiscard]] static LayoutScene of(
        const WindowLayout &layout, const QList<ScreenInfo> &connected, const QRectF &room);

    [[nodiscard]] const Display *display(int index) const;
    /// Of all displays.
    [[nodiscard]] QRectF bounds() const;
    /// Empty for a pane whose display is not there.
    [[nodiscard]] QRectF rectOf(const Pane &pane) const;
    /// The pane at the point; the smallest one of several.
    [[nodiscard]] const Pane *paneAt(const WindowLayout &layout, const QPointF &point) const;

    QList<Display> displays; ///< in the layout's order
    double scale = 1; ///< points of the picture per point of the desk

    bool operator==(const LayoutScene &) const = default;
};

/// An inner edge of a display's panes: all of their edges that lie on one line move together.
struct PaneEdge {
    int display = 0;
    CutLines cut = CutLines::vertical;
    double at = 0; ///< a fraction of the display

    bool operator==(const PaneEdge &) const = default;
};

/// The inner edges of all displays, those of one display from the left and from the top.
[[nodiscard]] QList<PaneEdge> edgesOf(const WindowLayout &layout);
/// The stretches of the edge along which panes end, each as a line in the picture.
[[nodiscard]] QList<QLineF> segmentsOf(
    const PaneEdge &edge, const WindowLayout &layout, const LayoutScene &scene);
/// A place that a person can make the current one: a pane, or a display without any.
struct Spot {
    QUuid pane; ///< null for a display
    int display = 0;
    QRectF rect;

    bool operator==(const Spot &) const = default;
};

[[nodiscard]] QList<Spot> spotsOf(const WindowLayout &layout, const LayoutScene &scene);
/// The next one in a direction, by what a person sees: across displays, too. None at the end.
[[nodiscard]] std::optional<Spot> neighbour(
    const QList<Spot> &spots, const Spot &spot, Qt::ArrowType direction);

} // namespace corvane
