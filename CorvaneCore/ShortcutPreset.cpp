#include "ShortcutPreset.h"

#include "EnumTable.h"

#include <span>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;

struct ShortcutRow {
    Placement placement;
    KeyCombo combo;
};

struct PresetRow {
    ShortcutPreset value;
    QLatin1StringView name;
    std::span<const ShortcutRow> shortcuts;
};

constexpr quint64 plain = KeyCombo::control | KeyCombo::option;
constexpr quint64 withCommand = plain | KeyCombo::command;
constexpr quint64 withShift = plain | KeyCombo::shift;

namespace Key {
constexpr quint16 c = 8;
constexpr quint16 d = 2;
constexpr quint16 e = 14;
constexpr quint16 f = 3;
constexpr quint16 g = 5;
constexpr quint16 i = 34;
constexpr quint16 j = 38;
constexpr quint16 k = 40;
constexpr quint16 m = 46;
constexpr quint16 o = 31;
constexpr quint16 t = 17;
constexpr quint16 u = 32;
constexpr quint16 equal = 24;
constexpr quint16 minus = 27;
constexpr quint16 slash = 44;
constexpr quint16 enter = 36;
constexpr quint16 backspace = 51;
constexpr quint16 left = 123;
constexpr quint16 right = 124;
constexpr quint16 down = 125;
constexpr quint16 up = 126;
} // namespace Key

constexpr std::array sizeUpShortcuts{
    ShortcutRow{leftHalf, {Key::left, withCommand}},
    ShortcutRow{rightHalf, {Key::right, withCommand}},
    ShortcutRow{topHalf, {Key::up, withCommand}},
    ShortcutRow{bottomHalf, {Key::down, withCommand}},
    // The quarters turn clockwise from the top left.
    ShortcutRow{topLeft, {Key::left, withShift}},
    ShortcutRow{topRight, {Key::up, withShift}},
    ShortcutRow{bottomRight, {Key::right, withShift}},
    ShortcutRow{bottomLeft, {Key::down, withShift}},
    ShortcutRow{maximize, {Key::m, withCommand}},
    ShortcutRow{center, {Key::c, withCommand}},
    ShortcutRow{snapBack, {Key::slash, withCommand}},
    ShortcutRow{original, {Key::o, withCommand}},
    ShortcutRow{nextDisplay, {Key::right, plain}},
    ShortcutRow{previousDisplay, {Key::left, plain}},
    ShortcutRow{leftThird, {Key::d, plain}},
    ShortcutRow{centerThird, {Key::f, plain}},
    ShortcutRow{rightThird, {Key::g, plain}},
    ShortcutRow{leftTwoThirds, {Key::e, plain}},
    ShortcutRow{rightTwoThirds, {Key::t, plain}},
    ShortcutRow{larger, {Key::equal, plain}},
    ShortcutRow{smaller, {Key::minus, plain}},
};

constexpr std::array rectangleShortcuts{
    ShortcutRow{leftHalf, {Key::left, plain}},
    ShortcutRow{rightHalf, {Key::right, plain}},
    ShortcutRow{topHalf, {Key::up, plain}},
    ShortcutRow{bottomHalf, {Key::down, plain}},
    ShortcutRow{topLeft, {Key::u, plain}},
    ShortcutRow{topRight, {Key::i, plain}},
    ShortcutRow{bottomLeft, {Key::j, plain}},
    ShortcutRow{bottomRight, {Key::k, plain}},
    ShortcutRow{leftThird, {Key::d, plain}},
    ShortcutRow{centerThird, {Key::f, plain}},
    ShortcutRow{rightThird, {Key::g, plain}},
    ShortcutRow{leftTwoThirds, {Key::e, plain}},
    ShortcutRow{rightTwoThirds, {Key::t, plain}},
    ShortcutRow{maximize, {Key::enter, plain}},
    ShortcutRow{almostMaximize, {Key::enter, withShift}},
    ShortcutRow{center, {Key::c, plain}},
    ShortcutRow{larger, {Key::equal, plain}},
    ShortcutRow{smaller, {Key::minus, plain}},
    ShortcutRow{nextDisplay, {Key::right, withCommand}},
    ShortcutRow{previousDisplay, {Key::left, withCommand}},
    ShortcutRow{snapBack, {Key::backspace, plain}},
    ShortcutRow{original, {Key::o, plain}},
};

constexpr EnumTable<ShortcutPreset::rectangle, PresetRow> presetTable{{{
    {ShortcutPreset::sizeUp, "SizeUp"_L1, sizeUpShortcuts},
    {ShortcutPreset::rectangle, "Rectangle"_L1, rectangleShortcuts},
}}};
static_assert(presetTable.cases() == shortcutPresets);

} // namespace

QString rawValue(ShortcutPreset preset)
{
    return presetTable[preset].name;
}

QString title(ShortcutPreset preset)
{
    return presetTable[preset].name;
}

std::optional<ShortcutPreset> shortcutPresetNamed(QStringView name)
{
    return presetTable.named(name);
}

ShortcutMap map(ShortcutPreset preset)
{
    ShortcutMap shortcuts;
    for (const ShortcutRow &row : presetTable[preset].shortcuts)
        shortcuts.insert(row.placement, row.combo);
    return shortcuts;
}

std::optional<ShortcutPreset> matching(const ShortcutMap &shortcuts)
{
    for (const ShortcutPreset preset : shortcutPresets) {
        if (map(preset) == shortcuts)
            return preset;
    }
    return std::nullopt;
}

} // namespace corvane
