#include "KeyLabel.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace corvane {

namespace {

/// Keys that type nothing by themselves bear the accent that they put on the next letter.
struct DeadKey {
    xkb_keysym_t keysym;
    char16_t accent;
};

constexpr std::array deadKeys{
    DeadKey{XKB_KEY_dead_grave, u'`'},
    DeadKey{XKB_KEY_dead_acute, u'\u00b4'},
    DeadKey{XKB_KEY_dead_circumflex, u'^'},
    DeadKey{XKB_KEY_dead_tilde, u'~'},
    DeadKey{XKB_KEY_dead_diaeresis, u'\u00a8'},
    DeadKey{XKB_KEY_dead_cedilla, u'\u00b8'},
    DeadKey{XKB_KEY_dead_abovering, u'\u02da'},
    DeadKey{XKB_KEY_dead_caron, u'\u02c7'},
};

char32_t characterOf(xkb_keysym_t keysym)
{
    const auto *const dead = std::ranges::find(deadKeys, keysym, &DeadKey::keysym);
    return dead == deadKeys.end() ? xkb_keysym_to_utf32(keysym) : dead->accent;
}

bool isPrintedInLatin(char32_t character)
{
    const QChar::Script script = QChar::script(character);
    return QChar::isPrint(character) && !QChar::isSpace(character)
        && (script == QChar::Script_Latin || script == QChar::Script_Common);
}

} // namespace

QString keyLabel(quint32 keysym)
{
    const char32_t character = characterOf(keysym);
    if (!isPrintedInLatin(character))
        return {};
    const QString typed = QString::fromUcs4(&character, 1);
    const QString capital = typed.toUpper();
    return capital.size() == typed.size() ? capital : typed; // German has a key for ß
}

} // namespace corvane
