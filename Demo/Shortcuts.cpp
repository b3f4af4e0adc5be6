#include "Shortcuts.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace corvane::demo {

using desktop::Key;
using desktop::KeyStroke;

namespace {

using enum Placement;

struct ShortcutRow {
    Placement placement;
    KeyStroke stroke;
};

constexpr quint8 plain = KeyStroke::control | KeyStroke::alt;
constexpr quint8 withSuper = plain | KeyStroke::super;
constexpr quint8 withShift = plain | KeyStroke::shift;

// What the manual promises, apart from the program's own table.
constexpr std::array shortcutTable{
    ShortcutRow{leftHalf, {withSuper, Key::left}},
    ShortcutRow{rightHalf, {withSuper, Key::right}},
    ShortcutRow{topHalf, {withSuper, Key::up}},
    ShortcutRow{bottomHalf, {withSuper, Key::down}},
    ShortcutRow{topLeft, {withShift, Key::left}},
    ShortcutRow{topRight, {withShift, Key::up}},
    ShortcutRow{bottomRight, {withShift, Key::right}},
    ShortcutRow{bottomLeft, {withShift, Key::down}},
    ShortcutRow{maximize, {withSuper, Key::m}},
    ShortcutRow{center, {withSuper, Key::c}},
    ShortcutRow{snapBack, {withSuper, Key::slash}},
    ShortcutRow{original, {withSuper, Key::o}},
    ShortcutRow{nextDisplay, {plain, Key::right}},
    ShortcutRow{previousDisplay, {plain, Key::left}},
    ShortcutRow{leftThird, {plain, Key::d}},
    ShortcutRow{centerThird, {plain, Key::f}},
    ShortcutRow{rightThird, {plain, Key::g}},
    ShortcutRow{leftTwoThirds, {plain, Key::e}},
    ShortcutRow{rightTwoThirds, {plain, Key::t}},
    ShortcutRow{larger, {plain, Key::equal}},
    ShortcutRow{smaller, {plain, Key::minus}},
};

constexpr std::array modifierNames{
    std::pair{KeyStroke::control, "Ctrl"},
    std::pair{KeyStroke::alt, "Alt"},
    std::pair{KeyStroke::shift, "Shift"},
    std::pair{KeyStroke::super, "Super"},
};

constexpr std::array keyNames{
    std::pair{Key::left, "Left"},
    std::pair{Key::right, "Right"},
    std::pair{Key::up, "Up"},
    std::pair{Key::down, "Down"},
    std::pair{Key::c, "C"},
    std::pair{Key::d, "D"},
    std::pair{Key::e, "E"},
    std::pair{Key::f, "F"},
    std::pair{Key::g, "G"},
    std::pair{Key::m, "M"},
    std::pair{Key::o, "O"},
    std::pair{Key::t, "T"},
    std::pair{Key::equal, "="},
    std::pair{Key::minus, "-"},
    std::pair{Key::slash, "/"},
};

} // namespace

std::optional<KeyStroke> shortcut(Placement placement)
{
    const auto row = std::ranges::find(shortcutTable, placement, &ShortcutRow::placement);
    return row == shortcutTable.end() ? std::nullopt : std::optional(row->stroke);
}

QString keysText(const KeyStroke &stroke)
{
    QStringList parts;
    for (const auto &[bit, name] : modifierNames) {
        if (stroke.modifiers & bit)
            parts << QString::fromLatin1(name);
    }
    const auto key =
        std::ranges::find(keyNames, stroke.key, [](const auto &row) { return row.first; });
    Q_ASSERT(key != keyNames.end());
    parts << QString::fromLatin1(key->second);
    return parts.join(u'+');
}

} // namespace corvane::demo
