#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

namespace corvane {

/// System-wide hot keys: physical keys with modifiers.
class HotKeys : public QObject
{
    Q_OBJECT

public:
    /// The modifiers of a hot key, as bits; the numbers are the Carbon event manager's.
    static constexpr quint32 cmdKey = 0x100;
    static constexpr quint32 shiftKey = 0x200;
    static constexpr quint32 optionKey = 0x800;
    static constexpr quint32 controlKey = 0x1000;

    static constexpr qint32 noErr = 0;
    static constexpr qint32 hotKeyExists = -9878; ///< another program holds the combination
    static constexpr qint32 hotKeyInvalid = -9879; ///< this keyboard lacks the key or a modifier

    /// Registers the physical key (macOS virtual key code) under `id`, which the caller keeps unique.
    /// Returns `noErr`, one of the statuses above, or an `AXError` number.
    [[nodiscard]] virtual qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) = 0;
    /// Forgets the registration; an unknown `id` is no error.
    virtual void unregisterHotKey(quint32 id) = 0;

    /// Who else holds the combination, in words for the user, such as "the command “exec foot” of sway".
    /// Empty where nobody does, or the desktop does not tell.
    [[nodiscard]] virtual QString holder(quint16 keyCode, quint32 modifiers)
    {
        Q_UNUSED(keyCode)
        Q_UNUSED(modifiers)
        return {};
    }

    /// What this keyboard prints on the key: a letter or a sign of the Latin script, as its first layout
    /// has it. Empty where that is none, or unknown.
    [[nodiscard]] virtual QString label(quint16 keyCode) = 0;

Q_SIGNALS:
    /// The key went down; repeats of a held key are not reported.
    void pressed(quint32 id);
    /// The desktop dropped every registration: register the whole set again.
    void registrationsLost();
    /// There is another keyboard, or another layout on it.
    void labelsChanged();
};

} // namespace corvane
