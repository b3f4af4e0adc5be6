#include "KeyMap.h"

#include <algorithm>
#include <span>

namespace corvane::x11 {

namespace {

// Keysyms of the modifier keys (X11/keysymdef.h).
constexpr xcb_keysym_t numLockKeysym = 0xff7f;
constexpr xcb_keysym_t altLeftKeysym = 0xffe9;
constexpr xcb_keysym_t altRightKeysym = 0xffea;
constexpr xcb_keysym_t superLeftKeysym = 0xffeb;
constexpr xcb_keysym_t superRightKeysym = 0xffec;

struct PhysicalKey {
    quint16 virtualKeyCode;
    quint8 evdevCode; // linux/input-event-codes.h
};

constexpr std::array physicalKeys{
    PhysicalKey{0, 30},
    PhysicalKey{1, 31},
    PhysicalKey{2, 32},
    PhysicalKey{3, 33},
    PhysicalKey{4, 35},
    PhysicalKey{5, 34},
    PhysicalKey{6, 44},
    PhysicalKey{7, 45},
    PhysicalKey{8, 46},
    PhysicalKey{9, 47},
    PhysicalKey{10, 86},
    PhysicalKey{11, 48},
    PhysicalKey{12, 16},
    PhysicalKey{13, 17},
    PhysicalKey{14, 18},
    PhysicalKey{15, 19},
    PhysicalKey{16, 21},
    PhysicalKey{17, 20},
    PhysicalKey{18, 2},
    PhysicalKey{19, 3},
    PhysicalKey{20, 4},
    PhysicalKey{21, 5},
    PhysicalKey{22, 7},
    PhysicalKey{23, 6},
    PhysicalKey{24, 13},
    PhysicalKey{25, 10},
    PhysicalKey{26, 8},
    PhysicalKey{27, 12},
    PhysicalKey{28, 9},
    PhysicalKey{29, 11},
    PhysicalKey{30, 27},
    PhysicalKey{31, 24},
    PhysicalKey{32, 22},
    PhysicalKey{33, 26},
    PhysicalKey{34, 23},
    PhysicalKey{35, 25},
    PhysicalKey{36, 28},
    PhysicalKey{37, 38},
    PhysicalKey{38, 36},
    PhysicalKey{39, 40},
    PhysicalKey{40, 37},
    PhysicalKey{41, 39},
    PhysicalKey{42, 43},
    PhysicalKey{43, 51},
    PhysicalKey{44, 53},
    PhysicalKey{45, 49},
    PhysicalKey{46, 50},
    PhysicalKey{47, 52},
    PhysicalKey{48, 15},
    PhysicalKey{49, 57},
    PhysicalKey{50, 41},
    PhysicalKey{51, 14},
    PhysicalKey{53, 1},
    PhysicalKey{65, 83},
    PhysicalKey{67, 55},
    PhysicalKey{69, 78},
    PhysicalKey{75, 98},
    PhysicalKey{76, 96},
    PhysicalKey{78, 74},
    PhysicalKey{82, 82},
    PhysicalKey{83, 79},
    PhysicalKey{84, 80},
    PhysicalKey{85, 81},
    PhysicalKey{86, 75},
    PhysicalKey{87, 76},
    PhysicalKey{88, 77},
    PhysicalKey{89, 71},
    PhysicalKey{91, 72},
    PhysicalKey{92, 73},
    PhysicalKey{96, 63},
    PhysicalKey{97, 64},
    PhysicalKey{98, 65},
    PhysicalKey{99, 61},
    PhysicalKey{100, 66},
    PhysicalKey{101, 67},
    PhysicalKey{103, 87},
    PhysicalKey{105, 183},
    PhysicalKey{106, 186},
    PhysicalKey{107, 184},
    PhysicalKey{109, 68},
    PhysicalKey{111, 88},
    PhysicalKey{113, 185},
    PhysicalKey{114, 110},
    PhysicalKey{115, 102},
    PhysicalKey{116, 104},
    PhysicalKey{117, 111},
    PhysicalKey{118, 62},
    PhysicalKey{119, 107},
    PhysicalKey{120, 60},
    PhysicalKey{121, 109},
    PhysicalKey{122, 59},
    PhysicalKey{123, 105},
    PhysicalKey{124, 106},
    PhysicalKey{125, 108},
    PhysicalKey{126, 103},
};

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
    constexpr int xkbOffset = 8;
    const auto key = std::ranges::find(physicalKeys, virtualKeyCode, &PhysicalKey::virtualKeyCode);
    if (key == physicalKeys.end())
        return std::nullopt;
    return static_cast<xcb_keycode_t>(key->evdevCode + xkbOffset);
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
            add(bits.alt, modifier, keycode, {altLeftKeysym, altRightKeysym});
            add(bits.super, modifier, keycode, {superLeftKeysym, superRightKeysym});
            add(bits.numLock, modifier, keycode, {numLockKeysym});
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

} // namespace corvane::x11
