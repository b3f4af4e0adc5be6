#pragma once

#include "Rect.h"
#include "Waiting.h"

#include <QtCore/QByteArray>

#include <array>

namespace corvane::desktop {

/// Physical keys by evdev code, which no keyboard layout changes.
// clang-format off
enum class Key : quint8 {
    escape = 1, digit1 = 2, minus = 12, equal = 13, tab = 15, q = 16, e = 18, r = 19, t = 20, o = 24,
    enter = 28, leftControl = 29, a = 30, s = 31, d = 32, f = 33, g = 34, leftShift = 42, z = 44, c = 46, n = 49,
    m = 50, slash = 53, leftAlt = 56, space = 57, capsLock = 58, f2 = 60, f6 = 64, numLock = 69, up = 103,
    pageUp = 104, left = 105, right = 106, down = 108, pageDown = 109, leftSuper = 125, menu = 127
};
// clang-format on

/// A key held down together with modifiers.
struct KeyStroke {
    static constexpr quint8 control = 1;
    static constexpr quint8 alt = 2;
    static constexpr quint8 shift = 4;
    static constexpr quint8 super = 8;

    quint8 modifiers = 0;
    Key key = Key::enter;
};

/// Presses keys as a keyboard does, and buttons as a mouse does. Each call returns when the desktop has
/// taken it, where nothing else is said.
class Keys
{
public:
    enum class Button : quint8 { left = 1, right = 3 };

    virtual ~Keys() = default;

    /// Modifiers down, key down and up, modifiers up.
    void press(const KeyStroke &stroke)
    {
        static_cast<void>(holdUntil(stroke, [] { return true; }));
    }
    /// Lower-case letters and digits, by the keys that they have on an American keyboard.
    void type(const QByteArray &text)
    {
        constexpr std::array rows{std::pair{Key::digit1, "1234567890"},
            std::pair{Key::q, "qwertyuiop"}, std::pair{Key::a, "asdfghjkl"},
            std::pair{Key::z, "zxcvbnm"}};
        for (const char letter : text) {
            for (const auto &[first, letters] : rows) {
                if (const qsizetype at = QByteArrayView(letters).indexOf(letter); at >= 0)
                    press({0, Key(quint8(first) + at)});
            }
        }
    }
    /// Keeps the stroke down until the condition holds, so that the key repeats.
    [[nodiscard]] bool holdUntil(const KeyStroke &stroke, const std::function<bool()> &condition,
        Milliseconds deadline = patience)
    {
        holdModifiers(stroke);
        key(stroke.key, true);
        const bool held = waitUntil(condition, deadline);
        key(stroke.key, false);
        releaseModifiers(stroke);
        return held;
    }

    /// The two halves of `press`, for measuring: everything before the key goes down, and after.
    void holdModifiers(const KeyStroke &stroke) { setModifiers(stroke, true); }
    void releaseModifiers(const KeyStroke &stroke) { setModifiers(stroke, false); }
    /// Presses or releases one key and flushes, without waiting for the desktop.
    virtual void key(Key key, bool down) = 0;

    /// Pixels of the whole desktop.
    virtual void moveTo(Point point) = 0;
    virtual void button(Button button, bool down) = 0;
    void click(Point point, Button which = Button::left)
    {
        moveTo(point);
        button(which, true);
        button(which, false);
    }

protected:
    /// Returns when the desktop has taken everything so far.
    virtual void sync() = 0;

private:
    void setModifiers(const KeyStroke &stroke, bool down)
    {
        constexpr std::array modifiers{std::pair{KeyStroke::control, Key::leftControl},
            std::pair{KeyStroke::alt, Key::leftAlt}, std::pair{KeyStroke::shift, Key::leftShift},
            std::pair{KeyStroke::super, Key::leftSuper}};
        for (const auto &[bit, modifier] : modifiers) {
            if (stroke.modifiers & bit)
                key(modifier, down);
        }
        sync();
    }
};

} // namespace corvane::desktop
