#include "Desk.h"

namespace corvane {

struct AXWindowTests : testing::Test, Desk {
    /// What was refused, if anything.
    QString move(const AXWindow &window, const Rect &target)
    {
        platform.windows().clearWrites();
        const auto moved = window.setFrame(target, laptopArea, 6);
        return moved ? QString() : moved.error().description();
    }
};

TEST_F(AXWindowTests, aMoveIsOneOperationOfSizePlaceAndSize)
{
    desktop.holdsSizes = true;
    const AXWindow window = open();

    EXPECT_EQ(move(window, onTheLeft), QString());

    EXPECT_EQ(frameOf(window), onTheLeft);
    EXPECT_EQ(platform.windows().writes(),
        (QList<WindowWrite>{{window.element, onTheLeft.size()},
            {window.element, onTheLeft.origin()}, {window.element, onTheLeft.size()}}));
    EXPECT_EQ(platform.windows().operationCount(), 1);
}

TEST_F(AXWindowTests, aWindowIsToldAgainOnlyWhereItMayYetFollow)
{
    using Example = std::tuple<const char *, WindowSpec, Rect, Rect, qsizetype, Clock::Duration>;
    constexpr Rect rightThird{960, 25, 480, 875};
    const Example examples[]{
        // the window, where it is put, what it reaches, writes, time
        {"cut where it would leave its display", {.frame = {1240, 700, 200, 150}}, onTheLeft,
            onTheLeft, 3, 0ms},
        {"late", {.resizesAfter = 100ms}, onTheLeft, onTheLeft, 8, 120ms},
        {"later than three rounds", {.resizesAfter = 1s}, onTheLeft, {0, 25, 400, 300}, 10, 180ms},
        {"of fixed size", {.fixedSize = true}, rightThird, {960, 25, 400, 300}, 4, 0ms},
        {"two points too large", {.minimum = {482, 300}}, rightThird, {960, 25, 482, 875}, 3, 0ms},
        {"four points too large", {.minimum = {484, 300}}, rightThird, {956, 25, 484, 875}, 4, 0ms},
        {"at its edge already", {.minimum = {800, 300}}, onTheLeft, {0, 25, 800, 875}, 4, 0ms},
        {"put down to the right", {.landsOff = {4, 0}}, onTheLeft, onTheLeft, 4, 0ms},
        {"put down above", {.landsOff = {0, -1}}, onTheLeft, onTheLeft, 4, 0ms},
    };
    desktop.fitsSizesToDisplay = true;

    for (const bool sharesReads : {false, true}) {
        desktop.sharesReads = sharesReads;
        for (const auto &[name, wanted, target, reached, writes, waited] : examples) {
            SCOPED_TRACE(name);
            const AXWindow window = open(wanted);
            const Clock::Duration start = platform.clock().now();

            EXPECT_EQ(move(window, target), QString());

            EXPECT_EQ(frameOf(window), reached);
            EXPECT_EQ(platform.windows().writes().size(), writes);
            EXPECT_EQ(platform.clock().now() - start, waited);
        }
    }
}

TEST_F(AXWindowTests, aRefusalSaysWhatWasRefusedAndWhyAndEndsTheMove)
{
    const std::tuple<WindowSpec, Rect, QString, qsizetype> examples[]{
        {{.fullScreen = true}, onTheLeft, u"window is in native full screen"_s, 0},
        {{}, {notANumber, 0, 1, 1}, u"could not set position (AXError -25200)"_s, 0},
        {{.refusesSize = AXError::failure}, onTheLeft, u"could not set size (AXError -25200)"_s, 3},
        {{.refusesPosition = AXError::cannotComplete, .refusalDetail = u"locked"_s}, onTheLeft,
            u"could not set position (AXError -25204): locked"_s, 2},
    };

    for (const auto &[wanted, target, refusal, writes] : examples) {
        EXPECT_EQ(move(open(wanted), target), refusal);
        EXPECT_EQ(platform.windows().writes().size(), writes) << qPrintable(refusal);
    }
}

} // namespace corvane
