#include "Testing.h"
#include "WindowAssignment.h"

#include <QtCore/QSet>

#include <algorithm>

namespace corvane {

namespace {

using Indices = QList<std::optional<qsizetype>>;
using Traits = QList<WindowTraits>;

Traits anyTraits()
{
    const QStringList words{u"mail"_s, u"draft"_s, u"- App"_s, u"2"_s, QString()};
    Traits traits;
    for (int count = between(0, 8); count > 0; --count) {
        traits << WindowTraits{anyOf(words) + u' ' + anyOf(words), between(0, 4),
            {between(0, 2) * 500.0, 0, 500, 800}};
    }
    return traits;
}

} // namespace

RC_GTEST_PROP(WindowAssignmentTests, everyWindowThatIsNeededIsTakenOnceAndPerfectOnesFirst, ())
{
    const Traits wishes = anyTraits();
    const Traits windows = anyTraits();

    const Indices chosen = bestAssignment(wishes, windows);

    QSet<qsizetype> taken;
    QStringList left;
    for (const WindowTraits &window : windows)
        left << window.title;
    for (qsizetype wish = 0; wish < wishes.size(); ++wish) {
        if (chosen[wish]) {
            RC_ASSERT(!taken.contains(*chosen[wish]));
            taken << *chosen[wish];
            if (windows[*chosen[wish]].title == wishes[wish].title)
                left.removeOne(wishes[wish].title);
        }
    }
    RC_ASSERT(taken.size() == std::min(wishes.size(), windows.size()));
    for (qsizetype wish = 0; wish < wishes.size(); ++wish) {
        const bool isPerfect = chosen[wish] && windows[*chosen[wish]].title == wishes[wish].title;
        RC_ASSERT(isPerfect || !left.contains(wishes[wish].title));
    }
}

TEST(WindowAssignmentTests, theWindowsThatSuitBestAreTaken)
{
    constexpr Rect left{0, 0, 500, 800};
    constexpr Rect right{500, 0, 500, 800};
    constexpr Rect far{2000, 0, 500, 800};
    const Traits namesakes{{u"~"_s, 0, left}, {u"~"_s, 1, right}};
    const std::tuple<const char *, Traits, Traits, Indices> examples[]{
        {"any window is better than none", {{u"a.txt - Editor"_s}}, {{u"Welcome"_s}}, {0}},
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
