#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class HostileClientTests : public LiveTests
{
protected:
    // What it did to the window manager ends with that.
    void TearDown() override
    {
        LiveTests::TearDown();
        desk().manager->stop();
    }

    // Some of it kills the window manager, too; then there is nobody to ask for a move.
    bool isManagedInTime(xcb_window_t window)
    {
        static_cast<void>(
            waitUntil([&] { return probe().isManaged(window) || !desk().manager->isRunning(); },
                Milliseconds{2000}));
        return desk().manager->isRunning() && probe().isManaged(window);
    }

    // An answer in time, whatever the hostile window makes of it.
    void expectAnAnswer(xcb_window_t hostile)
    {
        if (!isManagedInTime(hostile) || !focus(hostile))
            return;
        const auto answer = corvane().place(u"leftHalf"_s);
        EXPECT_TRUE(answer.exitStatus == 0 || answer.exitStatus == 1);
        EXPECT_LT(answer.duration, Milliseconds{2500});
    }

    // A decent window works as ever, beside the hostile one if the window manager survived that.
    void expectOthersToWork()
    {
        TestClient decent(desktop());
        const xcb_window_t window = decent.open({.geometry = {500, 300, 400, 300}});
        if (!isManagedInTime(window))
            return;
        ASSERT_TRUE(focus(window));
        const Rect expected = frameOf(region(u"rightHalf"), standardDisplay);
        press(strokes::rightHalf);
        // The display server alone may draw for eight seconds at a frame 65541 pixels wide, and has
        // less than a core to itself where tests run beside one another.
        static_cast<void>(probe().waitForFrame(window, expected, Milliseconds{60000}));
        EXPECT_EQ(frame(window), expected);
        ASSERT_TRUE(corvane().isRunning());
    }

    void expectToSurvive(
        const WindowRequest &request, const std::function<void(xcb_window_t)> &then)
    {
        {
            TestClient hostile(desktop());
            const xcb_window_t window = hostile.open(request);
            static_cast<void>(isManagedInTime(window));
            then(window);
            expectAnAnswer(window);
            expectOthersToWork();
        }
        ASSERT_NO_FATAL_FAILURE(ensureManager());
        expectOthersToWork();
    }
};

constexpr double huge = 2147483647;

struct HostileCase {
    const char *name;
    WindowRequest request;
};

const HostileCase windowCases[]{
    {"broken UTF-8", {.title = QByteArray("\xff\xfe\xc3\x28\xf0\x9f\x00\x80", 8)}},
    {"a title of a megabyte", {.title = "abcdefghij", .titleRepeats = 100000}},
    {"no title", {.title = ""}},
    {"transient for itself", {.transientForItself = true}},
    {"negative increments", {.hints = {.increment = {-5, -7}, .base = {-10, -10}}}},
    {"huge increments", {.hints = {.increment = {huge, huge}}}},
    {"minimum above maximum", {.hints = {.minimum = {900, 900}, .maximum = {100, 100}}}},
    {"huge minimum", {.hints = {.minimum = {30000, 30000}}}},
    {"negative maximum", {.hints = {.maximum = {-1, -1}}}},
    {"aspect without height", {.hints = {.minimumAspect = {1, 0}, .maximumAspect = {0, 1}}}},
    {"unknown gravity", {.hints = {.gravity = 12345}}},
    {"shadow larger than the window",
        {.geometry = {100, 100, 200, 100}, .decorated = false, .shadow = {500, 500, 500, 500}}},
};

struct PropertyCase {
    const char *name;
    const char *type;
    QList<quint32> values;
};

const PropertyCase propertyCases[]{
    {"_NET_FRAME_EXTENTS", "CARDINAL", {0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF}},
    {"_NET_FRAME_EXTENTS", "CARDINAL", {1}},
    {"_GTK_FRAME_EXTENTS", "CARDINAL", {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}},
    {"_NET_WM_STATE", "CARDINAL", {1, 2, 3}},
    {"_NET_WM_PID", "CARDINAL", {0xFFFFFFFF}},
    {"_NET_WM_PID", "CARDINAL", {1}},
    {"_NET_WM_WINDOW_TYPE", "ATOM", {0xFFFFFF, 0}},
    {"_NET_WM_STRUT_PARTIAL", "CARDINAL",
        {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0, 0xFFFFFFFF, 0, 0xFFFFFFFF, 0,
            0xFFFFFFFF, 0, 0xFFFFFFFF}},
    {"_NET_WM_STRUT", "CARDINAL", {5}},
    {"WM_NORMAL_HINTS", "WM_SIZE_HINTS", {0xFFFFFFFF}},
    {"WM_TRANSIENT_FOR", "WINDOW", {0xFFFFFFFF}},
    {"WM_HINTS", "WM_HINTS", {}},
};

} // namespace

TEST_F(HostileClientTests, absurdWindowsNeitherCrashNorStallTheProgram)
{
    for (const auto &[name, request] : windowCases) {
        SCOPED_TRACE(name);
        expectToSurvive(request, [](xcb_window_t) {});
    }
}

TEST_F(HostileClientTests, propertiesThatAnotherClientOverwritesNeitherCrashNorStallTheProgram)
{
    for (const PropertyCase &each : propertyCases) {
        SCOPED_TRACE(each.name);
        expectToSurvive({}, [&](xcb_window_t window) {
            desktop().connection().setNumbers(window, each.name, each.type, each.values);
            desktop().connection().sync();
        });
    }
}

TEST_F(HostileClientTests, windowsThatAreTransientForEachOtherAreNoEndlessLoop)
{
    const xcb_window_t first = client().show({});

    expectToSurvive({.transientFor = first}, [&](xcb_window_t second) {
        desktop().connection().setNumbers(first, "WM_TRANSIENT_FOR", "WINDOW", {second});
        desktop().connection().sync();
    });
}

TEST_F(HostileClientTests, aWindowThatClosesAsItIsPlacedIsNoCrash)
{
    for (int round = 0; round < 20; ++round) {
        const xcb_window_t window = client().open({});
        static_cast<void>(
            waitUntil([&] { return probe().activeWindow() == window; }, Milliseconds{500}));
        press(strokes::leftHalf);
        client().close(window);
    }

    expectOthersToWork();
}

} // namespace corvane::desktop
