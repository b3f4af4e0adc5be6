#include "WindowAssignment.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr Rect left{0, 0, 500, 800};
constexpr Rect right{500, 0, 500, 800};
constexpr Rect faraway{2000, 0, 500, 800};

using Indices = QList<std::optional<qsizetype>>;

struct Case {
    const char *name;
    QList<WindowTraits> wishes;
    QList<WindowTraits> windows;
    Indices expected;
};

class WindowAssignmentTests : public testing::TestWithParam<Case>
{
};

TEST_P(WindowAssignmentTests, theWindowsThatSuitBestAreTaken)
{
    EXPECT_EQ(bestAssignment(GetParam().wishes, GetParam().windows), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Desks, WindowAssignmentTests,
    testing::Values(
        Case{"anyWindowIsBetterThanNone", {{u"a.txt - Editor"_s}}, {{u"Welcome"_s}}, {0}},
        Case{"oneOfTwoPanesStaysEmpty", {{u"a"_s}, {u"b"_s}}, {{u"b"_s}}, {{}, 0}},
        Case{"theSameTitleGoesBeforeThePlace", {{u"a"_s, 0, left}, {u"b"_s, 1, right}},
            {{u"b"_s, 0, left}, {u"a"_s, 1, right}}, {1, 0}},
        Case{"whatEveryTitleEndsInCountsForLittle",
            {{u"report draft - LibreOffice Writer"_s}, {u"letter - LibreOffice Writer"_s}},
            {{u"letter to Ann - LibreOffice Writer"_s}, {u"report final - LibreOffice Writer"_s}},
            {1, 0}},
        Case{"titlesWithoutSpacesAreComparedByTheirWords", {{u"東京の天気"_s}, {u"大阪の地図"_s}},
            {{u"大阪の天気図"_s}, {u"東京の今"_s}}, {1, 0}},
        Case{"namesakesStayWhereTheyStand", {{u"~"_s, 0, left}, {u"~"_s, 1, right}},
            {{u"~"_s, 0, right}, {u"~"_s, 1, left}}, {1, 0}},
        Case{"scatteredNamesakesKeepTheirOrderBehindANewWindow",
            {{u"~"_s, 0, left}, {u"~"_s, 1, right}}, {{u"~"_s, 2, faraway}, {u"~"_s, 1, faraway}},
            {1, 0}},
        Case{"theShorterWayDecidesLast", {{u"~"_s, 0, left}},
            {{u"~"_s, 0, faraway}, {u"~"_s, 0, right}}, {1}},
        Case{"noWindowAtAll", {{u"a"_s}}, {}, {{}}}),
    [](const auto &each) { return std::string(each.param.name); });

QList<WindowTraits> anyTraits()
{
    const std::vector<QString> words{u"mail"_s, u"draft"_s, u"- App"_s, u"2"_s};
    QList<WindowTraits> traits;
    for (int count = *rc::gen::inRange(0, 9); count > 0; --count) {
        WindowTraits each{*rc::gen::elementOf(words), *rc::gen::inRange(0, 5),
            {*rc::gen::inRange(0, 3) * 500.0, 0, 500, 800}};
        if (*rc::gen::arbitrary<bool>())
            each.title += u' ' + *rc::gen::elementOf(words);
        traits << each;
    }
    return traits;
}

RC_GTEST_PROP(WindowAssignmentProperties, everyWindowThatIsNeededIsTakenOnceAndPerfectOnesFirst, ())
{
    const QList<WindowTraits> wishes = anyTraits();
    const QList<WindowTraits> windows = anyTraits();

    const Indices chosen = bestAssignment(wishes, windows);

    std::set<qsizetype> taken;
    qsizetype perfect = 0;
    for (qsizetype wish = 0; wish < wishes.size(); ++wish) {
        if (!chosen[wish])
            continue;
        RC_ASSERT(taken.insert(*chosen[wish]).second);
        perfect += wishes[wish].title == windows[*chosen[wish]].title ? 1 : 0;
    }
    RC_ASSERT(qsizetype(taken.size()) == std::min(wishes.size(), windows.size()));
    std::multiset<QString> wished;
    std::multiset<QString> present;
    for (const WindowTraits &each : wishes)
        wished.insert(each.title);
    for (const WindowTraits &each : windows)
        present.insert(each.title);
    std::multiset<QString> both;
    std::ranges::set_intersection(wished, present, std::inserter(both, both.end()));
    RC_ASSERT(perfect == qsizetype(both.size()));
}

RC_GTEST_PROP(WindowAssignmentProperties, theOrderOfWishesAndWindowsDoesNotMatter, ())
{
    const QList<WindowTraits> wishes = anyTraits();
    const QList<WindowTraits> windows = anyTraits();
    const auto pairs = [](const QList<WindowTraits> &wished, const QList<WindowTraits> &present) {
        const Indices chosen = bestAssignment(wished, present);
        std::multiset<std::pair<QString, QString>> described;
        const auto describe = [](const WindowTraits &each) {
            return u"%1 %2 %3"_s.arg(each.title).arg(each.stack).arg(each.frame.x);
        };
        for (qsizetype wish = 0; wish < wished.size(); ++wish)
            described.emplace(describe(wished[wish]),
                chosen[wish] ? describe(present[*chosen[wish]]) : QString());
        return described;
    };

    const QList<WindowTraits> turned(windows.rbegin(), windows.rend());
    RC_ASSERT(pairs({wishes.rbegin(), wishes.rend()}, turned) == pairs(wishes, windows));
}

} // namespace

} // namespace corvane
