#pragma once

#include <QtCore/QHashFunctions>
#include <QtCore/QJsonValue>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace corvane {

/// A physical key with modifiers: a macOS virtual key code (kVK numbering) and AppKit modifier bits.
struct KeyCombo {
    static constexpr quint64 shift = 0x20000;
    static constexpr quint64 control = 0x40000;
    static constexpr quint64 option = 0x80000;
    static constexpr quint64 command = 0x100000;
    static constexpr quint64 modifierMask = shift | control | option | command;

    quint16 keyCode = 0;
    quint64 modifiers = 0; ///< masked when made from a key press, kept whole when read from a file

    constexpr KeyCombo() = default;
    constexpr KeyCombo(quint16 code, quint64 bits) : keyCode(code), modifiers(bits & modifierMask)
    {
    }

    constexpr bool hasShift() const { return modifiers & shift; }
    constexpr bool hasControl() const { return modifiers & control; }
    constexpr bool hasOption() const { return modifiers & option; }
    constexpr bool hasCommand() const { return modifiers & command; }

    /// One text per key cap: the modifiers' glyphs, then the key's name.
    [[nodiscard]] QStringList parts() const;
    /// The parts in one piece, such as "⌃⌥←".
    [[nodiscard]] QString display() const;
    /// The key's name on the US layout, whatever layout is in use.
    [[nodiscard]] static QString keyName(quint16 keyCode);

    [[nodiscard]] QJsonValue toJson() const;
    /// Absent unless both fields are there and are whole numbers in range.
    [[nodiscard]] static std::optional<KeyCombo> fromJson(const QJsonValue &json);

    constexpr bool operator==(const KeyCombo &) const = default;
};

inline size_t qHash(const KeyCombo &combo, size_t seed = 0) noexcept
{
    return qHashMulti(seed, combo.keyCode, combo.modifiers);
}

} // namespace corvane
