#include "Desk.h"
#include "DisplayMapping.h"

#include <map>

namespace corvane {

struct DisplayTests : testing::Test, Desk {
};

TEST_F(DisplayTests, standLeftToRightThenTopToBottomAndHoldWhatIsMostlyOnThem)
{
    plugMonitor();
    desktop.plug({.frame = {0.5, 900, 1280.5, 799.4}, .name = u"below"_s});
    desktop.plug({.frame = {1, -800, 1280, 800}, .name = u"above"_s});
    desktop.plug({.frame = {-1280, 100, 1280, 800}, .name = u"left"_s});

    EXPECT_EQ(Screens::signature(),
        (QList<DisplayKey>{{u"left"_s, 1280, 800}, {u"above"_s, 1280, 800},
            {u"Laptop"_s, 1440, 900}, {u"below"_s, 1281, 799}, {u"Monitor"_s, 1920, 1080}}));
    const QList<ScreenInfo> all = Screens::all();
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(Screens::next(all[i], Screens::Direction::next), all[(i + 1) % 5]);
        EXPECT_EQ(Screens::next(all[i], Screens::Direction::previous), all[(i + 4) % 5]);
    }

    const auto nameAt = [](double x, double y) {
        return Screens::screenContaining({x, y, 300, 100})->name;
    };

    EXPECT_EQ(nameAt(1300, 0), u"Monitor"_s);
    EXPECT_EQ(nameAt(1290, 0), u"Laptop"_s); // a tie
    EXPECT_EQ(nameAt(1200, 0), u"Laptop"_s);
    EXPECT_EQ(nameAt(900, -900), u"left"_s); // on no display
}

TEST_F(DisplayTests, ofALayoutAreFoundByKeyThenByNameThenByPosition)
{
    // A letter is a display, a digit the place among the current ones of one of the layout's.
    const std::map<char, DisplayKey> keys{{'L', {u"Laptop"_s, 1440, 900}},
        {'M', {u"Monitor"_s, 1920, 1080}}, {'S', {u"Monitor"_s, 3840, 2160}}, // sharper
        {'R', {u"HDMI-1"_s, 1920, 1080}}, // renamed
        {'B', {u"Beamer"_s, 800, 600}}};
    const std::tuple<std::string, std::string, std::string> examples[]{{"", "L", ""},
        {"L", "", "-"}, {"LM", "ML", "10"}, {"MM", "MM", "01"}, {"MM", "LBM", "2-"},
        {"LM", "SLB", "10"}, {"MS", "SM", "10"}, {"LM", "LR", "01"}, {"M", "RL", "-"},
        {"BL", "LM", "-0"}, {"MLB", "L", "-0-"}};
    const auto keysOf = [&keys](const std::string &letters) {
        QList<DisplayKey> found;
        for (const char letter : letters)
            found << keys.at(letter);
        return found;
    };

    for (const auto &[layout, current, expected] : examples) {
        const auto mapping = displayMapping(keysOf(layout), keysOf(current));
        std::string digits(layout.size(), '-');
        for (const auto &[saved, now] : mapping.asKeyValueRange())
            digits[size_t(saved)] = char('0' + now);
        EXPECT_EQ(digits, expected) << layout << " on " << current;
    }
}

} // namespace corvane
