#include "ClientProperties.h"
#include "KeyCombo.h"
#include "KeyMap.h"
#include "MonitorNames.h"
#include "PhysicalKey.h"
#include "VisibleFrame.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

namespace corvane::x11 {

using namespace Qt::StringLiterals;
using enum Strut::Edge;

namespace {

constexpr Size desk{3520, 1080};
constexpr Rect left1920{0, 0, 1920, 1080};
constexpr Rect right1600{1920, 0, 1600, 1000};

/// WM_NORMAL_HINTS with pairs of numbers at these places, each under its flag.
std::array<quint32, 18> hints(const QMap<int, std::pair<quint32, quint32>> &pairs)
{
    const QMap<int, int> flags{{5, 4}, {7, 5}, {9, 6}, {11, 7}, {13, 7}, {15, 8}};
    std::array<quint32, 18> values{};
    for (const auto &[place, pair] : pairs.asKeyValueRange()) {
        values[0] |= 1u << flags[place];
        values[size_t(place)] = pair.first;
        values[size_t(place) + 1] = pair.second;
    }
    return values;
}

} // namespace

TEST(PropertyTests, everyKeyIsFoundByEachOfItsNumbersAndEveryKeyWithANameIsThere)
{
    for (quint16 code = 0; code < 128; ++code) {
        SCOPED_TRACE(code);
        const auto keycode = keycodeFor(code);
        EXPECT_TRUE(keycode || KeyCombo::keyName(code).startsWith("key "_L1));
        if (keycode) {
            EXPECT_EQ(PhysicalKey::withXkbKeycode(*keycode).value().virtualKeyCode, code);
            EXPECT_EQ(PhysicalKey::withEvdevCode(*keycode - 8U).value().virtualKeyCode, code);
        }
    }
    EXPECT_FALSE(keycodeFor(52) || keycodeFor(300));
    EXPECT_FALSE(PhysicalKey::withXkbKeycode(7) || PhysicalKey::withEvdevCode(767));
}

TEST(PropertyTests, aClientIsKnownByItsInnermostNumberOnThisMachine)
{
    EXPECT_EQ(innermostPid("Name:\tapp\nPid:\t4711\nNSpid:\t4711\t23\t2\nUid:\t0\n"), 2);
    EXPECT_EQ(innermostPid("NSpid:\t4711\n"), 4711);
    EXPECT_EQ(innermostPid("Name:\tNSpid: 7\n"), 0);

    EXPECT_TRUE(isThisMachine(u"Mars"_s, u"mars.example.org"_s));
    EXPECT_TRUE(isThisMachine(u"mars.example.org"_s, u"mars"_s));
    EXPECT_TRUE(isThisMachine(u"localhost.localdomain"_s, u"mars"_s));
    EXPECT_FALSE(isThisMachine(u"mars.example.org"_s, u"mars.local"_s));
    EXPECT_FALSE(isThisMachine(u"mars2"_s, u"mars"_s));
}

TEST(PropertyTests, aMonitorIsNamedByTheTextUpToItsLineBreak)
{
    const auto name = [](uint8_t kind, std::string_view text) {
        std::array<uint8_t, 128> edid{};
        edid[75] = kind;
        std::ranges::copy(text, edid.begin() + 77);
        return monitorNameFromEdid(edid);
    };
    EXPECT_EQ(name(0xFC, "Studio 27\n   "), u"Studio 27");
    EXPECT_EQ(name(0xFC, "ThirteenChars"), u"ThirteenChars");
    EXPECT_EQ(name(0xFF, "Serial 1\n"), QString());
    EXPECT_EQ(monitorNameFromEdid(std::array<uint8_t, 40>{}), QString());
}

TEST(PropertyTests, aPanelIsTakenOffItsOwnDisplayOnly)
{
    struct Case {
        const char *panel;
        QList<Strut> struts;
        Rect onLeft = left1920;
        Rect onRight = right1600;
    };
    for (const auto &[panel, struts, onLeft, onRight] :
        {Case{"top of the left", {{top, 30, 0, 1919}}, {0, 30, 1920, 1050}},
            Case{"bottom of the shorter right, measured from the desk's edge",
                {{bottom, 120, 1920, 3519}}, left1920, {1920, 0, 1600, 960}},
            Case{"left edge of the right display, inside the desk", {{left, 1960, 0, 999}},
                left1920, {1960, 0, 1560, 1000}},
            Case{"right edge of the left display, inside the desk", {{right, 1640, 0, 1079}},
                {0, 0, 1880, 1080}},
            Case{"along the whole top", {{top, 24, 0, 65535}}, {0, 24, 1920, 1056},
                {1920, 24, 1600, 976}},
            Case{"one that would swallow a display", {{left, 1920, 0, 1079}}},
            Case{"below the end of the shorter display", {{right, 40, 1000, 1079}}},
            Case{"two that leave nothing", {{left, 1000, 0, 1079}, {right, 2600, 0, 1079}}}}) {
        EXPECT_EQ(withoutStruts(left1920, struts, desk), onLeft) << panel;
        EXPECT_EQ(withoutStruts(right1600, struts, desk), onRight) << panel;
    }
    const Rect below{0, 1054, 1920, 26};
    EXPECT_EQ(withoutPanel(left1920, left1920, below), (Rect{0, 0, 1920, 1054}));
    EXPECT_EQ(withoutPanel(left1920, left1920, {1880, 0, 40, 1080}), (Rect{0, 0, 1880, 1080}));
    EXPECT_EQ(withoutPanel(right1600, right1600, below), right1600);
}

TEST(PropertyTests, reservationsAndExtentsAreReadWhereTheyAreSound)
{
    using Four = std::array<quint32, 4>;
    const std::array<quint32, 12> partial{40, 0, 0, 0, 100, 900};
    EXPECT_EQ(strutsFromProperty(Four{0, 0, 24, 0}), (QList<Strut>{{top, 24, 0, 65535}}));
    EXPECT_EQ(strutsFromProperty(partial), (QList<Strut>{{left, 40, 100, 900}}));
    EXPECT_TRUE(strutsFromProperty(Four{0xFFFFFFFF, 0, 0, 70000}).isEmpty());

    EXPECT_EQ(Extents::fromProperty(Four{5, 6, 29, 7}), (Extents{5, 6, 29, 7}));
    EXPECT_FALSE(Extents::fromProperty(Four{5, 5, 0xFFFFFFFF, 5}));
    EXPECT_FALSE(Extents::fromProperty(std::array<quint32, 3>{5, 5, 5}));
}

TEST(PropertyTests, theFrameIncludesDecorationsExcludesShadowsAndIsAskedForBack)
{
    WindowSnapshot window;
    window.client = {74, 106, 552, 452};
    window.decoration = {5, 6, 29, 7};
    EXPECT_EQ(window.frame(), (Rect{69, 77, 563, 488}));
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
    constexpr int least = 5, most = 7, increment = 9, leastAspect = 11, mostAspect = 13, base = 15;
    struct Case {
        const char *what;
        QMap<int, std::pair<quint32, quint32>> hints;
        Size asked;
        Size taken;
    };
    const QMap<int, std::pair<quint32, quint32>> shape{{leastAspect, {1, 1}}, {mostAspect, {2, 1}}};
    for (const auto &[what, pairs, asked, taken] :
        {Case{"a terminal of whole cells", {{base, {4, 4}}, {increment, {6, 13}}}, {960, 1058},
             {958, 1057}},
            Case{"cells counted from the minimum without a base",
                {{least, {20, 20}}, {increment, {10, 10}}}, {99, 99}, {90, 90}},
            Case{"the base as the least size", {{base, {50, 40}}}, {10, 10}, {50, 40}},
            Case{"a fixed size", {{least, {300, 200}}, {most, {300, 200}}}, {960, 9}, {300, 200}},
            Case{"a minimum above a maximum", {{least, {300, 200}}, {most, {100, 100}}}, {50, 50},
                {300, 200}},
            Case{"never wider than 2 : 1", shape, {900, 300}, {600, 300}},
            Case{"never narrower than 1 : 1", shape, {300, 900}, {300, 300}},
            Case{"no proportion without a side", {{leastAspect, {0, 5}}}, {300, 900}, {300, 900}},
            Case{"an increment of nothing is one", {{increment, {0, 0}}}, {301, 203}, {301, 203}},
            Case{"a maximum beyond the protocol is none", {{most, {70000, 0xFFFFFFFF}}}, {900, 800},
                {900, 800}}})
        EXPECT_EQ(WindowHints::fromProperty(hints(pairs)).constrained(asked), taken) << what;
    EXPECT_EQ(WindowHints::fromProperty(std::array<quint32, 10>{0x30}), WindowHints());
}

RC_GTEST_PROP(PropertyTests, whateverAClientWritesTheSizeKeepsToItsLimits, ())
{
    const auto values = *rc::gen::container<std::array<quint32, 18>>(
        rc::gen::oneOf(rc::gen::arbitrary<quint32>(), rc::gen::inRange<quint32>(0, 2000)));
    const Size asked{
        double(*rc::gen::inRange(-100, 40000)), double(*rc::gen::inRange(-100, 40000))};

    const WindowHints hints = WindowHints::fromProperty(values);
    const Size size = hints.constrained(asked);

    RC_ASSERT(hints.minimum.width >= 1 && hints.maximum.width <= 32767);
    RC_ASSERT(size.width >= hints.minimum.width && size.width <= hints.maximum.width);
    RC_ASSERT(size.height >= hints.minimum.height && size.height <= hints.maximum.height);
}

} // namespace corvane::x11
