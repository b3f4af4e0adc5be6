#include "QtKeys.h"

#include "HotKeys.h"

#include <QtCore/QKeyCombination>

#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace corvane::kwin {

TEST(QtKeysTests, aCombinationIsWhatKWinHearsOfIt)
{
    constexpr quint32 shift = HotKeys::shiftKey;
    constexpr quint32 more = HotKeys::controlKey | HotKeys::cmdKey;
    constexpr Qt::Key none{};
    struct Case {
        quint32 keysym;
        quint32 shifted;
        quint32 modifiers;
        QKeyCombination key;
    };
    for (const auto &[keysym, shifted, modifiers, key] : {
             Case{XKB_KEY_j, XKB_KEY_J, 0, Qt::Key_J},
             {XKB_KEY_j, XKB_KEY_J, shift, Qt::SHIFT | Qt::Key_J},
             {XKB_KEY_1, XKB_KEY_exclam, 0, Qt::Key_1},
             {XKB_KEY_1, XKB_KEY_exclam, shift, Qt::Key_Exclam},
             {XKB_KEY_ssharp, XKB_KEY_question, 0, Qt::Key_ssharp},
             {XKB_KEY_ssharp, XKB_KEY_question, shift, Qt::Key_Question},
             {XKB_KEY_odiaeresis, XKB_KEY_Odiaeresis, shift, Qt::SHIFT | Qt::Key_Odiaeresis},
             {XKB_KEY_ydiaeresis, 0, 0, Qt::Key_ydiaeresis},
             {XKB_KEY_Cyrillic_io, 0, 0, Qt::Key(0x401)},
             {XKB_KEY_space, XKB_KEY_space, shift, Qt::SHIFT | Qt::Key_Space},
             {XKB_KEY_Tab, XKB_KEY_ISO_Left_Tab, shift, Qt::SHIFT | Qt::Key_Tab},
             {XKB_KEY_Left, 0, shift, Qt::SHIFT | Qt::Key_Left},
             {XKB_KEY_F12, XKB_KEY_F12, 0, Qt::Key_F12},
             {XKB_KEY_dead_acute, XKB_KEY_dead_grave, shift, Qt::Key_Dead_Grave},
             {XKB_KEY_KP_Enter, XKB_KEY_KP_Enter, 0, Qt::Key_Enter},
             {XKB_KEY_KP_Left, XKB_KEY_KP_4, 0, none},
             {XKB_KEY_Control_L, XKB_KEY_Control_L, 0, none},
             {XKB_KEY_NoSymbol, XKB_KEY_NoSymbol, 0, none},
         }) {
        SCOPED_TRACE(testing::Message() << keysym << " with " << modifiers);
        const int combination = key.toCombined();
        const int withMore = combination == 0 ? 0 : combination | int(Qt::CTRL) | int(Qt::META);

        EXPECT_EQ(qtCombination(keysym, shifted, modifiers), combination);
        EXPECT_EQ(qtCombination(keysym, shifted, modifiers | more), withMore);
    }
}

} // namespace corvane::kwin
