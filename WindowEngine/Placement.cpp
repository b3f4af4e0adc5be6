#include "Placement.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace corvane {

namespace {

struct PlacementRow {
    Placement placement;
    const char *rawValue;
    PlacementGroup group;
    const char *title;
    std::optional<UnitRect> unitRect = {};
    std::optional<PlacementCycle> cycle = {};
};

struct GroupRow {
    PlacementGroup group;
    const char *title;
};

using enum Placement;
using Group = PlacementGroup;

constexpr double half = 1.0 / 2.0;
constexpr double third = 1.0 / 3.0;
constexpr double twoThirds = 2.0 / 3.0;

// clang-format off
constexpr std::array placementTable{
    PlacementRow{leftHalf, "leftHalf", Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Left Half"), UnitRect{0, 0, half, 1},
        PlacementCycle{leftHalf, leftTwoThirds, leftThird}},
    PlacementRow{rightHalf, "rightHalf", Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Right Half"), UnitRect{half, 0, half, 1},
        PlacementCycle{rightHalf, rightTwoThirds, rightThird}},
    PlacementRow{topHalf, "topHalf", Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Top Half"), UnitRect{0, 0, 1, half}},
    PlacementRow{bottomHalf, "bottomHalf", Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Bottom Half"), UnitRect{0, half, 1, half}},
    PlacementRow{topLeft, "topLeft", Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Top Left Quarter"), UnitRect{0, 0, half, half}},
    PlacementRow{topRight, "topRight", Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Top Right Quarter"), UnitRect{half, 0, half, half}},
    PlacementRow{bottomLeft, "bottomLeft", Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Bottom Left Quarter"), UnitRect{0, half, half, half}},
    PlacementRow{bottomRight, "bottomRight", Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Bottom Right Quarter"), UnitRect{half, half, half, half}},
    PlacementRow{leftThird, "leftThird", Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Left Third"), UnitRect{0, 0, third, 1},
        PlacementCycle{leftThird, leftTwoThirds, leftHalf}},
    PlacementRow{centerThird, "centerThird", Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Center Third"), UnitRect{third, 0, third, 1}},
    PlacementRow{rightThird, "rightThird", Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Right Third"), UnitRect{twoThirds, 0, third, 1},
        PlacementCycle{rightThird, rightTwoThirds, rightHalf}},
    PlacementRow{leftTwoThirds, "leftTwoThirds", Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Left Two Thirds"), UnitRect{0, 0, twoThirds, 1}},
    PlacementRow{rightTwoThirds, "rightTwoThirds", Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Right Two Thirds"), UnitRect{third, 0, twoThirds, 1}},
    PlacementRow{topLeftSixth, "topLeftSixth", Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Top Left Sixth"), UnitRect{0, 0, third, half}},
    PlacementRow{topCenterSixth, "topCenterSixth", Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Top Center Sixth"), UnitRect{third, 0, third, half}},
    PlacementRow{topRightSixth, "topRightSixth", Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Top Right Sixth"), UnitRect{twoThirds, 0, third, half}},
    PlacementRow{bottomLeftSixth, "bottomLeftSixth", Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Bottom Left Sixth"), UnitRect{0, half, third, half}},
    PlacementRow{bottomCenterSixth, "bottomCenterSixth", Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Bottom Center Sixth"), UnitRect{third, half, third, half}},
    PlacementRow{bottomRightSixth, "bottomRightSixth", Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Bottom Right Sixth"),
        UnitRect{twoThirds, half, third, half}},
    PlacementRow{maximize, "maximize", Group::screen,
        QT_TRANSLATE_NOOP("Placement", "Maximize"), UnitRect{0, 0, 1, 1}},
    PlacementRow{almostMaximize, "almostMaximize", Group::screen,
        QT_TRANSLATE_NOOP("Placement", "Almost Maximize"), UnitRect{0.05, 0.05, 0.9, 0.9}},
    PlacementRow{center, "center", Group::screen,
        QT_TRANSLATE_NOOP("Placement", "Center")},
    PlacementRow{larger, "larger", Group::size,
        QT_TRANSLATE_NOOP("Placement", "Larger")},
    PlacementRow{smaller, "smaller", Group::size,
        QT_TRANSLATE_NOOP("Placement", "Smaller")},
    PlacementRow{nextDisplay, "nextDisplay", Group::displays,
        QT_TRANSLATE_NOOP("Placement", "Next Display")},
    PlacementRow{previousDisplay, "previousDisplay", Group::displays,
        QT_TRANSLATE_NOOP("Placement", "Previous Display")},
    PlacementRow{snapBack, "snapBack", Group::history,
        QT_TRANSLATE_NOOP("Placement", "Snap Back")},
    PlacementRow{original, "original", Group::history,
        QT_TRANSLATE_NOOP("Placement", "Original Orientation")},
};

constexpr std::array groupTable{
    GroupRow{Group::halves, QT_TRANSLATE_NOOP("Placement", "Halves")},
    GroupRow{Group::quarters, QT_TRANSLATE_NOOP("Placement", "Quarters")},
    GroupRow{Group::thirds, QT_TRANSLATE_NOOP("Placement", "Thirds")},
    GroupRow{Group::sixths, QT_TRANSLATE_NOOP("Placement", "Sixths")},
    GroupRow{Group::screen, QT_TRANSLATE_NOOP("Placement", "Screen")},
    GroupRow{Group::size, QT_TRANSLATE_NOOP("Placement", "Size")},
    GroupRow{Group::displays, QT_TRANSLATE_NOOP("Placement", "Displays")},
    GroupRow{Group::history, QT_TRANSLATE_NOOP("Placement", "History")},
};
// clang-format on

/// The first column of a table, which must be its enumeration in order, so that a case finds its
/// row by its number.
template <typename Enum, typename Row, std::size_t count>
constexpr std::array<Enum, count> firstColumn(
    const std::array<Row, count> &table, Enum Row::*const column)
{
    std::array<Enum, count> cases{};
    for (std::size_t i = 0; i < count; ++i)
        cases[i] = table[i].*column;
    return cases;
}

template <typename Enum, std::size_t count>
constexpr bool inOrder(const std::array<Enum, count> &cases)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (static_cast<std::size_t>(cases[i]) != i)
            return false;
    }
    return true;
}

constexpr auto placements = firstColumn(placementTable, &PlacementRow::placement);
constexpr auto groups = firstColumn(groupTable, &GroupRow::group);
static_assert(inOrder(placements) && placements.size() == placementCount);
static_assert(inOrder(groups) && groups.size() == placementGroupCount);

constexpr const PlacementRow &rowOf(Placement placement)
{
    return placementTable[static_cast<std::size_t>(placement)];
}

QString translated(const char *text)
{
    return QCoreApplication::translate("Placement", text);
}

} // namespace

QLatin1StringView rawValue(Placement placement)
{
    return QLatin1StringView(rowOf(placement).rawValue);
}

QString title(Placement placement)
{
    return translated(rowOf(placement).title);
}

PlacementGroup group(Placement placement)
{
    return rowOf(placement).group;
}

std::optional<UnitRect> unitRect(Placement placement)
{
    return rowOf(placement).unitRect;
}

std::optional<PlacementCycle> cycle(Placement placement)
{
    return rowOf(placement).cycle;
}

QString title(PlacementGroup group)
{
    return translated(groupTable[static_cast<std::size_t>(group)].title);
}

const std::array<Placement, placementCount> &allPlacements()
{
    return placements;
}

const std::array<PlacementGroup, placementGroupCount> &placementGroups()
{
    return groups;
}

QList<Placement> inGroup(PlacementGroup group)
{
    QList<Placement> members;
    for (const PlacementRow &row : placementTable) {
        if (row.group == group)
            members << row.placement;
    }
    return members;
}

std::optional<Placement> placementNamed(QStringView name)
{
    const auto row = std::ranges::find_if(placementTable, [name](const PlacementRow &candidate) {
        return name == QLatin1StringView(candidate.rawValue);
    });
    return row == placementTable.end() ? std::nullopt : std::optional(row->placement);
}

} // namespace corvane
