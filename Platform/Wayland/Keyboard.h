#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

namespace corvane::wayland {

class Connection;

/// The keyboard of the seat, by the keymap that the compositor hands to every client.
class Keyboard final : public QObject
{
    Q_OBJECT

public:
    enum class Level {
        plain, ///< what a key types by itself
        shifted,
    };

    explicit Keyboard(Connection &connection);
    ~Keyboard() override;

    /// The symbol (xkbcommon's number) that the physical key (macOS virtual key code) types on the first
    /// layout; 0 where the keyboard lacks the key, or Shift makes nothing else of it.
    [[nodiscard]] quint32 keysym(quint16 virtualKeyCode, Level level = Level::plain) const;
    /// As `HotKeys::label`.
    [[nodiscard]] QString label(quint16 virtualKeyCode) const;
    /// Whether the compositor has handed out a keymap; a seat without a keyboard has none.
    [[nodiscard]] bool isKnown() const;

Q_SIGNALS:
    void changed();

private:
    struct Seat;

    std::unique_ptr<Seat> m_seat; ///< null before the compositor has told of one
};

} // namespace corvane::wayland
