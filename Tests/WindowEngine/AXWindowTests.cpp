#include "Desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr Rect leftHalf{0, 25, 720, 875};
constexpr Rect rightThird{960, 25, 480, 875};
constexpr double slack = 6;

class AXWindowTests : public testing::Test
{
protected:
    expected<void, MoveError> move(const AXWindow &window, const Rect &target)
    {
        return window.setFrame(target, Desk::laptopArea, slack);
    }

    QString errorOf(const AXWindow &window)
    {
        const auto moved = move(window, leftHalf);
        return moved ? u"none"_s : moved.error().description();
    }

    Desk desk;
};

} // namespace

TEST_F(AXWindowTests, anObedientWindowTakesThreeWritesAndNoTime)
{
    const AXWindow window = desk.open();

    ASSERT_TRUE(move(window, leftHalf));

    EXPECT_EQ(desk.frameOf(window), leftHalf);
    EXPECT_THAT(desk.platform.windows().writes(),
        ElementsAre(WindowWrite{window.element, leftHalf.size()},
            WindowWrite{window.element, leftHalf.origin()},
            WindowWrite{window.element, leftHalf.size()}));
    EXPECT_EQ(desk.platform.clock().now(), 0ms);
}

TEST_F(AXWindowTests, aSizeThatDidNotFitAtTheOldPlaceFitsAtTheNewOne)
{
    desk.desktop.fitsSizesToDisplay = true;
    const AXWindow window = desk.open({.frame = {1240, 700, 200, 150}});

    ASSERT_TRUE(move(window, leftHalf));

    EXPECT_EQ(desk.frameOf(window), leftHalf);
}

TEST_F(AXWindowTests, onlyAWindowThatMayYetFollowIsWaitedForAndOnlyUntilItDoes)
{
    struct Example {
        const char *name;
        WindowSpec wanted;
        Size reached;
        Clock::Duration waited;
        bool sharesReads = false;
    };
    const Example examples[]{
        {"late", {.resizesAfter = 100ms}, leftHalf.size(), 120ms},
        {"late, and seen once in an operation", {.resizesAfter = 100ms}, leftHalf.size(), 120ms,
            true},
        {"later than three rounds", {.resizesAfter = 1s}, {400, 300}, 180ms},
        {"held by a largest size", {.maximum = Size{300, 200}}, {300, 200}, 0ms},
        {"of fixed size", {.frame = {5, 50, 200, 100}, .fixedSize = true}, {200, 100}, 0ms},
    };
    for (const auto &[name, wanted, reached, waited, sharesReads] : examples) {
        SCOPED_TRACE(name);
        desk.desktop.sharesReads = sharesReads;
        const AXWindow window = desk.open(wanted);
        const Clock::Duration start = desk.platform.clock().now();

        ASSERT_TRUE(move(window, leftHalf));

        EXPECT_EQ(desk.frameOf(window), (Rect{0, 25, reached.width, reached.height}));
        EXPECT_EQ(desk.platform.clock().now() - start, waited);
    }
}

TEST_F(AXWindowTests, aWindowThatInsistsOnItsMinimumKeepsToItsEdgeWhereThereAreBounds)
{
    for (const auto &[bounds, x] :
        {std::pair{std::optional(Desk::laptopArea), 840.0}, {std::nullopt, 960.0}}) {
        const AXWindow window = desk.open({.frame = {0, 25, 800, 875}, .minimum = {600, 400}});

        ASSERT_TRUE(window.setFrame(rightThird, bounds, slack));

        EXPECT_EQ(desk.frameOf(window), (Rect{x, 25, 600, 875}));
    }
}

TEST_F(AXWindowTests, aWindowIsToldItsPlaceAgainOnlyWhereItIsNotThere)
{
    const AXWindow inPlace = desk.open({.minimum = {484, 300}});
    ASSERT_TRUE(inPlace.setFrame(rightThird, std::nullopt, slack));
    EXPECT_EQ(desk.platform.windows().writes().size(), 3);

    desk.platform.windows().clearWrites();
    const AXWindow wide = desk.open({.frame = {100, 100, 800, 600}, .minimum = {800, 300}});
    ASSERT_TRUE(move(wide, leftHalf));
    EXPECT_EQ(desk.frameOf(wide), (Rect{0, 25, 800, 875}));
    EXPECT_EQ(desk.platform.windows().writes().size(), 4); // already anchored where it is

    for (const Point beside : {Point{4, 0}, Point{0, -1}}) {
        desk.platform.windows().clearWrites();
        const AXWindow astray = desk.open({.landsOff = beside});
        ASSERT_TRUE(move(astray, leftHalf));
        EXPECT_EQ(desk.frameOf(astray), leftHalf);
        EXPECT_EQ(desk.platform.windows().writes().size(), 4);
    }
}

TEST_F(AXWindowTests, twoPointsTooLargeAreLetBe)
{
    const AXWindow window = desk.open({.minimum = {482, 300}});

    ASSERT_TRUE(move(window, rightThird));

    EXPECT_EQ(desk.frameOf(window), (Rect{960, 25, 482, 875}));
    EXPECT_EQ(desk.platform.windows().writes().size(), 3);
}

TEST_F(AXWindowTests, aFullScreenWindowIsNotWrittenTo)
{
    const AXWindow window = desk.open({.fullScreen = true});

    EXPECT_EQ(errorOf(window), u"window is in native full screen"_s);
    EXPECT_THAT(desk.platform.windows().writes(), IsEmpty());
}

