#include "PlatformContract.h"

namespace corvane {

using namespace testing;

constexpr quint16 keyJ = 38;
constexpr quint16 keyK = 40;
constexpr quint32 chord = HotKeys::controlKey | HotKeys::optionKey | HotKeys::shiftKey;
constexpr quint32 largerChord = chord | HotKeys::cmdKey;

TEST_P(PlatformContract, displaysComeAndGoWithOneNoticeEach)
{
    const QList<ScreenInfo> before = displays().all();
    ASSERT_EQ(before.size(), 1);
    EXPECT_EQ(before[0].visibleFrame, before[0].frame);
    EXPECT_NE(before[0].name, QString());

    for (const bool isPlugged : {true, false}) {
        displayChanges = 0;
        isPlugged ? world().plugDisplay() : world().unplugDisplay();
        EXPECT_TRUE(eventually([&] { return displayChanges > 0; }));
        world().settle();
        EXPECT_EQ(displayChanges, 1);
        const QList<ScreenInfo> now = displays().all();
        ASSERT_EQ(now.size(), isPlugged ? 2 : 1);
        EXPECT_EQ(now[0], before[0]);
        EXPECT_EQ(now[0].frame.intersectionArea(now.last().frame) == 0, isPlugged);
        EXPECT_EQ(now[0].displayID != now.last().displayID, isPlugged);
    }
}

TEST_P(PlatformContract, panelsTakeTheirEdgesFromTheVisibleFrame)
{
    using enum SimulatedPanel::Edge;
    Rect rest = displays().all().first().frame;
    for (const auto &[edge, thickness] :
        {std::pair(top, 25), {bottom, 40}, {left, 60}, {right, 30}}) {
        displayChanges = 0;
        rest.x += edge == left ? thickness : 0;
        rest.y += edge == top ? thickness : 0;
        (edge == top || edge == bottom ? rest.height : rest.width) -= thickness;

        world().addPanel({edge, double(thickness)});

        EXPECT_TRUE(eventually([&] { return displays().all().first().visibleFrame == rest; }));
        if (world().announcesPanels()) {
            EXPECT_TRUE(eventually([&] { return displayChanges > 0; }));
            world().settle();
            EXPECT_EQ(displayChanges, 1);
        }
    }
}

TEST_P(PlatformContract, eachPressOfAHotKeyAndOfNoOtherIsToldInTurnUntilItIsForgotten)
{
    EXPECT_EQ(hotKeys().registerHotKey(7, keyJ, chord), HotKeys::noErr);
    EXPECT_EQ(hotKeys().registerHotKey(8, keyK, chord), HotKeys::noErr);
    EXPECT_EQ(hotKeys().registerHotKey(9, keyJ, largerChord), HotKeys::noErr);
    for (const auto &[key, modifiers] : {std::pair(keyK, largerChord), {keyJ, HotKeys::controlKey},
             {keyK, chord}, {keyJ, chord}, {keyJ, largerChord}, {keyK, chord}})
        world().pressKey(key, modifiers);
    EXPECT_TRUE(eventually([&] { return pressed.size() >= 4; }));
    world().settle();
    EXPECT_THAT(pressed, ElementsAre(8u, 7u, 9u, 8u));

    world().pressKey(keyJ, chord);
    hotKeys().unregisterHotKey(7);
    hotKeys().unregisterHotKey(99);
    pressed.clear();
    world().pressKey(keyJ, chord);
    world().settle();
    EXPECT_THAT(pressed, IsEmpty());

    EXPECT_EQ(hotKeys().registerHotKey(2, keyJ, chord), HotKeys::noErr);
    world().pressKey(keyJ, chord);
    EXPECT_TRUE(eventually([&] { return !pressed.isEmpty(); }));
    EXPECT_THAT(pressed, ElementsAre(2u));
}

TEST_P(PlatformContract, aHeldKeyIsToldOnceUnlessARivalHoldsItOrTheKeyboardLacksIt)
{
    world().takeKeyByRival(keyJ, chord);
    EXPECT_EQ(hotKeys().registerHotKey(1, keyJ, chord), HotKeys::hotKeyExists);
    EXPECT_EQ(hotKeys().registerHotKey(2, keyK, chord), HotKeys::noErr);
    EXPECT_EQ(
        hotKeys().registerHotKey(3, ContractWorld::missingKey, chord), HotKeys::hotKeyInvalid);
    world().pressKey(keyJ, chord);
    world().holdKey(keyK, chord);
    EXPECT_TRUE(eventually([&] { return !pressed.isEmpty(); }));
    world().settle();
    EXPECT_THAT(pressed, ElementsAre(2u));
    world().pressKey(keyK, chord);
    EXPECT_TRUE(eventually([&] { return pressed.size() == 2; }));

    for (const bool isDown : {true, false}) {
        if (!world().tellsPointerButtons())
            break;
        world().holdPointerButton(isDown);
        EXPECT_TRUE(eventually(
            [&] { return world().platform().session().isPointerButtonDown() == isDown; }));
    }
}

TEST_P(PlatformContract, windowsOfObservedProcessesAreToldOnceAndNothingFromInsideACall)
{
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid);
    const WindowElement closing = world().openWindow(pid);
    world().settle();
    EXPECT_EQ(windows().observe(pid), AXError::success);
    EXPECT_EQ(hotKeys().registerHotKey(5, keyJ, chord), HotKeys::noErr);
    open();
    const WindowElement opened = world().openWindow(pid);
    world().closeWindow(closing);
    world().pressKey(keyJ, chord);

