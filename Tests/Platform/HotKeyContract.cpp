#include "PlatformContract.h"

namespace corvane {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr quint16 keyJ = 38;
constexpr quint16 keyK = 40;
constexpr quint32 chord = HotKeys::controlKey | HotKeys::optionKey | HotKeys::shiftKey;

} // namespace

TEST_P(PlatformContract, eachPressArrivesUnderItsOwnId)
{
    EXPECT_EQ(hotKeys().registerHotKey(7, keyJ, chord), HotKeys::noErr);
    EXPECT_EQ(hotKeys().registerHotKey(8, keyK, chord), HotKeys::noErr);
    EXPECT_EQ(hotKeys().registerHotKey(9, keyJ, chord | HotKeys::cmdKey), HotKeys::noErr);

    world().pressKey(keyK, chord);
    world().pressKey(keyJ, chord);
    world().pressKey(keyJ, chord | HotKeys::cmdKey);
    world().pressKey(keyK, chord);
    EXPECT_TRUE(world().waitUntil([&] { return pressed.size() >= 4; }));
    world().settle();

    EXPECT_THAT(pressed, ElementsAre(8u, 7u, 9u, 8u));
}

TEST_P(PlatformContract, otherCombinationsAreNotReported)
{
    EXPECT_EQ(hotKeys().registerHotKey(1, keyJ, chord), HotKeys::noErr);

    world().pressKey(keyK, chord);
    world().pressKey(keyJ, HotKeys::controlKey);
    world().pressKey(keyJ, chord | HotKeys::cmdKey);
    world().settle();

    EXPECT_THAT(pressed, IsEmpty());
}

TEST_P(PlatformContract, aForgottenHotKeyStaysQuietAndCanBeTakenAgain)
{
    EXPECT_EQ(hotKeys().registerHotKey(1, keyJ, chord), HotKeys::noErr);

    hotKeys().unregisterHotKey(1);
    hotKeys().unregisterHotKey(99);
    world().pressKey(keyJ, chord);
    world().settle();
    EXPECT_THAT(pressed, IsEmpty());

    EXPECT_EQ(hotKeys().registerHotKey(2, keyJ, chord), HotKeys::noErr);
    world().pressKey(keyJ, chord);
    EXPECT_TRUE(world().waitUntil([&] { return !pressed.isEmpty(); }));
    EXPECT_THAT(pressed, ElementsAre(2u));
}

TEST_P(PlatformContract, aPressThatWaitedIsNotReportedAfterItsKeyWasForgotten)
{
    EXPECT_EQ(hotKeys().registerHotKey(1, keyJ, chord), HotKeys::noErr);

    world().pressKey(keyJ, chord);
    hotKeys().unregisterHotKey(1);
    const auto reportedBefore = pressed.size();
    world().settle();

    EXPECT_EQ(pressed.size(), reportedBefore);
}

TEST_P(PlatformContract, aCombinationThatARivalHoldsIsTaken)
{
    world().takeKeyByRival(keyJ, chord);

    EXPECT_EQ(hotKeys().registerHotKey(1, keyJ, chord), HotKeys::hotKeyExists);
    EXPECT_EQ(hotKeys().registerHotKey(2, keyK, chord), HotKeys::noErr);
    world().pressKey(keyJ, chord);
    world().pressKey(keyK, chord);

    EXPECT_TRUE(world().waitUntil([&] { return !pressed.isEmpty(); }));
    world().settle();
    EXPECT_THAT(pressed, ElementsAre(2u));
}

TEST_P(PlatformContract, aKeyThatTheKeyboardLacksIsInvalid)
{
    EXPECT_EQ(hotKeys().registerHotKey(1, world().missingKey(), chord), HotKeys::hotKeyInvalid);
}

TEST_P(PlatformContract, aHeldKeyIsReportedOnce)
{
    CORVANE_NEEDS(keyRepeat);
    EXPECT_EQ(hotKeys().registerHotKey(1, keyJ, chord), HotKeys::noErr);

    world().holdKey(keyJ, chord);
    EXPECT_TRUE(world().waitUntil([&] { return !pressed.isEmpty(); }));
    world().settle();
    EXPECT_THAT(pressed, ElementsAre(1u));

    world().pressKey(keyJ, chord);
    EXPECT_TRUE(world().waitUntil([&] { return pressed.size() == 2; }));
}

} // namespace corvane
