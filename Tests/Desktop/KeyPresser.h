#pragma once

#include "Rect.h"
#include "Waiting.h"
#include "XConnection.h"

#include <xcb/xtest.h>

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

/// Presses keys as a keyboard does, and buttons as a mouse does (XTEST). Each call returns when the
/// server has taken it, where nothing else is said.
class KeyPresser
{
public:
    enum class Button : quint8 { left = 1, right = 3 };

    explicit KeyPresser(XConnection &connection) : m_connection(connection) { }

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
    /// Presses a lock, or the key that switches to the next keyboard layout; whether it did.
    [[nodiscard]] bool toggle(Key which)
    {
        const quint16 before = state();
        press({0, which});
        return waitUntil([&] { return state() != before; });
    }

    /// The two halves of `press`, for measuring: everything before the key goes down, and after.
    void holdModifiers(const KeyStroke &stroke) { setModifiers(stroke, true); }
    void releaseModifiers(const KeyStroke &stroke) { setModifiers(stroke, false); }
    /// Presses or releases one key and flushes, without waiting for the server.
    void key(Key key, bool down)
    {
        constexpr quint8 evdevOffset = 8;
        send(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, static_cast<quint8>(key) + evdevOffset);
        xcb_flush(m_connection.raw());
    }

    /// Pixels of the root window.
    void moveTo(Point point)
    {
        send(XCB_MOTION_NOTIFY, 0, point);
        m_connection.sync();
    }
    void button(Button button, bool down)
    {
        send(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<quint8>(button));
        m_connection.sync();
    }
    void click(Point point, Button which = Button::left)
    {
        moveTo(point);
        button(which, true);
        button(which, false);
    }

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
        m_connection.sync();
    }
    void send(quint8 event, quint8 detail, Point point = {})
    {
        xcb_test_fake_input(m_connection.raw(), event, detail, XCB_CURRENT_TIME,
            m_connection.root(), static_cast<qint16>(point.x), static_cast<qint16>(point.y), 0);
    }
    /// Of modifiers, locks and the keyboard layout.
    quint16 state() const
    {
        const auto pointer = m_connection.reply<xcb_query_pointer_reply>(
            xcb_query_pointer(m_connection.raw(), m_connection.root()));
        return pointer ? pointer->mask : quint16(0);
    }

    XConnection &m_connection;
};

} // namespace corvane::desktop
