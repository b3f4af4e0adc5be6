#include "Desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(PlacementTests, aNameThatDiffersInAnythingIsNone)
{
    for (const QString &name : {u""_s, u"lefthalf"_s, u"Left Half"_s, u"leftHalf "_s})
        EXPECT_EQ(placementNamed(name), std::nullopt) << qPrintable(name);
}

TEST(PlacementTests, aCycleStartsAtItselfAndKeepsToOneEdge)
{
    int cycles = 0;
    for (const Placement placement : allPlacements()) {
        const auto walk = cycle(placement);
        if (!walk)
            continue;
        ++cycles;
        EXPECT_EQ(walk->front(), placement);
        const bool hugsLeft = unitRect(placement)->x == 0;
        for (const Placement step : *walk) {
            const UnitRect unit = *unitRect(step);
            EXPECT_DOUBLE_EQ(hugsLeft ? unit.x : unit.x + unit.w, hugsLeft ? 0 : 1) << step;
        }
    }
    EXPECT_EQ(cycles, 4);
}

} // namespace corvane
