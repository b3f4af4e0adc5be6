#include "Desk.h"

namespace corvane {

namespace {

constexpr Rect rightThird{960, 25, 480, 875};

class AXWindowTests : public testing::Test, protected Desk
{
protected:
    /// What was refused, if anything.
    QString move(
        const AXWindow &window, const Rect &target, const std::optional<Rect> &bounds = laptopArea)
    {
        platform.windows().clearWrites();
        const auto moved = window.setFrame(target, bounds, 6);
        return moved ? QString() : moved.error().description();
    }

    qsizetype writes() { return platform.windows().writes().size(); }
};

} // namespace

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
    EXPECT_EQ(platform.windows().operationDepth(), 0);
}

TEST_F(AXWindowTests, aWindowIsToldAgainOnlyWhereItMayYetFollow)
{
    struct Example {
        const char *name;
        WindowSpec wanted;
        Rect target;
        Rect reached;
        qsizetype writes;
        Clock::Duration waited = 0ms;
        std::optional<Rect> bounds = laptopArea;
    };
    const Example examples[]{
        {"cut where it would leave its display", {.frame = {1240, 700, 200, 150}}, onTheLeft,
            onTheLeft, 3},
        {"late", {.resizesAfter = 100ms}, onTheLeft, onTheLeft, 8, 120ms},
        {"later than three rounds", {.resizesAfter = 1s}, onTheLeft, {0, 25, 400, 300}, 10, 180ms},
        {"held by a largest size", {.maximum = Size{300, 200}}, onTheLeft, {0, 25, 300, 200}, 4},
        {"of fixed size", {.fixedSize = true}, rightThird, {960, 25, 400, 300}, 4},
        {"two points too large", {.minimum = {482, 300}}, rightThird, {960, 25, 482, 875}, 3},
        {"four points too large", {.minimum = {484, 300}}, rightThird, {956, 25, 484, 875}, 4},
        {"much too large", {.minimum = {600, 300}}, rightThird, {840, 25, 600, 875}, 5},
        {"where there are no bounds", {.minimum = {600, 300}}, rightThird, {960, 25, 600, 875}, 4,
            0ms, std::nullopt},
        {"at its edge already", {.minimum = {800, 300}}, onTheLeft, {0, 25, 800, 875}, 4},
        {"put down to the right", {.landsOff = {4, 0}}, onTheLeft, onTheLeft, 4},
        {"put down above", {.landsOff = {0, -1}}, onTheLeft, onTheLeft, 4},
    };
    desktop.fitsSizesToDisplay = true;

    for (const bool sharesReads : {false, true}) {
        desktop.sharesReads = sharesReads;
        for (const auto &[name, wanted, target, reached, writes, waited, bounds] : examples) {
            SCOPED_TRACE(name);
            const AXWindow window = open(wanted);
            const Clock::Duration start = platform.clock().now();

            EXPECT_EQ(move(window, target, bounds), QString());

            EXPECT_EQ(frameOf(window), reached);
            EXPECT_EQ(this->writes(), writes);
            EXPECT_EQ(platform.clock().now() - start, waited);
        }
    }
}

TEST_F(AXWindowTests, aRefusalSaysWhatWasRefusedAndWhyAndEndsTheMove)
{
    struct Example {
        WindowSpec wanted;
        QString refusal;
        qsizetype writes;
        Rect target = onTheLeft;
    };
    const Example examples[]{
        {{.fullScreen = true}, u"window is in native full screen"_s, 0},
        {{}, u"could not set position (AXError -25200)"_s, 0, {notANumber, 0, 100, 100}},
        {{.refusesPosition = AXError::cannotComplete}, u"could not set position (AXError -25204)"_s,
            2},
        {{.refusesSize = AXError::failure}, u"could not set size (AXError -25200)"_s, 3},
        {{.refusesPosition = AXError::failure, .refusalDetail = u"locked"_s},
            u"could not set position (AXError -25200): locked"_s, 2},
    };

    for (const Example &example : examples) {
        EXPECT_EQ(move(open(example.wanted), example.target), example.refusal);
        EXPECT_EQ(writes(), example.writes) << qPrintable(example.refusal);
    }
}

} // namespace corvane
