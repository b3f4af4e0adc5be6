#include "HotKey.h"

#include "FlightRecorder.h"
#include "KeyCombo.h"
#include "Platform.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>

#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QHash<quint32, std::function<void()>> &actions()
{
    static QHash<quint32, std::function<void()>> table;
    return table;
}

quint32 nextId()
{
    static quint32 last = 0;
    if (last == std::numeric_limits<quint32>::max())
        qFatal("Corvane: out of hot key numbers");
    return ++last;
}

void installHandler(HotKeys &hotKeys)
{
    static QPointer<HotKeys> installed;
    if (installed == &hotKeys)
        return;
    installed = &hotKeys;
    QObject::connect(&hotKeys, &HotKeys::pressed, &hotKeys, [](quint32 id) {
        // A copy: the action may register the whole set anew.
        if (const auto action = actions().value(id))
            action();
    });
}

quint32 registrationModifiers(quint64 flags)
{
    quint32 modifiers = 0;
    if (flags & KeyCombo::command)
        modifiers |= HotKeys::cmdKey;
    if (flags & KeyCombo::option)
        modifiers |= HotKeys::optionKey;
    if (flags & KeyCombo::control)
        modifiers |= HotKeys::controlKey;
    if (flags & KeyCombo::shift)
        modifiers |= HotKeys::shiftKey;
    return modifiers;
}

} // namespace

HotKey::HotKey(quint16 keyCode, quint64 flags, std::function<void()> action) : m_id(nextId())
{
    HotKeys &hotKeys = Platform::current().hotKeys();
    installHandler(hotKeys);
    actions().emplace(m_id, std::move(action));
    m_status = hotKeys.registerHotKey(m_id, keyCode, registrationModifiers(flags));
    m_isRegistered = m_status == HotKeys::noErr;
    if (!m_isRegistered)
        FlightRecorder::shared().record(u"hotkey"_s,
            u"Corvane: could not register hotkey (code %1): OSStatus %2"_s.arg(keyCode).arg(
                m_status));
}

HotKey::~HotKey()
{
    if (m_isRegistered)
        Platform::current().hotKeys().unregisterHotKey(m_id);
    actions().remove(m_id);
}

} // namespace corvane
