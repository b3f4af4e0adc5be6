#pragma once

#include "Pane.h"
#include "Rect.h"

namespace corvane {

/// A window that a pane may be given.
struct WindowCandidate {
    QString title;
    Rect frame; ///< where it stands now

    bool operator==(const WindowCandidate &) const = default;
};

/// A pane that takes only windows with its text in their titles.
[[nodiscard]] bool namesWindow(const Pane &pane);

/// Which window each pane gets, if any, by index. The panes are of one application, in the order of
/// their placing; the windows are its windows without a pane, front to back. None goes to two panes.
[[nodiscard]] QList<std::optional<qsizetype>> chooseWindows(
    const QList<Pane> &panes, const QList<WindowCandidate> &windows);

} // namespace corvane
