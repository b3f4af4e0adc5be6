#include "GnomeHotKeys.h"

#include "AgentCompositor.h"
#include "ExtensionHost.h"
#include "Keyboard.h"
#include "PhysicalKey.h"

namespace corvane::gnome {

using namespace Qt::StringLiterals;

namespace {

/// As Mutter reads it: a key by its number, whatever it types on the present layout.
QString acceleratorOf(const PhysicalKey &key, quint32 modifiers)
{
    QString text;
    for (const auto &[modifier, name] :
        {std::pair(HotKeys::controlKey, "<Control>"_L1), {HotKeys::optionKey, "<Alt>"_L1},
            {HotKeys::shiftKey, "<Shift>"_L1}, {HotKeys::cmdKey, "<Super>"_L1}})
        text += modifiers & modifier ? name : ""_L1;
    return text + u"0x%1"_s.arg(key.xkbKeycode(), 0, 16);
}

} // namespace

GnomeHotKeys::GnomeHotKeys(wayland::Keyboard &keyboard, wayland::AgentCompositor &compositor,
    const ExtensionHost &extension)
    : m_keyboard(keyboard), m_compositor(compositor)
{
    connect(&extension, &ExtensionHost::pressed, this, &GnomeHotKeys::pressedAction);
    connect(&compositor, &wayland::Compositor::presenceChanged, this, &GnomeHotKeys::loseAll);
    connect(&keyboard, &wayland::Keyboard::changed, this, &HotKeys::labelsChanged);
}

qint32 GnomeHotKeys::registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers)
{
    const auto key = PhysicalKey::withVirtualKeyCode(keyCode);
    if (!key || (m_keyboard.isKnown() && m_keyboard.keysym(keyCode) == 0))
        return hotKeyInvalid;
    const auto answer =
        m_compositor.ask("grab"_L1, {{"accelerator"_L1, acceleratorOf(*key, modifiers)}});
    if (!answer)
        return static_cast<qint32>(answer.error());
    const auto action = static_cast<quint32>(answer->value("action"_L1).toInteger());
    if (action == 0)
        return hotKeyExists;
    m_actions.insert(id, action);
    return noErr;
}

void GnomeHotKeys::unregisterHotKey(quint32 id)
{
    if (const quint32 action = m_actions.take(id))
        std::ignore = m_compositor.ask("ungrab"_L1, {{"action"_L1, qint64(action)}});
}

QString GnomeHotKeys::label(quint16 keyCode)
{
    return m_keyboard.label(keyCode);
}

void GnomeHotKeys::pressedAction(quint32 action)
{
    if (const quint32 id = m_actions.key(action))
        Q_EMIT pressed(id);
}

/// The extension lets go of everything when it goes.
void GnomeHotKeys::loseAll()
{
    m_actions.clear();
    if (m_compositor.isPresent())
        Q_EMIT registrationsLost();
}

} // namespace corvane::gnome
