#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;
using Lock = KeyPresser::Lock;

using KeyboardTests = LiveTests;

} // namespace

TEST_F(KeyboardTests, shortcutsStayOnTheirPhysicalKeysWhateverTheLayoutAndTheLocks)
{
    const xcb_window_t window = showFocused();
    // By keys that every other layout puts something else on.
    const auto expectShortcutsToWork = [&] {
        for (const Placement placement : {maximize, leftThird, rightHalf})
            EXPECT_TRUE(lands(window, placement));
        press(snapBack);
        EXPECT_TRUE(rests(window, frameOf(leftThird, standardDisplay)));
    };
    for (const auto &[num, caps] : {std::pair{true, false}, {true, true}, {false, true}, {}}) {
        SCOPED_TRACE(testing::Message() << "Num Lock " << num << ", Caps Lock " << caps);
        ASSERT_TRUE(keys().setLock(Lock::num, num) && keys().setLock(Lock::caps, caps));
        expectShortcutsToWork();
    }
    for (const auto &layout : {u"fr"_s, u"us(dvorak)"_s, u"de(neo)"_s, u"us,ru"_s}) {
        SCOPED_TRACE(qPrintable(layout));
        ASSERT_TRUE(desktop().setKeyboardLayouts(layout));
        expectShortcutsToWork();
    }
    ASSERT_TRUE(keys().switchLayout());
    expectShortcutsToWork();

    ASSERT_TRUE(desktop().setKeyboardLayouts(u"fr"_s));
    corvane().stop();
    ASSERT_TRUE(corvane().start());
    EXPECT_TRUE(corvane().readyLine().startsWith(u"ready: 21 of 21")) << "started under another";
    expectShortcutsToWork();
    EXPECT_TRUE(desktop().setKeyboardLayouts(u"us"_s));
}

} // namespace corvane::desktop
