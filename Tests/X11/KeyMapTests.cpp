#include "KeyMap.h"

#include "KeyCombo.h"
#include "PhysicalKey.h"

#include <gtest/gtest.h>

namespace corvane::x11 {

TEST(KeyMapTests, everyKeyIsFoundByEachOfItsNumbersAndEveryKeyWithANameIsThere)
{
    for (quint16 code = 0; code < 128; ++code) {
        const auto keycode = keycodeFor(code);
        EXPECT_TRUE(keycode || KeyCombo::keyName(code).startsWith(QLatin1String("key "))) << code;
        if (!keycode)
            continue;
        const auto byKeycode = PhysicalKey::withXkbKeycode(*keycode);
        const auto byEvdevCode = PhysicalKey::withEvdevCode(*keycode - 8U);
        ASSERT_TRUE(byKeycode && byEvdevCode) << code;
        EXPECT_EQ(byKeycode->virtualKeyCode, code);
        EXPECT_EQ(byEvdevCode->virtualKeyCode, code);
    }
}

TEST(KeyMapTests, aNumberThatNoKeyHasIsAbsent)
{
    EXPECT_FALSE(keycodeFor(52));
    EXPECT_FALSE(keycodeFor(300));
    EXPECT_FALSE(PhysicalKey::withXkbKeycode(7));
    EXPECT_FALSE(PhysicalKey::withEvdevCode(767));
}

} // namespace corvane::x11
