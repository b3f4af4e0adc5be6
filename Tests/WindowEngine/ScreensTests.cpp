#include "Desk.h"
#include "Screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class ScreensTests : public testing::Test
{
protected:
    void plug(const QString &name, const Rect &frame)
    {
        platform.desktop().plug({.frame = frame, .name = name});
    }

    QStringList names()
    {
        QStringList names;
        for (const ScreenInfo &screen : Screens::all())
            names << screen.name;
        return names;
    }

    QString nameAt(const Rect &rect) { return Screens::screenContaining(rect)->name; }

    SimulatedPlatform platform;
};

} // namespace

TEST_F(ScreensTests, standLeftToRightWhateverOrderTheyWerePluggedIn)
{
    plug(u"primary"_s, {0, 0, 1440, 900});
    plug(u"right"_s, {1440, 0, 1920, 1080});
    plug(u"left"_s, {-1280, 100, 1280, 800});

    EXPECT_THAT(names(), ElementsAre(u"left"_s, u"primary"_s, u"right"_s));
}

TEST_F(ScreensTests, leftEdgesWithinAPointOrderFromTopToBottom)
{
    plug(u"primary"_s, {0, 0, 1440, 900});
    plug(u"above"_s, {1, -1080, 1920, 1080});
    plug(u"below"_s, {-1, 900, 1920, 1080});

    EXPECT_THAT(names(), ElementsAre(u"above"_s, u"primary"_s, u"below"_s));
}

TEST_F(ScreensTests, aRectangleBelongsToTheDisplayThatHoldsMostOfIt)
{
    plug(u"right"_s, {1440, 0, 1920, 1080});
    plug(u"left"_s, {0, 0, 1440, 900});

    EXPECT_EQ(nameAt({1300, 0, 300, 100}), u"right"_s);
    EXPECT_EQ(nameAt({1290, 0, 300, 100}), u"left"_s); // a tie
    EXPECT_EQ(nameAt({1200, 0, 300, 100}), u"left"_s);
    EXPECT_EQ(nameAt({-900, -900, 300, 100}), u"left"_s); // on no display
}

TEST_F(ScreensTests, steppingGoesRoundTheEndsAndKnowsNoStranger)
{
    plug(u"left"_s, {0, 0, 1440, 900});
    plug(u"right"_s, {1440, 0, 1920, 1080});
    const QList<ScreenInfo> all = Screens::all();
    ScreenInfo stranger = all.first();
    stranger.visibleFrame.y += 1;

    EXPECT_EQ(Screens::next(all[0], Screens::Direction::next), all[1]);
    EXPECT_EQ(Screens::next(all[1], Screens::Direction::next), all[0]);
    EXPECT_EQ(Screens::next(all[0], Screens::Direction::previous), all[1]);
    EXPECT_EQ(Screens::next(stranger, Screens::Direction::next), std::nullopt);
}

TEST_F(ScreensTests, theSignatureRoundsSizesAndFollowsTheOrder)
{
    plug(u"right"_s, {1440, 0, 1920.5, 1079.4});
    plug(u"left"_s, {0, 0, 1440, 900});

    EXPECT_THAT(Screens::signature(),
        ElementsAre(DisplayKey{u"left"_s, 1440, 900}, DisplayKey{u"right"_s, 1921, 1079}));
}

} // namespace corvane
