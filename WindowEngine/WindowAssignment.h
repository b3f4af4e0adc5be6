#pragma once

#include "Rect.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace corvane {

/// What tells one window of an application from its others.
struct WindowTraits {
    QString title;
    int stack = 0; ///< among the windows of its process; 0 is the frontmost
    Rect frame = {}; ///< in accessibility coordinates

    bool operator==(const WindowTraits &) const = default;
};

/// Finds for each wish the window that suits it, over all of them at once: the most wishes get a
/// window of the very title, then the titles of the others are as alike as can be, then as many
/// windows as possible stay where they stand, then the stacking order is kept, then the ways are
/// short. No window is taken twice, and none is left over while a wish has none. The index of the
/// window for each wish, in the order of `wishes`; neither list's order matters otherwise.
[[nodiscard]] QList<std::optional<qsizetype>> bestAssignment(
    const QList<WindowTraits> &wishes, const QList<WindowTraits> &windows);

} // namespace corvane
