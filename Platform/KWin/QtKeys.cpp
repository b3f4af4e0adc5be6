#include "QtKeys.h"

#include "HotKeys.h"

#include <QtCore/QChar>
#include <QtCore/Qt>

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace corvane::kwin {

namespace {

struct SpecialKey {
    xkb_keysym_t keysym;
    int key;
};

constexpr std::array specialKeys{
    SpecialKey{XKB_KEY_Escape, Qt::Key_Escape},
    SpecialKey{XKB_KEY_Tab, Qt::Key_Tab},
    SpecialKey{XKB_KEY_ISO_Left_Tab, Qt::Key_Tab}, // KWin takes Shift with Tab for that
    SpecialKey{XKB_KEY_BackSpace, Qt::Key_Backspace},
    SpecialKey{XKB_KEY_Return, Qt::Key_Return},
    SpecialKey{XKB_KEY_KP_Enter, Qt::Key_Enter},
    SpecialKey{XKB_KEY_Insert, Qt::Key_Insert},
    SpecialKey{XKB_KEY_Delete, Qt::Key_Delete},
    SpecialKey{XKB_KEY_Help, Qt::Key_Help},
    SpecialKey{XKB_KEY_Menu, Qt::Key_Menu},
    SpecialKey{XKB_KEY_Home, Qt::Key_Home},
    SpecialKey{XKB_KEY_End, Qt::Key_End},
    SpecialKey{XKB_KEY_Left, Qt::Key_Left},
    SpecialKey{XKB_KEY_Up, Qt::Key_Up},
    SpecialKey{XKB_KEY_Right, Qt::Key_Right},
    SpecialKey{XKB_KEY_Down, Qt::Key_Down},
    SpecialKey{XKB_KEY_Prior, Qt::Key_PageUp},
    SpecialKey{XKB_KEY_Next, Qt::Key_PageDown},
    SpecialKey{XKB_KEY_KP_Add, Qt::Key_Plus},
    SpecialKey{XKB_KEY_KP_Subtract, Qt::Key_Minus},
    SpecialKey{XKB_KEY_KP_Multiply, Qt::Key_Asterisk},
    SpecialKey{XKB_KEY_KP_Divide, Qt::Key_Slash},
    SpecialKey{XKB_KEY_dead_grave, Qt::Key_Dead_Grave},
    SpecialKey{XKB_KEY_dead_acute, Qt::Key_Dead_Acute},
    SpecialKey{XKB_KEY_dead_circumflex, Qt::Key_Dead_Circumflex},
    SpecialKey{XKB_KEY_dead_tilde, Qt::Key_Dead_Tilde},
    SpecialKey{XKB_KEY_dead_diaeresis, Qt::Key_Dead_Diaeresis},
    SpecialKey{XKB_KEY_dead_abovering, Qt::Key_Dead_Abovering},
    SpecialKey{XKB_KEY_dead_caron, Qt::Key_Dead_Caron},
    SpecialKey{XKB_KEY_dead_cedilla, Qt::Key_Dead_Cedilla},
};

bool isOfKeypad(xkb_keysym_t keysym)
{
    return keysym >= XKB_KEY_KP_Space && keysym <= XKB_KEY_KP_Equal;
}

int modifiersOf(quint32 modifiers)
{
    const auto bit = [&](quint32 modifier, Qt::KeyboardModifier is) {
        return modifiers & modifier ? int(is) : 0;
    };
    return bit(HotKeys::cmdKey, Qt::MetaModifier) | bit(HotKeys::shiftKey, Qt::ShiftModifier)
        | bit(HotKeys::optionKey, Qt::AltModifier) | bit(HotKeys::controlKey, Qt::ControlModifier);
}

} // namespace

int qtKey(quint32 keysym)
{
    const auto *const special = std::ranges::find(specialKeys, keysym, &SpecialKey::keysym);
    if (special != specialKeys.end())
        return special->key;
    if (keysym >= XKB_KEY_F1 && keysym <= XKB_KEY_F35)
        return Qt::Key_F1 + int(keysym - XKB_KEY_F1);
    if (isOfKeypad(keysym))
        return 0;
    const char32_t character = xkb_keysym_to_utf32(keysym);
    if (character < U' ' || (!QChar::isPrint(character) && character != U' '))
        return 0;
    // Qt numbers all other keys by their capital letters, but for those of Latin-1 that have theirs
    // elsewhere.
    constexpr char32_t lastOfLatin1 = 0xff;
    const char32_t capital = QChar::toUpper(character);
    return int(character <= lastOfLatin1 && capital > lastOfLatin1 ? character : capital);
}

int qtCombination(quint32 keysym, quint32 shiftedKeysym, quint32 modifiers)
{
    const int key = qtKey(keysym);
    if (key == 0 || !(modifiers & HotKeys::shiftKey))
        return key == 0 ? 0 : key | modifiersOf(modifiers);
    const int shifted = qtKey(shiftedKeysym);
    if (shifted == key || shiftedKeysym == XKB_KEY_NoSymbol)
        return key | modifiersOf(modifiers);
    return shifted == 0 ? 0 : shifted | modifiersOf(modifiers & ~HotKeys::shiftKey);
}

} // namespace corvane::kwin
