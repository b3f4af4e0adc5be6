#pragma once

#include "Pane.h"
#include "WindowAssignment.h"

namespace corvane {

/// A pane that is to get a window.
struct PaneWish {
    Pane pane;
    Rect target; ///< where its window is to stand
};

/// A pane that takes only windows with the text that somebody typed in their titles.
[[nodiscard]] bool demandsTitle(const Pane &pane);

/// Which window each pane gets, if any, by index. The panes are of one application, in the order of
/// their placing; the windows are its windows without a pane, front to back. None goes to two panes.
/// Demands come first, in their order; then the captured panes get what suits them best, all together;
/// a pane without a title takes the frontmost window that is left.
[[nodiscard]] QList<std::optional<qsizetype>> chooseWindows(
    const QList<PaneWish> &wishes, const QList<WindowTraits> &windows);

} // namespace corvane
