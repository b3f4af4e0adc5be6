#include "SimulatedHotKeys.h"

namespace corvane {

SimulatedHotKeys::SimulatedHotKeys(NoticeQueue &notices) : m_notices(notices) { }

qint32 SimulatedHotKeys::registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers)
{
    if (m_missingKeys.contains(keyCode))
        return hotKeyInvalid;
    const Combination combination{keyCode, modifiers};
    if (m_rivals.contains(combination) || !m_registered.emplace(combination, id).second)
        return hotKeyExists;
    return noErr;
}

void SimulatedHotKeys::unregisterHotKey(quint32 id)
{
    std::erase_if(m_registered, [id](const auto &entry) { return entry.second == id; });
}

QString SimulatedHotKeys::label(quint16 keyCode)
{
    return m_labels.value(keyCode);
}

void SimulatedHotKeys::setLabel(quint16 keyCode, const QString &label)
{
    m_labels.insert(keyCode, label);
    Q_EMIT labelsChanged();
}

void SimulatedHotKeys::press(quint16 keyCode, quint32 modifiers)
{
    keyDown(keyCode, modifiers);
    keyUp(keyCode);
}

void SimulatedHotKeys::keyDown(quint16 keyCode, quint32 modifiers)
{
    if (m_keysDown.contains(keyCode))
        return;
    m_keysDown.insert(keyCode);
    const auto registered = m_registered.find({keyCode, modifiers});
    if (registered == m_registered.end())
        return;
    m_notices.post([this, combination = registered->first, id = registered->second] {
        const auto current = m_registered.find(combination);
        if (current != m_registered.end() && current->second == id)
            Q_EMIT pressed(id);
    });
}

void SimulatedHotKeys::keyUp(quint16 keyCode)
{
    m_keysDown.remove(keyCode);
}

void SimulatedHotKeys::takeByRival(quint16 keyCode, quint32 modifiers)
{
    Q_ASSERT(!isRegistered(keyCode, modifiers));
    m_rivals.insert({keyCode, modifiers});
}

void SimulatedHotKeys::removeKey(quint16 keyCode)
{
    m_missingKeys.insert(keyCode);
}

bool SimulatedHotKeys::isRegistered(quint16 keyCode, quint32 modifiers) const
{
    return m_registered.contains({keyCode, modifiers});
}

} // namespace corvane