TEST_F(AXWindowTests, aRefusalNamesWhatWasRefusedAndWhy)
{
    struct Example {
        WindowSpec wanted;
        QString description;
    };
    const Example examples[]{
        {{.refusesPosition = AXError::cannotComplete},
            u"could not set position (AXError -25204)"_s},
        {{.refusesSize = AXError::failure}, u"could not set size (AXError -25200)"_s},
        {{.refusesPosition = AXError::failure, .refusalDetail = u"locked by its application"_s},
            u"could not set position (AXError -25200): locked by its application"_s},
    };

    for (const Example &example : examples)
        EXPECT_EQ(errorOf(desk.open(example.wanted)), example.description);
}

TEST_F(AXWindowTests, aWriteWithoutTrustIsReported)
{
    const AXWindow window = desk.open();
    desk.desktop.loseTrust();

    EXPECT_EQ(errorOf(window), u"could not set position (AXError -25211)"_s);
}

TEST_F(AXWindowTests, aTargetThatIsNoNumberIsRefusedUnwritten)
{
    const AXWindow window = desk.open();

    const auto moved = move(window, {std::numeric_limits<double>::quiet_NaN(), 0, 100, 100});

    ASSERT_FALSE(moved);
    EXPECT_EQ(moved.error(), (MoveError{MoveError::Position{AXError::failure}}));
    EXPECT_THAT(desk.platform.windows().writes(), IsEmpty());
}

TEST_F(AXWindowTests, heldBackSizesArriveAllTheSame)
{
    desk.desktop.holdsSizes = true;
    const AXWindow window = desk.open();

    ASSERT_TRUE(move(window, leftHalf));

    EXPECT_EQ(desk.frameOf(window), leftHalf);
    EXPECT_EQ(desk.platform.windows().operationDepth(), 0);
    EXPECT_EQ(desk.platform.windows().operationCount(), 1);
}

TEST_F(AXWindowTests, anApplicationsWindowsAreItsStandardOnesOnShow)
{
    const AXWindow back = desk.open();
    desk.open({.kind = WindowKind::dialog});
    desk.open({.kind = WindowKind::panel});
    desk.open({.minimised = true});
    desk.open({.onOtherWorkspace = true});
    const AXWindow front = desk.open();
    const pid_t other = desk.desktop.start(u"org.example.Other"_s, u"Other"_s);
    desk.openFrom(other);

    EXPECT_THAT(AXWindow::windows(desk.editor), ElementsAre(front, back));

    const QString viewer = u"org.example.Viewer"_s;
    const AXWindow foreign = desk.open({.application = viewer});
    EXPECT_THAT(AXWindow::windows({desk.editor, viewer, {}}), ElementsAre(foreign));
    EXPECT_EQ(foreign.appName(), viewer);
    EXPECT_EQ(front.appName(), u"Editor"_s);
}

TEST_F(AXWindowTests, aBusyApplicationIsToldFromOneWithoutAWindow)
{
    const AXWindow window = desk.open();
    EXPECT_EQ(AXWindow::focused().window, window);

    desk.desktop.application(desk.editor).hung = true;
    EXPECT_EQ(AXWindow::focused().status, AXError::cannotComplete);
    EXPECT_EQ(AXWindow::focused().window, std::nullopt);

    desk.desktop.focusNothing();
    EXPECT_EQ(AXWindow::focused().status, AXError::success);
    EXPECT_EQ(AXWindow::focused().window, std::nullopt);
}

TEST_F(AXWindowTests, aReadOfAClosedWindowIsMissingNotWrong)
{
    const AXWindow window = desk.open({.title = u"Notes"_s});
    EXPECT_EQ(window.title(), u"Notes"_s);
    EXPECT_EQ(window.appName(), u"Editor"_s);
    const AXWindow nameless = desk.openFrom(desk.desktop.start({}, {}));
    EXPECT_EQ(nameless.appName(), u"pid %1"_s.arg(nameless.pid));

    desk.desktop.quit(desk.editor);

    EXPECT_EQ(window.frame(), std::nullopt);
    EXPECT_EQ(window.title(), QString());
    EXPECT_EQ(window.appName(), u"pid %1"_s.arg(desk.editor));
    EXPECT_FALSE(window.isWindow() || window.isStandard());
}

TEST_F(AXWindowTests, aReusedWindowNumberIsAnotherWindow)
{
    const AXWindow first = desk.open({.number = 77});
    desk.desktop.closeWindow(first.element);
    const AXWindow second = desk.open({.number = 77});

    EXPECT_FALSE(first == second);
    EXPECT_EQ(first, (AXWindow{first.element, 1}));
}

TEST_F(AXWindowTests, comingForwardAloneLeavesTheOthersBehind)
{
    const AXWindow back = desk.open();
    const AXWindow middle = desk.open();
    const pid_t other = desk.desktop.start(u"org.example.Other"_s, u"Other"_s);
    const AXWindow front = desk.openFrom(other);

    ASSERT_TRUE(back.bringToFrontAlone());

    EXPECT_THAT(desk.desktop.stack(), ElementsAre(back.element, front.element, middle.element));
    EXPECT_EQ(AXWindow::focused().window, back);
}

} // namespace corvane
