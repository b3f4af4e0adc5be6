#pragma once

#include "HotKeys.h"
#include "KeyMap.h"

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QSet>

namespace corvane::x11 {

/// Passive key grabs on the root window, by keycode, so that they hold on every keyboard layout.
class X11HotKeys final : public HotKeys, private EventSink
{
    Q_OBJECT

public:
    /// `isUsable`: false in a session where a grab would see no key.
    X11HotKeys(Connection &connection, bool isUsable);
    ~X11HotKeys() override;

    qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;
    QString label(quint16 keyCode) override;

private:
    struct Registration {
        xcb_keycode_t keycode = 0;
        quint32 modifiers = 0; ///< as registered
        quint16 bits = 0; ///< on this keyboard

        bool operator==(const Registration &) const = default;
    };

    void handle(const xcb_generic_event_t &event) override;
    void keyWentDown(const xcb_key_press_event_t &event);
    void reviewSoon();
    void review();

    [[nodiscard]] qint32 registerAnswered(quint32 id, quint16 keyCode, quint32 modifiers);
    /// What is grabbed, or should be: a key with modifiers, locks among them.
    using Combination = std::pair<xcb_keycode_t, quint16>;

    [[nodiscard]] QSet<Combination> combinations() const;
    [[nodiscard]] std::optional<quint16> bitsFor(quint32 modifiers) const;
    [[nodiscard]] QList<quint16> lockVariants(quint16 bits) const;
    [[nodiscard]] qint32 grab(const Registration &registration);
    void ungrab(const Registration &registration);

    Connection &m_connection;
    bool m_isUsable;
    uint8_t m_keyboardEvent = 0; ///< tells of another keyboard map; 0 where MappingNotify does
    ModifierBits m_bits;
    QMap<quint32, Registration> m_registrations;
    QHash<xcb_keycode_t, xcb_timestamp_t> m_held; ///< keys that are down, when last heard of
    QHash<quint16, QString> m_labels; ///< by key code, of the keys that were asked for
    bool m_reviewScheduled = false;
    bool m_missedAnswer = false; ///< to a registration
};

} // namespace corvane::x11
