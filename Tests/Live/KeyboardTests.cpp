#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class KeyboardTests : public LiveTests
{
protected:
    void TearDown() override
    {
        static_cast<void>(keys().setLock(KeyPresser::Lock::num, false));
        static_cast<void>(keys().setLock(KeyPresser::Lock::caps, false));
        static_cast<void>(desktop().setKeyboardLayouts(u"us"_s));
        LiveTests::TearDown();
    }

    // By keys that every other layout puts something else on.
    void expectShortcutsToWork(xcb_window_t window)
    {
        for (const auto &placement : {u"maximize"_s, u"leftThird"_s, u"rightHalf"_s}) {
            const Rect expected = frameOf(region(placement), standardDisplay);
            press(region(placement).stroke);
            EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
        }
        const Rect back = frameOf(region(u"leftThird"), standardDisplay);
        press(strokes::snapBack);
        EXPECT_EQ(reached(window, back), back);
    }
};

// Another program that holds the shortcut of `leftHalf`, whatever locks are on.
class RivalGrab
{
public:
    explicit RivalGrab(VirtualDesktop &desktop) : m_connection(desktop.displayName())
    {
        constexpr quint8 leftArrow = static_cast<quint8>(Key::left) + 8;
        constexpr quint16 modifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
        xcb_grab_key(m_connection.raw(), 0, m_connection.root(), modifiers, leftArrow,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        m_connection.sync();
    }

private:
    XConnection m_connection;
};

} // namespace

TEST_F(KeyboardTests, locksChangeNothing)
{
    const xcb_window_t window = showFocused();
    for (const auto &[num, caps] : {std::pair{true, false}, {false, true}, {true, true}}) {
        // With Caps Lock alone mutter lets nobody hear Super, not even a client that only grabs a key.
        if (isManager({"mutter"}) && caps && !num)
            continue;
        SCOPED_TRACE(testing::Message() << "Num Lock " << num << ", Caps Lock " << caps);
        ASSERT_TRUE(keys().setLock(KeyPresser::Lock::num, num));
        ASSERT_TRUE(keys().setLock(KeyPresser::Lock::caps, caps));

        expectShortcutsToWork(window);
    }
}

TEST_F(KeyboardTests, shortcutsStayOnTheirPhysicalKeysWhateverTheLayout)
{
    const xcb_window_t window = showFocused();
    for (const auto &layout : {u"fr"_s, u"us(dvorak)"_s, u"ru"_s, u"de(neo)"_s}) {
        SCOPED_TRACE(qPrintable(layout));
        ASSERT_TRUE(desktop().setKeyboardLayouts(layout));

        expectShortcutsToWork(window);
    }
}

TEST_F(KeyboardTests, switchingTheLayoutAtRunTimeChangesNothing)
{
    const xcb_window_t window = showFocused();
    ASSERT_TRUE(desktop().setKeyboardLayouts(u"us,ru"_s));
    expectShortcutsToWork(window);

    ASSERT_TRUE(keys().switchLayout());
    expectShortcutsToWork(window);
}

TEST_F(KeyboardTests, theProgramCanStartUnderAnotherLayout)
{
    corvane().stop();
    ASSERT_TRUE(desktop().setKeyboardLayouts(u"fr"_s));
    ASSERT_TRUE(corvane().start());
    EXPECT_TRUE(corvane().readyLine().startsWith(u"ready: 21 of 21"))
        << qPrintable(corvane().readyLine());

    expectShortcutsToWork(showFocused());
}

TEST_F(KeyboardTests, aHeldKeyMovesTheWindowOnce)
{
    ASSERT_TRUE(desktop().run(u"xset"_s, {u"r"_s, u"rate"_s, u"150"_s, u"50"_s}));
    const xcb_window_t window = showFocused();
    const Rect expected = frameOf(region(u"leftHalf"), standardDisplay);
    const qsizetype seen = corvane().log().size();
    const auto start = std::chrono::steady_clock::now();

    // Long enough for some twenty repeats, each of which would take the cycle a step further.
    ASSERT_TRUE(keys().holdUntil(strokes::leftHalf,
        [&] { return std::chrono::steady_clock::now() - start > Milliseconds{600}; }));

    EXPECT_EQ(reached(window, expected), expected);
    EXPECT_EQ(corvane().log().size(), seen + 1) << qPrintable(corvane().log().join(u'\n'));
}

} // namespace corvane::desktop
