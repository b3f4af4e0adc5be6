#include "Geometry.h"
#include "KWinPlatform.h"
#include "WaylandWorld.h"

#include <QtCore/QTemporaryFile>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <random>

namespace corvane {

namespace {

/// What compositors do to windows that an X server would not.
class CompositorTests : public testing::TestWithParam<std::string>
{
protected:
    WaylandWorld &world() { return static_cast<WaylandWorld &>(*m_world); }
    Hand &hand() { return world().desk().hand(); }
    WindowAccess &windows() { return world().platform().windows(); }

    AXError place(const WindowElement &window, const Rect &frame)
    {
        const WindowOperation operation(windows());
        std::ignore = windows().setSize(window, frame.size());
        return windows().setPosition(window, frame.origin());
    }
    /// Whether the desktop shows the window there, and goes on doing so.
    testing::AssertionResult rests(const WindowElement &window, const Rect &frame)
    {
        const auto seen = [&] {
            world().pump();
            return hand().frame(world().numberOf(window));
        };
        Rect last;
        if (waitUntil([&] { return (last = settled(seen, Milliseconds{300})) == frame; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
            << last.width << 'x' << last.height << " at " << last.x << ',' << last.y << ", not "
            << frame.width << 'x' << frame.height << " at " << frame.x << ',' << frame.y;
    }
    Rect anyFrame(const Rect &display)
    {
        const auto any = [this](double from, double to) {
            return double(std::uniform_int_distribution(int(from), int(to))(m_random));
        };
        const Size size{any(200, display.width), any(150, display.height)};
        return {display.x + any(0, display.width - size.width),
            display.y + any(0, display.height - size.height), size.width, size.height};
    }

private:
    std::unique_ptr<ContractWorld> m_world = ContractWorld::make(GetParam());
    std::minstd_rand m_random{20261123};
};

} // namespace

TEST_P(CompositorTests, placementsInQuickSuccessionEndWhereTheLastOneSays)
{
    struct Case {
        const char *name;
        WindowRequest request;
        int series; ///< of 25
    };
    const Case cases[]{{"decorated", {}, 3},
        {"drawing its own shadow", {.decorated = false, .shadow = {24, 28, 23, 29}}, 2},
        {"answering late", {.answersAfter = 7}, 2},
        {"answering very late", {.decorated = false, .answersAfter = 60}, 1}};
    for (const auto &[name, request, series] : cases) {
        SCOPED_TRACE(name);
        const WindowElement window = world().open(request);
        for (int i = 0; i < series; ++i) {
            Rect last;
            for (int j = 0; j < 25; ++j) {
                last = anyFrame(hand().displays().first());
                EXPECT_EQ(place(window, last), AXError::success);
                EXPECT_EQ(windows().frame(window), last);
            }
            EXPECT_TRUE(rests(window, last));
        }
    }
}

TEST_P(CompositorTests, aWindowLeavesEveryStateForItsPlaceAndGoesBack)
{
    using Change = std::function<void(quint32)>;
    const Change fill = [this](quint32 window) { hand().setFullScreen(window, true); };
    const Change tile = [this](quint32 window) { hand().tile(window); };
    const Change maximise = [this](quint32 window) { hand().setMaximized(window, true); };
    std::vector<std::pair<const char *, Change>> states{{"full screen", fill}, {"tiled", tile}};
    if (!world().desk().isSway())
        states.emplace_back("maximised", maximise);
    const Rect normal{100, 90, 500, 400};
    const Rect target{310, 205, 611, 487};
    for (const auto &[name, change] : states) {
        for (const int delay : {0, 40}) {
            SCOPED_TRACE(testing::Message() << name << ", answering after " << delay << " ms");
            const WindowElement window = world().open({.answersAfter = delay});
            const quint32 number = world().numberOf(window);
            ASSERT_TRUE(hand().putAt(number, normal));
            change(number);
            ASSERT_TRUE(waitUntil([&] { return hand().settledFrame(number) != normal; }));
            const Rect before = hand().frame(number);
            std::optional<WindowState> state;
            {
                const WindowOperation operation(windows());
                EXPECT_EQ(place(window, target), AXError::success);
                state = windows().endedState(window);
            }
            EXPECT_TRUE(rests(window, target));

            EXPECT_EQ(windows().restore(window, before, state), AXError::success);

            EXPECT_TRUE(rests(window, before));
            world().closeWindow(window);
        }
    }
}

TEST_P(CompositorTests, aWindowThatGrowsOutOfItsPlaceLateStaysOnItsDisplay)
{
    if (GetParam() != "sway")
        GTEST_SKIP() << "KWin and GNOME know at once how small a window can be";
    const Rect display = hand().displays().first();
    const Size least{900, 600};
    const WindowElement window =
        world().open({.decorated = false, .hints = {.minimum = least}, .answersAfter = 300});

    EXPECT_EQ(
        place(window, {display.maxX() - 410, display.maxY() - 310, 400, 300}), AXError::success);

    EXPECT_TRUE(rests(window,
        {display.maxX() - 10 - least.width, display.maxY() - 10 - least.height, least.width,
            least.height}));
}

TEST_P(CompositorTests, aHungClientHoldsUpNobodyElseAndObeysOnceItGoesOn)
{
    windows().setMessagingTimeout(1);
    const WindowElement hung = world().open({});
    const WindowElement other = world().open({.decorated = false});
    ChildProcess &process = world().client(world().processOf(hung));
    process.suspend();
    const Rect first{40, 60, 700, 500};
    const Rect second{500, 300, 640, 420};

    const AXError error = place(hung, first);
    EXPECT_EQ(place(other, second), AXError::success);

    EXPECT_TRUE(rests(other, second));
    // sway gives it the place at once, GNOME only the position, and KWin both once it has drawn itself.
    EXPECT_EQ(error, GetParam() == "kwin" ? AXError::cannotComplete : AXError::success);
    process.resume();
    EXPECT_TRUE(rests(hung, first));
    EXPECT_EQ(place(hung, second), AXError::success);
    EXPECT_TRUE(rests(hung, second));
}

TEST_P(CompositorTests, placesAreExactOnADisplayThatIsScaledByAFraction)
{
    const Rect whole = hand().displays().first();
    ASSERT_TRUE(hand().setScale(0, 1.25));
    const auto areas = [&] {
        world().pump();
        const auto all = world().platform().displays().all();
        return all.isEmpty() ? Rect() : all.first().visibleFrame;
    };
    const Rect scaled{0, 0, whole.width / 1.25, whole.height / 1.25};
    ASSERT_TRUE(waitUntil([&] { return areas() == scaled; }));
    for (const WindowRequest &request : {WindowRequest{}, {.decorated = false}}) {
        const WindowElement window = world().open(request);
        for (const UnitRect &part : {UnitRect{0, 0, 0.5, 1}, {0.5, 0.5, 0.5, 0.5}, {0, 0, 1, 1}}) {
            const Rect frame = Geometry::frame(part, scaled, 0);
            EXPECT_EQ(place(window, frame), AXError::success);
            EXPECT_TRUE(rests(window, frame));
        }
    }
    EXPECT_TRUE(hand().setScale(0, 1));
    EXPECT_TRUE(waitUntil([&] { return areas() == whole; }));
}

TEST_P(CompositorTests, theAgentRunsThoughItsNumberInKWinIsAnothersToo)
{
    if (GetParam() != "kwin")
        GTEST_SKIP() << "only KWin numbers its scripts";
    const auto ask = [](const QString &method, const QVariantList &arguments) {
        auto message = QDBusMessage::createMethodCall(
            u"org.kde.KWin"_s, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s, method);
        message.setArguments(arguments);
        EXPECT_EQ(QDBusConnection::sessionBus().call(message).type(), QDBusMessage::ReplyMessage);
    };
    QTemporaryFile script;
    ASSERT_TRUE(script.open());
    for (const QString &name : {u"first"_s, u"second"_s})
        ask(u"loadScript"_s, {script.fileName(), name});
    ask(u"unloadScript"_s, {u"first"_s});

    const auto platform = openKWinPlatform([] {});
    ASSERT_TRUE(platform) << platform.error().toStdString();
    EXPECT_TRUE(waitUntil([&] {
        world().pump();
        return (*platform)->windows().isTrusted();
    }));
    ask(u"unloadScript"_s, {u"second"_s});
}

INSTANTIATE_TEST_SUITE_P(Wayland, CompositorTests, testing::Values("sway", "kwin", "gnome"),
    [](const auto &each) { return each.param; });

} // namespace corvane
