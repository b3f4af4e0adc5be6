#include "DisplayMapping.h"
#include "Geometry.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(DisplayMappingTests, displaysAreFoundByKeyThenByNameThenByPosition)
{
    struct Example {
        QList<DisplayKey> layout;
        QList<DisplayKey> current;
        QMap<int, int> mapping;
    };
    const DisplayKey laptop{u"Laptop"_s, 1440, 900};
    const DisplayKey monitor{u"Monitor"_s, 1920, 1080};
    const DisplayKey sharper{u"Monitor"_s, 3840, 2160};
    const DisplayKey renamed{u"HDMI-1"_s, 1920, 1080};
    const DisplayKey beamer{u"Beamer"_s, 800, 600};
    const Example examples[]{
        {{}, {laptop}, {}},
        {{laptop}, {}, {}},
        {{laptop, monitor}, {monitor, laptop}, {{0, 1}, {1, 0}}},
        {{monitor, monitor}, {monitor, monitor}, {{0, 0}, {1, 1}}},
        {{monitor, monitor}, {laptop, beamer, monitor}, {{0, 2}}},
        {{laptop, monitor}, {sharper, laptop, beamer}, {{0, 1}, {1, 0}}},
        {{monitor, sharper}, {sharper, monitor}, {{0, 1}, {1, 0}}},
        {{laptop, monitor}, {laptop, renamed}, {{0, 0}, {1, 1}}},
        {{monitor}, {renamed, laptop}, {}},
        {{beamer, laptop}, {laptop, monitor}, {{1, 0}}},
        {{monitor, laptop, beamer}, {laptop}, {{1, 0}}},
    };

    for (const Example &example : examples) {
        EXPECT_EQ(displayMapping(example.layout, example.current), example.mapping)
            << &example - examples;
    }
}

TEST(DisplayMappingTests, whatIsVisibleIsWhatNothingCovers)
{
    const UnitRect rect{0.2, 0.2, 0.4, 0.4};
    const auto visible = [&](const QList<UnitRect> &under) {
        return Geometry::visibleFraction(rect, under, 24);
    };

    EXPECT_EQ(visible({}), 1);
    EXPECT_EQ(visible({{0.7, 0.2, 0.3, 0.4}}), 1);
    EXPECT_EQ(visible({rect}), 0);
    EXPECT_EQ(visible({{0, 0, 0.4, 1}, {0.3, 0.4, 0.7, 0.6}}), 0.25);
    EXPECT_EQ(Geometry::visibleFraction(rect, {{0.4, 0.4, 0, 0}}, 1), 0); // bounds count
}

} // namespace corvane
