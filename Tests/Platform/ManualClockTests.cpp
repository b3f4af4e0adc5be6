#include "ManualClock.h"

#include <QtCore/QList>

#include <gmock/gmock.h>

#include <memory>

namespace corvane {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ManualClockTests : public testing::Test
{
protected:
    void note(Clock::Duration delay, int number)
    {
        clock.after(delay, &context, [this, number] {
            ran << number;
            times << clock.now();
        });
    }

    ManualClock clock;
    QObject context;
    QList<int> ran;
    QList<Clock::Duration> times;
};

TEST_F(ManualClockTests, actionsRunInTheOrderOfTheirTimesAndThenOfTheirAdding)
{
    note(30ms, 1);
    note(10ms, 2);
    note(30ms, 3);
    note(31ms, 4);

    clock.advance(30ms);

    EXPECT_THAT(ran, ElementsAre(2, 1, 3));
    EXPECT_THAT(times, ElementsAre(10ms, 30ms, 30ms));
    EXPECT_EQ(clock.now(), 30ms);
}

TEST_F(ManualClockTests, anActionAddedOnTheWayRunsWhenItFallsDueOnTheWay)
{
    clock.after(10ms, &context, [this] {
        note(5ms, 1);
        note(50ms, 2);
    });

    clock.advance(20ms);

    EXPECT_THAT(times, ElementsAre(15ms));
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(ManualClockTests, sleepingRunsNothingAndTheOverdueRunsAtTheNextAdvance)
{
    note(10ms, 1);
    const QDateTime before = clock.date();

    clock.sleep(60ms);

    EXPECT_THAT(ran, IsEmpty());
    EXPECT_EQ(before.msecsTo(clock.date()), 60);
    clock.advance(0ms);
    EXPECT_THAT(times, ElementsAre(60ms));
}

TEST_F(ManualClockTests, anActionWhoseContextIsGoneDoesNotRun)
{
    auto dying = std::make_unique<QObject>();
    clock.after(10ms, dying.get(), [this] { ran << 1; });
    clock.after(5ms, &context, [&dying] { dying.reset(); });

    clock.advance(20ms);

    EXPECT_THAT(ran, IsEmpty());
}

} // namespace corvane
