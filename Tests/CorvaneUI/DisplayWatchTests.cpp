#include "DisplayWatch.h"
#include "ModelDesk.h"

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class DisplayWatchTests : public testing::Test
{
protected:
    DisplayWatchTests()
    {
        QObject::connect(&watch, &DisplayWatch::settled, &watch,
            [this](const QList<DisplayKey> &connected) { settled << connected; });
    }

    ModelDesk desk;
    SimulatedDesktop &desktop = desk.platform.desktop();
    DisplayWatch watch;
    QList<QList<DisplayKey>> settled;
};

} // namespace

TEST_F(DisplayWatchTests, aBurstIsToldOnceItHasBeenSteadyForASecond)
{
    const quint32 second = desk.plugSecond();
    desk.settle(600ms);
    desktop.unplug(second);
    desk.settle(600ms);
    desk.plugSecond();
    desk.settle();

    desk.settle(999ms);
    EXPECT_THAT(settled, IsEmpty());
    desk.settle(1ms);

    ASSERT_THAT(settled, SizeIs(1));
    EXPECT_EQ(settled.first(), Screens::signature());
    EXPECT_THAT(settled.first(), SizeIs(2));
    desk.settle(10s);
    EXPECT_THAT(settled, SizeIs(1));
}

TEST_F(DisplayWatchTests, aDisplayThatWasAwayForAMomentHasConnectedAgain)
{
    const quint32 second = desk.plugSecond();
    desk.settle(2s);
    settled.clear();

    desktop.unplug(second);
    desk.settle(300ms);
    desk.plugSecond();
    desk.settle(2s);

    EXPECT_THAT(settled, SizeIs(1));
}

TEST_F(DisplayWatchTests, panelsAndOrderAreNoNews)
{
    const quint32 second = desk.plugSecond();
    desk.settle(2s);
    settled.clear();

    desktop.addPanel(desk.laptop, {SimulatedPanel::Edge::top, 30});
    desk.settle(2s);
    desktop.makePrimary(second);
    desk.settle(2s);

    EXPECT_THAT(settled, IsEmpty());
}

} // namespace corvane
