#pragma once

#include "UnitRect.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <array>
#include <optional>

namespace corvane {

/// What a user can bind to a shortcut or pick from the menu, in the order of display.
enum class Placement {
    leftHalf,
    rightHalf,
    topHalf,
    bottomHalf,
    topLeft,
    topRight,
    bottomLeft,
    bottomRight,
    leftThird,
    centerThird,
    rightThird,
    leftTwoThirds,
    rightTwoThirds,
    topLeftSixth,
    topCenterSixth,
    topRightSixth,
    bottomLeftSixth,
    bottomCenterSixth,
    bottomRightSixth,
    maximize,
    almostMaximize,
    center,
    larger,
    smaller,
    nextDisplay,
    previousDisplay,
    snapBack,
    original,
};

enum class PlacementGroup {
    halves,
    quarters,
    thirds,
    sixths,
    screen,
    size,
    displays,
    history,
};

/// The placements that a repeated press walks through, the pressed one first.
using PlacementCycle = std::array<Placement, 3>;

inline constexpr int placementCount = static_cast<int>(Placement::original) + 1;
inline constexpr int placementGroupCount = static_cast<int>(PlacementGroup::history) + 1;

/// The stable name, as files, command lines and diagnostics spell it.
[[nodiscard]] QLatin1StringView rawValue(Placement placement);
/// For menus, settings and the activity log; in the user's language.
[[nodiscard]] QString title(Placement placement);
[[nodiscard]] PlacementGroup group(Placement placement);
/// Absent for a placement that depends on the window rather than on the area alone.
[[nodiscard]] std::optional<UnitRect> unitRect(Placement placement);
[[nodiscard]] std::optional<PlacementCycle> cycle(Placement placement);

[[nodiscard]] QString title(PlacementGroup group);

[[nodiscard]] const std::array<Placement, placementCount> &allPlacements();
[[nodiscard]] const std::array<PlacementGroup, placementGroupCount> &placementGroups();
[[nodiscard]] QList<Placement> inGroup(PlacementGroup group);
[[nodiscard]] std::optional<Placement> placementNamed(QStringView rawValue);

} // namespace corvane
