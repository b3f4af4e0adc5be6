#include "SwayHotKeys.h"

#include "AXError.h"
#include "PhysicalKey.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>
#include <tuple>
#include <xkbcommon/xkbcommon.h>

namespace corvane::sway {

using namespace wayland;
using namespace Qt::StringLiterals;

namespace {

constexpr auto pressedCommand = "nop corvane-pressed "_L1;

struct ModifierKey {
    quint32 modifier;
    const char *name;
};

constexpr std::array modifierKeys{
    ModifierKey{HotKeys::controlKey, "Ctrl+"},
    ModifierKey{HotKeys::optionKey, "Mod1+"},
    ModifierKey{HotKeys::shiftKey, "Shift+"},
    ModifierKey{HotKeys::cmdKey, "Mod4+"},
};

/// Who gives commands long names still wants a sentence.
QString shortened(const QString &command)
{
    constexpr qsizetype most = 60;
    return command.size() > most ? command.left(most - 1) + u'…' : command;
}

} // namespace

SwayHotKeys::SwayHotKeys(SwayCompositor &compositor, wayland::Keyboard &keyboard)
    : m_compositor(compositor), m_keyboard(keyboard)
{
    connect(&compositor, &SwayCompositor::bindingPressed, this, &SwayHotKeys::press);
    connect(&compositor, &SwayCompositor::bindingsLost, this, &SwayHotKeys::loseAll);
    connect(&keyboard, &wayland::Keyboard::changed, this, &HotKeys::labelsChanged);
}

SwayHotKeys::~SwayHotKeys()
{
    for (const QByteArray &keys : std::as_const(m_keys))
        unbind(keys);
}

qint32 SwayHotKeys::registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers)
{
    if (!m_compositor.isPresent())
        return static_cast<qint32>(AXError::apiDisabled);
    const auto key = PhysicalKey::withVirtualKeyCode(keyCode);
    if (!key || (m_keyboard.isKnown() && m_keyboard.keysym(keyCode) == XKB_KEY_NoSymbol))
        return hotKeyInvalid;
    QByteArray keys;
    for (const auto &[modifier, name] : modifierKeys)
        keys += modifiers & modifier ? name : "";
    keys += QByteArray::number(key->xkbKeycode());
    if (m_keys.values().contains(keys) || configured(keyCode, modifiers))
        return hotKeyExists;
    const qint32 status =
        run("bindcode --no-repeat " + keys + ' ' + pressedCommand.data() + QByteArray::number(id));
    if (status == noErr)
        m_keys.insert(id, keys);
    return status;
}

void SwayHotKeys::unregisterHotKey(quint32 id)
{
    if (const auto keys = m_keys.constFind(id); keys != m_keys.cend()) {
        unbind(*keys);
        m_keys.erase(keys);
    }
}

QString SwayHotKeys::holder(quint16 keyCode, quint32 modifiers)
{
    const Binding *binding = configured(keyCode, modifiers);
    return binding ? QCoreApplication::translate("corvane::sway", "sway's own binding \"%1\"")
                         .arg(shortened(binding->command))
                   : QString();
}

QString SwayHotKeys::label(quint16 keyCode)
{
    return m_keyboard.label(keyCode);
}

void SwayHotKeys::press(const QString &command)
{
    const quint32 id = command.startsWith(pressedCommand) ? command.section(u' ', -1).toUInt() : 0;
    if (m_keys.contains(id))
        Q_EMIT pressed(id);
}

void SwayHotKeys::loseAll()
{
    m_keys.clear();
    m_configured.reset();
    Q_EMIT registrationsLost();
}

qint32 SwayHotKeys::run(const QByteArray &command)
{
    const auto answer = m_compositor.run(command);
    if (!answer)
        return static_cast<qint32>(answer.error());
    return answer->value(0) ? noErr : hotKeyInvalid;
}

void SwayHotKeys::unbind(const QByteArray &keys)
{
    if (!m_compositor.isPresent())
        return;
    std::ignore = run("unbindcode " + keys);
}

const Binding *SwayHotKeys::configured(quint16 keyCode, quint32 modifiers)
{
    if (!m_configured)
        m_configured = m_compositor.configuredBindings();
    const auto key = PhysicalKey::withVirtualKeyCode(keyCode);
    const quint32 keysym = xkb_keysym_to_lower(m_keyboard.keysym(keyCode));
    const auto found = std::ranges::find_if(*m_configured, [&](const Binding &binding) {
        const bool isKey = binding.keycode != 0 ? key && binding.keycode == key->xkbKeycode()
                                                : binding.keysym == keysym;
        return isKey && binding.modifiers == modifiers;
    });
    return found == m_configured->end() ? nullptr : &*found;
}

} // namespace corvane::sway
