#include "KeyMap.h"

#include "KeyCombo.h"

#include <QtCore/QSet>

#include <gtest/gtest.h>

namespace corvane::x11 {

TEST(KeyMapTests, everyKeyWithANameIsAKeyOfItsOwnOnTheKeyboard)
{
    QSet<int> keycodes;
    int named = 0;
    for (quint16 code = 0; code < 128; ++code) {
        if (KeyCombo::keyName(code).startsWith(QLatin1String("key ")))
            continue;
        const auto keycode = keycodeFor(code);
        ASSERT_TRUE(keycode) << "virtual key code " << code;
        keycodes << *keycode;
        ++named;
    }

    EXPECT_EQ(keycodes.size(), named);
}

TEST(KeyMapTests, aCodeThatNoKeyHasIsAbsent)
{
    EXPECT_FALSE(keycodeFor(52));
    EXPECT_FALSE(keycodeFor(300));
}

} // namespace corvane::x11
