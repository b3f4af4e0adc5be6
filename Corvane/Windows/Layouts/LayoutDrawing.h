#pragma once

#include "EdgeDrag.h"
#include "PaneResult.h"

#include <QtCore/QHash>

#include <functional>

class QPainter;

namespace corvane {

/// What there is to see of a layout.
struct LayoutView {
    const WindowLayout &layout;
    const LayoutScene &scene;
    QUuid pane = {}; ///< the current one
    int display = 0; ///< the current one
    bool showsFocus = false;
    std::optional<PaneEdge> edge =
        {}; ///< under the pointer, or the one that keys or the mouse move
    bool isEdgeFocused = false;
    const EdgeDrag *drag = nullptr;
    QUuid removed = {}; ///< the pane that is about to go, perhaps
    QUuid grower = {}; ///< and the one that would take its space
    QHash<QUuid, PaneStatus> results = {}; ///< of an apply
    bool isUnderWay = false; ///< that apply is, so the other panes wait
};

/// A part of the picture. Two with the same key, bounds and look are the same to the eye.
struct DrawnPart {
    QString key;
    QRectF bounds;
    QString look;
    std::function<void(QPainter &painter)> paint;

    [[nodiscard]] bool isLike(const DrawnPart &other) const
    {
        return bounds == other.bounds && look == other.look;
    }
};

/// A column's or a row's share, on a ruler.
struct RulerNumber {
    CutLines cut = CutLines::vertical;
    int index = 0;
    QRectF span = {}; ///< the ruler's part
    QString text = {};
};

namespace LayoutDrawing {

// The room around the displays, as drawings are measured.
inline constexpr double rulerRoom = 34; ///< above and left of them
inline constexpr double nameRoom = 28; ///< below
inline constexpr double endRoom = 16; ///< to the right

/// From the back to the front.
[[nodiscard]] QList<DrawnPart> parts(const LayoutView &view);
/// Those of the current display's columns and rows, where it has several.
[[nodiscard]] QList<RulerNumber> rulers(const LayoutView &view);
/// A share as a person reads it, in percents.
[[nodiscard]] QString percent(double fraction);

} // namespace LayoutDrawing

} // namespace corvane
