#include "HotKey.h"

#include "KeyCombo.h"
#include "SimulatedPlatform.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>

namespace corvane {

namespace {

constexpr quint16 leftArrow = 123;
constexpr quint64 controlOption = KeyCombo::control | KeyCombo::option;
constexpr quint32 registeredControlOption = HotKeys::controlKey | HotKeys::optionKey;

class HotKeyTests : public testing::Test
{
protected:
    void press(quint16 keyCode, quint32 modifiers)
    {
        platform.hotKeys().press(keyCode, modifiers);
        platform.deliver();
    }

    SimulatedPlatform platform;
    int presses = 0;
};

} // namespace

TEST_F(HotKeyTests, runsItsActionOnEachPress)
{
    const HotKey hotKey(leftArrow, controlOption, [this] { ++presses; });

    press(leftArrow, registeredControlOption);
    press(leftArrow, registeredControlOption);
    press(leftArrow, registeredControlOption | HotKeys::shiftKey);

    EXPECT_TRUE(hotKey.isRegistered());
    EXPECT_EQ(presses, 2);
}

TEST_F(HotKeyTests, everyModifierIsPartOfTheCombination)
{
    const HotKey bare(122, 0, [this] { presses += 1; });
    const HotKey full(122, KeyCombo::modifierMask, [this] { presses += 10; });

    press(122, 0);
    press(122, HotKeys::controlKey | HotKeys::optionKey | HotKeys::shiftKey | HotKeys::cmdKey);

    EXPECT_EQ(presses, 11);
}

TEST_F(HotKeyTests, anActionMayReplaceTheHotKeyThatRunsIt)
{
    std::optional<HotKey> hotKey;
    hotKey.emplace(leftArrow, controlOption, [&] {
        hotKey.reset();
        hotKey.emplace(leftArrow, controlOption, [this] { ++presses; });
    });

    press(leftArrow, registeredControlOption);
    press(leftArrow, registeredControlOption);

    EXPECT_EQ(presses, 1);
}

} // namespace corvane
