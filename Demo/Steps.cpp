#include "Steps.h"

#include <algorithm>

namespace corvane::demo {

using namespace Qt::StringLiterals;
using desktop::Key;
using desktop::KeyStroke;
using enum Application;
using enum Placement;

namespace {

QList<Step> inTurn(Application application, const QList<Placement> &placements)
{
    QList<Step> steps;
    for (const Placement placement : placements)
        steps << Step{application, placement};
    return steps;
}

struct ShortcutRow {
    Placement placement;
    quint8 modifiers;
    Key key;
    const char *keyName;
};

constexpr quint8 plain = KeyStroke::control | KeyStroke::alt;
constexpr quint8 withSuper = plain | KeyStroke::super;
constexpr quint8 withShift = plain | KeyStroke::shift;

// What the manual promises, apart from the program's own table.
constexpr std::array shortcutTable{
    ShortcutRow{leftHalf, withSuper, Key::left, "Left"},
    ShortcutRow{rightHalf, withSuper, Key::right, "Right"},
    ShortcutRow{topHalf, withSuper, Key::up, "Up"},
    ShortcutRow{bottomHalf, withSuper, Key::down, "Down"},
    ShortcutRow{topLeft, withShift, Key::left, "Left"},
    ShortcutRow{topRight, withShift, Key::up, "Up"},
    ShortcutRow{bottomRight, withShift, Key::right, "Right"},
    ShortcutRow{bottomLeft, withShift, Key::down, "Down"},
    ShortcutRow{maximize, withSuper, Key::m, "M"},
    ShortcutRow{center, withSuper, Key::c, "C"},
    ShortcutRow{snapBack, withSuper, Key::slash, "/"},
    ShortcutRow{original, withSuper, Key::o, "O"},
    ShortcutRow{nextDisplay, plain, Key::right, "Right"},
    ShortcutRow{previousDisplay, plain, Key::left, "Left"},
    ShortcutRow{leftThird, plain, Key::d, "D"},
    ShortcutRow{centerThird, plain, Key::f, "F"},
    ShortcutRow{rightThird, plain, Key::g, "G"},
    ShortcutRow{leftTwoThirds, plain, Key::e, "E"},
    ShortcutRow{rightTwoThirds, plain, Key::t, "T"},
    ShortcutRow{larger, plain, Key::equal, "="},
    ShortcutRow{smaller, plain, Key::minus, "-"},
};

} // namespace

QList<Chapter> scenario()
{
    return {
        {u"2-quarters.png"_s,
            inTurn(terminal, {leftHalf, rightHalf, topHalf, bottomHalf, topLeft})
                + inTurn(notes, {topRight}) + inTurn(gallery, {bottomLeft})
                + inTurn(source, {bottomRight})
                // This one insists on being larger than a quarter.
                + inTurn(icons, {bottomRight}) + QList<Step>{{icons, leftHalf, leftHalf, true}}},
        {u"3-sixths.png"_s,
            QList<Step>{{notes, leftHalf}, {notes, leftHalf, leftTwoThirds},
                {notes, leftHalf, leftThird}, {notes, nextDisplay, leftThird},
                {notes, previousDisplay, leftThird}}
                + inTurn(terminal, {leftTwoThirds, centerThird, rightThird, smaller, larger})
                + inTurn(
                    gallery, {rightTwoThirds, maximize, center, larger, smaller, almostMaximize})
                + inTurn(icons, {maximize}) + inTurn(notes, {topLeftSixth})
                + inTurn(gallery, {topCenterSixth}) + inTurn(terminal, {topRightSixth})
                + inTurn(source, {bottomLeftSixth, bottomCenterSixth, bottomRightSixth})},
        {u"4-originals.png"_s,
            inTurn(notes, {snapBack, snapBack, snapBack, snapBack, original})
                + inTurn(terminal, {original}) + inTurn(gallery, {original})
                + inTurn(source, {original}) + inTurn(icons, {original})},
        {u"5-after.png"_s,
            inTurn(source, {nextDisplay, leftThird}) + inTurn(icons, {rightTwoThirds})
                + inTurn(gallery, {bottomRight}) + inTurn(notes, {topRight})
                + inTurn(terminal, {leftHalf})},
    };
}

std::optional<Shortcut> shortcut(Placement placement)
{
    const auto row = std::ranges::find(shortcutTable, placement, &ShortcutRow::placement);
    if (row == shortcutTable.end())
        return std::nullopt;
    const QString modifiers = row->modifiers == withSuper ? u"Ctrl+Alt+Super+"_s
        : row->modifiers == withShift                     ? u"Ctrl+Alt+Shift+"_s
                                                          : u"Ctrl+Alt+"_s;
    return Shortcut{{row->modifiers, row->key}, modifiers + QString::fromLatin1(row->keyName)};
}

} // namespace corvane::demo
