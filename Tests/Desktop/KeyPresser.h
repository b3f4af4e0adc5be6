#pragma once

#include "Rect.h"
#include "Waiting.h"
#include "XConnection.h"

namespace corvane::desktop {

/// Physical keys by evdev code, which no keyboard layout changes.
// clang-format off
enum class Key : quint8 {
    escape = 1, digit1 = 2, minus = 12, equal = 13, e = 18, t = 20, o = 24, enter = 28,
    leftControl = 29, d = 32, f = 33, g = 34, leftShift = 42, c = 46, m = 50, slash = 53,
    leftAlt = 56, capsLock = 58, numLock = 69, up = 103, left = 105, right = 106, down = 108,
    leftSuper = 125, menu = 127
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
    enum class Lock { caps, num };
    enum class Button : quint8 { left = 1, right = 3 };

    explicit KeyPresser(XConnection &connection) : m_connection(connection) { }

    /// Modifiers down, key down and up, modifiers up.
    void press(const KeyStroke &stroke);
    /// Keeps the stroke down until the condition holds, so that the key repeats.
    [[nodiscard]] bool holdUntil(const KeyStroke &stroke, const std::function<bool()> &condition,
        Milliseconds deadline = patience);
    /// Returns whether the lock is as asked in the end.
    [[nodiscard]] bool setLock(Lock lock, bool on);
    /// Presses the key that switches to the next keyboard layout; whether it did.
    [[nodiscard]] bool switchLayout();

    /// The two halves of `press`, for measuring: everything before the key goes down, and after.
    void holdModifiers(const KeyStroke &stroke) { setModifiers(stroke, true); }
    void releaseModifiers(const KeyStroke &stroke) { setModifiers(stroke, false); }
    /// Presses or releases one key and flushes, without waiting for the server.
    void key(Key key, bool down);

    /// Pixels of the root window.
    void moveTo(Point point);
    void button(Button button, bool down);
    void click(Point point, Button button = Button::left);

private:
    void tap(Key key);
    void setModifiers(const KeyStroke &stroke, bool down);
    void send(quint8 event, quint8 detail, Point point = {});
    quint16 state();

    XConnection &m_connection;
};

} // namespace corvane::desktop
