#pragma once

#include "LayoutScene.h"

namespace corvane {

/// One gesture that moves an edge: a working copy of the layout, made when it begins.
class EdgeDrag
{
public:
    /// What a person may want the edge to stand at.
    enum class Snapping {
        edges, ///< other panes' edges, halves, thirds and quarters, else whole percents
        tenths, ///< of percents alone
    };
    /// No pane gets narrower or lower than this share of its display.
    static constexpr double minimum = 0.05;

    EdgeDrag(WindowLayout layout, const PaneEdge &edge);

    /// Moves it to where the pointer is, a fraction of the display. `reach` is how far a snap pulls.
    void moveTo(double fraction, double reach, Snapping snapping);
    /// Moves it by keys.
    void moveBy(double fraction) { place(m_edge.at + fraction); }
    void moveToNextSnap(int direction);
    /// To the limit on this side.
    void moveToEnd(int direction) { place(direction < 0 ? 0 : 1); }
    void place(double fraction);

    [[nodiscard]] const WindowLayout &layout() const { return m_layout; }
    [[nodiscard]] const PaneEdge &edge() const { return m_edge; }
    [[nodiscard]] bool hasMoved() const { return m_edge.at != m_origin.at; }
    /// Whether it stands at a snap, as a guide shows.
    [[nodiscard]] std::optional<double> snap() const { return m_snap; }
    /// Whether it was to go further than the panes on either side allow.
    [[nodiscard]] bool isAtLimit() const { return m_isAtLimit; }

private:
    [[nodiscard]] QList<double> snaps() const;

    WindowLayout m_before;
    PaneEdge m_origin;
    WindowLayout m_layout;
    PaneEdge m_edge;
    std::optional<double> m_snap;
    bool m_isAtLimit = false;
};

} // namespace corvane
