#pragma once

#include "DisplayKey.h"
#include "ScreenInfo.h"

#include <QtCore/QList>

#include <optional>

/// The connected displays. Each call without a list asks the desktop afresh; the same call with a
/// list answers from it, so that several questions are about the same displays.
namespace corvane::Screens {

enum class Direction {
    next = 1,
    previous = -1,
};

/// Left to right; displays whose left edges are within a point of each other top to bottom.
[[nodiscard]] QList<ScreenInfo> all();

/// The display that holds most of `rect`, the earlier one on a tie, the first one when `rect` is on
/// none. Absent only without displays.
[[nodiscard]] std::optional<ScreenInfo> screenContaining(const Rect &rect);
[[nodiscard]] std::optional<ScreenInfo> screenContaining(
    const Rect &rect, const QList<ScreenInfo> &screens);

/// The neighbour in the order of `all`, round the ends. Absent with fewer than two displays or when
/// `screen` is none of them.
[[nodiscard]] std::optional<ScreenInfo> next(const ScreenInfo &screen, Direction direction);
[[nodiscard]] std::optional<ScreenInfo> next(
    const ScreenInfo &screen, Direction direction, const QList<ScreenInfo> &screens);

[[nodiscard]] DisplayKey key(const ScreenInfo &screen);
/// One key per display, in the order of `all`.
[[nodiscard]] QList<DisplayKey> signature();
[[nodiscard]] QList<DisplayKey> signature(const QList<ScreenInfo> &screens);

} // namespace corvane::Screens
