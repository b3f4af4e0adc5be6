#include "Placement.h"

#include "EnumTable.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct PlacementRow {
    Placement value;
    QLatin1StringView name;
    PlacementGroup group;
    const char *title;
    std::optional<UnitRect> unitRect = {};
    std::optional<PlacementCycle> cycle = {};
};

struct GroupRow {
    PlacementGroup value;
    const char *title;
};

using enum Placement;
using Group = PlacementGroup;

constexpr double half = 1.0 / 2.0;
constexpr double third = 1.0 / 3.0;
constexpr double twoThirds = 2.0 / 3.0;

// clang-format off
constexpr EnumTable<original, PlacementRow> placementTable{{{
    PlacementRow{leftHalf, "leftHalf"_L1, Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Left Half"), UnitRect{0, 0, half, 1},
        PlacementCycle{leftHalf, leftTwoThirds, leftThird}},
    PlacementRow{rightHalf, "rightHalf"_L1, Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Right Half"), UnitRect{half, 0, half, 1},
        PlacementCycle{rightHalf, rightTwoThirds, rightThird}},
    PlacementRow{topHalf, "topHalf"_L1, Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Top Half"), UnitRect{0, 0, 1, half}},
    PlacementRow{bottomHalf, "bottomHalf"_L1, Group::halves,
        QT_TRANSLATE_NOOP("Placement", "Bottom Half"), UnitRect{0, half, 1, half}},
    PlacementRow{topLeft, "topLeft"_L1, Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Top Left Quarter"), UnitRect{0, 0, half, half}},
    PlacementRow{topRight, "topRight"_L1, Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Top Right Quarter"), UnitRect{half, 0, half, half}},
    PlacementRow{bottomLeft, "bottomLeft"_L1, Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Bottom Left Quarter"), UnitRect{0, half, half, half}},
    PlacementRow{bottomRight, "bottomRight"_L1, Group::quarters,
        QT_TRANSLATE_NOOP("Placement", "Bottom Right Quarter"), UnitRect{half, half, half, half}},
    PlacementRow{leftThird, "leftThird"_L1, Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Left Third"), UnitRect{0, 0, third, 1},
        PlacementCycle{leftThird, leftTwoThirds, leftHalf}},
    PlacementRow{centerThird, "centerThird"_L1, Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Center Third"), UnitRect{third, 0, third, 1}},
    PlacementRow{rightThird, "rightThird"_L1, Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Right Third"), UnitRect{twoThirds, 0, third, 1},
        PlacementCycle{rightThird, rightTwoThirds, rightHalf}},
    PlacementRow{leftTwoThirds, "leftTwoThirds"_L1, Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Left Two Thirds"), UnitRect{0, 0, twoThirds, 1}},
    PlacementRow{rightTwoThirds, "rightTwoThirds"_L1, Group::thirds,
        QT_TRANSLATE_NOOP("Placement", "Right Two Thirds"), UnitRect{third, 0, twoThirds, 1}},
    PlacementRow{topLeftSixth, "topLeftSixth"_L1, Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Top Left Sixth"), UnitRect{0, 0, third, half}},
    PlacementRow{topCenterSixth, "topCenterSixth"_L1, Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Top Center Sixth"), UnitRect{third, 0, third, half}},
    PlacementRow{topRightSixth, "topRightSixth"_L1, Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Top Right Sixth"), UnitRect{twoThirds, 0, third, half}},
    PlacementRow{bottomLeftSixth, "bottomLeftSixth"_L1, Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Bottom Left Sixth"), UnitRect{0, half, third, half}},
    PlacementRow{bottomCenterSixth, "bottomCenterSixth"_L1, Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Bottom Center Sixth"), UnitRect{third, half, third, half}},
    PlacementRow{bottomRightSixth, "bottomRightSixth"_L1, Group::sixths,
        QT_TRANSLATE_NOOP("Placement", "Bottom Right Sixth"),
        UnitRect{twoThirds, half, third, half}},
    PlacementRow{maximize, "maximize"_L1, Group::screen,
        QT_TRANSLATE_NOOP("Placement", "Maximize"), UnitRect{0, 0, 1, 1}},
    PlacementRow{almostMaximize, "almostMaximize"_L1, Group::screen,
        QT_TRANSLATE_NOOP("Placement", "Almost Maximize"), UnitRect{0.05, 0.05, 0.9, 0.9}},
    PlacementRow{center, "center"_L1, Group::screen,
        QT_TRANSLATE_NOOP("Placement", "Center")},
    PlacementRow{larger, "larger"_L1, Group::size,
        QT_TRANSLATE_NOOP("Placement", "Larger")},
    PlacementRow{smaller, "smaller"_L1, Group::size,
        QT_TRANSLATE_NOOP("Placement", "Smaller")},
    PlacementRow{nextDisplay, "nextDisplay"_L1, Group::displays,
        QT_TRANSLATE_NOOP("Placement", "Next Display")},
    PlacementRow{previousDisplay, "previousDisplay"_L1, Group::displays,
        QT_TRANSLATE_NOOP("Placement", "Previous Display")},
    PlacementRow{snapBack, "snapBack"_L1, Group::history,
        QT_TRANSLATE_NOOP("Placement", "Snap Back")},
    PlacementRow{original, "original"_L1, Group::history,
        QT_TRANSLATE_NOOP("Placement", "Original Orientation")},
}}};

constexpr EnumTable<Group::history, GroupRow> groupTable{{{
    GroupRow{Group::halves, QT_TRANSLATE_NOOP("Placement", "Halves")},
    GroupRow{Group::quarters, QT_TRANSLATE_NOOP("Placement", "Quarters")},
    GroupRow{Group::thirds, QT_TRANSLATE_NOOP("Placement", "Thirds")},
    GroupRow{Group::sixths, QT_TRANSLATE_NOOP("Placement", "Sixths")},
    GroupRow{Group::screen, QT_TRANSLATE_NOOP("Placement", "Screen")},
    GroupRow{Group::size, QT_TRANSLATE_NOOP("Placement", "Size")},
    GroupRow{Group::displays, QT_TRANSLATE_NOOP("Placement", "Displays")},
    GroupRow{Group::history, QT_TRANSLATE_NOOP("Placement", "History")},
}}};
// clang-format on

constexpr auto placements = placementTable.cases();
constexpr auto groups = groupTable.cases();

QString translated(const char *text)
{
    return QCoreApplication::translate("Placement", text);
}

} // namespace

QLatin1StringView rawValue(Placement placement)
{
    return placementTable[placement].name;
}

QString title(Placement placement)
{
    return translated(placementTable[placement].title);
}

PlacementGroup group(Placement placement)
{
    return placementTable[placement].group;
}

std::optional<UnitRect> unitRect(Placement placement)
{
    return placementTable[placement].unitRect;
}

std::optional<PlacementCycle> cycle(Placement placement)
{
    return placementTable[placement].cycle;
}

QString title(PlacementGroup group)
{
    return translated(groupTable[group].title);
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
            members << row.value;
    }
    return members;
}

std::optional<Placement> placementNamed(QStringView name)
{
    return placementTable.named(name);
}

} // namespace corvane
