#include "Competitors.h"
#include "SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(CompetitorsTests, thoseThatRunAreFoundInTheOrderOfTheListWithTheirFirstProcess)
{
    SimulatedPlatform platform;
    const auto run = [&desktop = platform.desktop()](const QString &bundleID) {
        const pid_t pid = desktop.start(bundleID, u"Process"_s);
        static_cast<void>(desktop.openWindow(pid, {}));
        return pid;
    };
    EXPECT_TRUE(Competitor::running().isEmpty());
    run(u"com.manytricks.moom"_s);
    const pid_t moom = run(u"com.manytricks.Moom"_s);
    run(u"org.example.Editor"_s);
    const pid_t firstHookshot = run(u"com.knollsoft.Hookshot"_s);
    run(u"com.knollsoft.Hookshot"_s);
    const pid_t daemon = platform.desktop().start(u"quicktile"_s, u"QuickTile"_s);
    platform.desktop().application(daemon).isRival = true;

    const auto running = Competitor::running();

    ASSERT_EQ(running.size(), 3);
    EXPECT_EQ(running[0].competitor.name, u"Rectangle Pro"_s);
    EXPECT_EQ(running[0].application.pid, firstHookshot);
    EXPECT_EQ(running[1].competitor.name, u"Moom"_s);
    EXPECT_EQ(running[1].application.pid, moom);
    EXPECT_EQ(running[2].competitor, (Competitor{u"quicktile"_s, u"QuickTile"_s}));
    EXPECT_EQ(running[2].application.pid, daemon);
}

} // namespace corvane
