#include "Testing.h"
#include "WindowAssignment.h"

namespace corvane {

namespace {

using Indices = QList<std::optional<qsizetype>>;
using Traits = QList<WindowTraits>;

} // namespace

TEST(WindowAssignmentTests, theWindowsThatSuitBestAreTaken)
{
    constexpr Rect left{0, 0, 500, 800};
    constexpr Rect right{500, 0, 500, 800};
    constexpr Rect far{2000, 0, 500, 800};
    const Traits namesakes{{u"~"_s, 0, left}, {u"~"_s, 1, right}};
    const std::tuple<const char *, Traits, Traits, Indices> examples[]{
        {"the same title before the place", {{u"a"_s, 0, left}, {u"b"_s, 1, right}},
            {{u"b"_s, 0, left}, {u"a"_s, 1, right}}, {1, 0}},
        {"what every title ends in counts for little",
            {{u"report draft - Office Writer"_s}, {u"letter - Office Writer"_s}},
            {{u"letter to Ann - Office Writer"_s}, {u"report final - Office Writer"_s}}, {1, 0}},
        {"words without spaces", {{u"東京の天気"_s}, {u"大阪の地図"_s}},
            {{u"大阪の天気図"_s}, {u"東京の今"_s}}, {1, 0}},
        {"namesakes stay where they are", namesakes, {{u"~"_s, 0, right}, {u"~"_s, 1, left}},
            {1, 0}},
        {"scattered ones keep their order", namesakes, {{u"~"_s, 2, far}, {u"~"_s, 1, far}},
            {1, 0}},
        {"the shorter way last", {{u"~"_s, 0, left}}, {{u"~"_s, 0, far}, {u"~"_s, 0, right}}, {1}},
    };

    for (const auto &[name, wishes, windows, chosen] : examples)
        EXPECT_EQ(bestAssignment(wishes, windows), chosen) << name;
}

} // namespace corvane
