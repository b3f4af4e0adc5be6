#include "ClientProperties.h"
#include "MonitorNames.h"
#include "VisibleFrame.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using enum Strut::Edge;
using Four = std::array<quint32, 4>;

TEST(PropertyTests, aClientAndAMonitorAreKnownByWhatTheySayOfThemselves)
{
    EXPECT_EQ(innermostPid("Pid:\t4711\nNSpid:\t4711\t23\t2\nUid:\t0\n"), 2);
    EXPECT_EQ(innermostPid("Name:\tNSpid: 7\n"), 0);
    EXPECT_TRUE(isThisMachine(u"Mars"_s, u"mars.example.org"_s));
    EXPECT_TRUE(isThisMachine(u"localhost.localdomain"_s, u"mars"_s));
    EXPECT_FALSE(isThisMachine(u"mars.example.org"_s, u"mars.local"_s));

    std::array<uint8_t, 128> edid{};
    std::ranges::copy(std::string_view("Studio 27\n   "), edid.begin() + 77);
    EXPECT_EQ(monitorNameFromEdid(edid), QString());
    edid[75] = 0xFC;
    EXPECT_EQ(monitorNameFromEdid(edid), u"Studio 27");
}

TEST(PropertyTests, aPanelIsTakenOffItsOwnDisplayOnly)
{
    constexpr Size desk{3520, 1080};
    constexpr Rect onLeft{0, 0, 1920, 1080};
    constexpr Rect onRight{1920, 0, 1600, 1000};
    struct Case {
        QList<Strut> struts;
        Rect leftOne = onLeft;
        Rect rightOne = onRight;
    };
    for (const auto &[struts, leftOne, rightOne] :
        {Case{{{top, 30, 0, 1919}}, {0, 30, 1920, 1050}},
            Case{{{bottom, 120, 1920, 3519}}, onLeft, {1920, 0, 1600, 960}},
            Case{{{left, 1960, 0, 999}}, onLeft, {1960, 0, 1560, 1000}},
            Case{{{right, 1640, 0, 1079}}, {0, 0, 1880, 1080}},
            Case{strutsFromProperty(Four{0, 0, 24, 0}), {0, 24, 1920, 1056}, {1920, 24, 1600, 976}},
            Case{{{left, 1920, 0, 1079}}}, // would swallow a display
            Case{{{right, 40, 1000, 1079}}}}) {
        EXPECT_EQ(withoutStruts(onLeft, struts, desk), leftOne);
        EXPECT_EQ(withoutStruts(onRight, struts, desk), rightOne);
    }
    const Rect below{0, 1054, 1920, 26};
    EXPECT_EQ(withoutPanel(onLeft, onLeft, below), (Rect{0, 0, 1920, 1054}));
    EXPECT_EQ(withoutPanel(onRight, onRight, below), onRight);
    const std::array<quint32, 12> partial{40, 0, 0, 0, 100, 900};
    EXPECT_EQ(strutsFromProperty(partial), (QList<Strut>{{left, 40, 100, 900}}));
    EXPECT_TRUE(strutsFromProperty(Four{0xFFFFFFFF, 0, 0, 70000}).isEmpty());
}

TEST(PropertyTests, theFrameIncludesDecorationsExcludesShadowsAndIsAskedForBack)
{
    WindowSnapshot window;
    window.client = {74, 106, 552, 452};
    window.decoration = Extents::fromProperty(Four{5, 6, 29, 7}).value();
    EXPECT_EQ(window.frame(), (Rect{69, 77, 563, 488}));
    EXPECT_FALSE(Extents::fromProperty(Four{5, 5, 0xFFFFFFFF, 5}));
    window.shadow = {26, 24, 23, 29};
    window.border = 1;
    EXPECT_EQ(window.frame(), (Rect{95, 100, 513, 436}));

    // North-west gravity: the request names the corner of the decoration.
    EXPECT_EQ(window.requestFor(window.frame()), (Rect{69, 77, 552, 452}));
    // Without published extents it names the client's own rectangle, outside its border.
    window.publishesDecoration = false;
    EXPECT_EQ(window.requestFor(window.frame()), (Rect{73, 105, 554, 454}));
}

TEST(PropertyTests, aSizeIsMadeOneThatTheClientAccepts)
{
    constexpr quint32 minimum = 1U << 4, maximum = 1U << 5, increment = 1U << 6, aspect = 1U << 7,
                      base = 1U << 8;
    struct Case {
        std::array<quint32, 18> hints; ///< flags, four old numbers, then pairs as they are flagged
        Size asked;
        Size taken;
    };
    for (const auto &[hints, asked, taken] :
        {Case{{base | increment, 0, 0, 0, 0, 0, 0, 0, 0, 6, 13, 0, 0, 0, 0, 4, 4}, {960, 1058},
             {958, 1057}},
            Case{{minimum | increment, 0, 0, 0, 0, 20, 20, 0, 0, 10, 10}, {99, 99}, {90, 90}},
            Case{{base, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 50, 40}, {10, 10}, {50, 40}},
            Case{{minimum | maximum, 0, 0, 0, 0, 300, 200, 400, 300}, {960, 9}, {400, 200}},
            Case{{aspect, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 2, 1}, {900, 300}, {600, 300}},
            Case{{aspect, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 2, 1}, {300, 900}, {300, 300}}})
        EXPECT_EQ(WindowHints::fromProperty(hints).constrained(asked), taken);
}

RC_GTEST_PROP(PropertyTests, whateverAClientWritesTheSizeKeepsToItsLimits, ())
{
    const auto values = *rc::gen::container<std::array<quint32, 18>>(
        rc::gen::oneOf(rc::gen::arbitrary<quint32>(), rc::gen::inRange<quint32>(0, 2000)));
    const double side = *rc::gen::inRange(-100, 40000);

    const WindowHints hints = WindowHints::fromProperty(values);
    const Size size = hints.constrained({side, side});

    RC_ASSERT(hints.minimum.width >= 1 && hints.maximum.width <= 32767);
    RC_ASSERT(size.width >= hints.minimum.width && size.width <= hints.maximum.width);
    RC_ASSERT(size.height >= hints.minimum.height && size.height <= hints.maximum.height);
}

} // namespace corvane::x11