    const int before = notices;
    {
        const WindowOperation operation(windows());
        std::ignore = answersAbout(window);
        std::ignore = answersAbout(closing);
        windows().raise(window);
    }
    std::ignore = windows().windows(pid);
    std::ignore = windows().focusedWindow();
    hotKeys().unregisterHotKey(6);
    std::ignore = applications().running();
    std::ignore = displays().all();

    EXPECT_EQ(notices, before);
    EXPECT_TRUE(eventually([&] {
        return created.contains(opened) && closed.contains(closing) && pressed.contains(5u);
    }));

    windows().stopObserving(pid);
    const WindowElement stays = world().openWindow(pid);
    world().closeWindow(opened);
    EXPECT_TRUE(eventually([&] { return closed.contains(opened); }));
    world().settle();
    EXPECT_THAT(created, ElementsAre(opened));
    EXPECT_THAT(closed, ElementsAre(closing, opened));
    EXPECT_TRUE(windows().frame(stays));
}

TEST_P(PlatformContract, withoutTrustEveryCallIsDisabledUntilItComesBack)
{
    const pid_t pid = world().startApplication();
    const WindowElement window = world().openWindow(pid);
    EXPECT_TRUE(windows().isTrusted());
    EXPECT_EQ(windows().distrustReason(), QString());
    if (!world().losesTrust())
        return;
    for (const bool isTrusted : {false, true}) {
        isTrusted ? world().regainTrust() : world().loseTrust();
        EXPECT_TRUE(eventually([&] { return trust.contains(isTrusted); }));

        const AXError answer = isTrusted ? AXError::success : AXError::apiDisabled;
        EXPECT_EQ(windows().isTrusted(), isTrusted);
        EXPECT_EQ(windows().distrustReason().isEmpty(), isTrusted);
        EXPECT_EQ(windows().focusedWindow().status, answer);
        EXPECT_TRUE(
            eventually([&] { return windows().windows(pid)->contains(window) == isTrusted; }));
        EXPECT_THAT(answersAbout(window), Each(answer));
        EXPECT_EQ(windows().observe(pid), answer);
    }
    world().settle();
    EXPECT_THAT(trust, ElementsAre(false, true));
    EXPECT_EQ(displayChanges, 0);
}

} // namespace corvane
