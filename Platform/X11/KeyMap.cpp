#include "KeyMap.h"

#include "KeyLabel.h"
#include "PhysicalKey.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <span>

namespace corvane::x11 {

namespace {

struct Keysyms {
    Owned<xcb_get_keyboard_mapping_reply_t> mapping;
    xcb_keycode_t first = 0;

    std::span<const xcb_keysym_t> of(xcb_keycode_t keycode) const
    {
        const int perKey = mapping->keysyms_per_keycode;
        const int at = (keycode - first) * perKey;
        if (keycode < first || at + perKey > xcb_get_keyboard_mapping_keysyms_length(mapping.get()))
            return {};
        return {xcb_get_keyboard_mapping_keysyms(mapping.get()) + at, size_t(perKey)};
    }
};

std::optional<Keysyms> readKeysyms(Connection &connection, xcb_keycode_t first, uint8_t count)
{
    auto mapping = connection.reply<xcb_get_keyboard_mapping_reply_t>(
        xcb_get_keyboard_mapping(connection.xcb(), first, count).sequence);
    if (!mapping)
        return std::nullopt;
    return Keysyms{std::move(*mapping), first};
}

} // namespace

std::optional<xcb_keycode_t> keycodeFor(quint16 virtualKeyCode)
{
    const auto key = PhysicalKey::withVirtualKeyCode(virtualKeyCode);
    return key ? std::optional(static_cast<xcb_keycode_t>(key->xkbKeycode())) : std::nullopt;
}

ModifierBits readModifierBits(Connection &connection)
{
    ModifierBits bits;
    const auto &setup = *xcb_get_setup(connection.xcb());
    const auto modifiers = connection.reply<xcb_get_modifier_mapping_reply_t>(
        xcb_get_modifier_mapping(connection.xcb()).sequence);
    const auto keysyms = readKeysyms(connection, setup.min_keycode,
        static_cast<uint8_t>(setup.max_keycode - setup.min_keycode + 1));
    if (!modifiers || !keysyms)
        return bits;

    const xcb_keycode_t *keycodes = xcb_get_modifier_mapping_keycodes(modifiers->get());
    const int perModifier = (*modifiers)->keycodes_per_modifier;
    const auto add = [&](quint16 &field, int modifier, xcb_keycode_t keycode,
                         std::initializer_list<xcb_keysym_t> wanted) {
        const auto symbols = keysyms->of(keycode);
        if (std::ranges::find_first_of(symbols, wanted) != symbols.end())
            field = static_cast<quint16>(field | 1 << modifier);
    };
    // Shift, Lock and Control have fixed places; the other five are the keyboard's to assign.
    for (int modifier = XCB_MAP_INDEX_1; modifier <= XCB_MAP_INDEX_5; ++modifier) {
        for (int i = 0; i < perModifier; ++i) {
            const xcb_keycode_t keycode = keycodes[modifier * perModifier + i];
            add(bits.alt, modifier, keycode, {XKB_KEY_Alt_L, XKB_KEY_Alt_R});
            add(bits.super, modifier, keycode, {XKB_KEY_Super_L, XKB_KEY_Super_R});
            add(bits.numLock, modifier, keycode, {XKB_KEY_Num_Lock});
        }
    }
    // One bit is enough to press the key; a second one would have to be held as well.
    bits.alt &= -bits.alt;
    bits.super &= -bits.super;
    return bits;
}

bool hasKey(Connection &connection, xcb_keycode_t keycode)
{
    const auto &setup = *xcb_get_setup(connection.xcb());
    if (keycode < setup.min_keycode || keycode > setup.max_keycode)
        return false;
    const auto keysyms = readKeysyms(connection, keycode, 1);
    return keysyms && std::ranges::any_of(keysyms->of(keycode), [](xcb_keysym_t k) { return k; });
}

QString labelOf(Connection &connection, xcb_keycode_t keycode)
{
    const auto keysyms = readKeysyms(connection, keycode, 1);
    if (!keysyms || keysyms->of(keycode).empty())
        return {};
    return keyLabel(keysyms->of(keycode).front());
}

} // namespace corvane::x11
