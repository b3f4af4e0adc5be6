#include "KWinHotKeys.h"

#include "Keyboard.h"
#include "QtKeys.h"

#include <QtGui/QKeySequence>

#include <algorithm>

namespace corvane::kwin {

using namespace Qt::StringLiterals;

namespace {

QString actionOf(quint16 keyCode, quint32 modifiers)
{
    return u"key-%1-%2"_s.arg(keyCode).arg(modifiers, 0, 16);
}

} // namespace

KWinHotKeys::KWinHotKeys(wayland::Keyboard &keyboard) : m_keyboard(keyboard)
{
    m_release.setSingleShot(true);
    m_release.setInterval(0);
    connect(&m_release, &QTimer::timeout, this, &KWinHotKeys::releaseLeftovers);
    connect(&m_shortcuts, &GlobalAccel::pressed, this, &KWinHotKeys::pressedAction);
    connect(&m_shortcuts, &GlobalAccel::changed, this, &KWinHotKeys::loseAll);
    connect(&m_shortcuts, &GlobalAccel::restarted, this, [this] {
        m_knowsLeftovers = false;
        loseAll();
    });
    connect(&m_keyboard, &wayland::Keyboard::changed, this, [this] {
        Q_EMIT labelsChanged();
        loseAll();
    });
}

KWinHotKeys::~KWinHotKeys()
{
    while (!m_registrations.isEmpty())
        unregisterHotKey(m_registrations.firstKey());
}

qint32 KWinHotKeys::registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers)
{
    const int key = qtKeyOf(keyCode, modifiers);
    if (key == 0)
        return hotKeyInvalid;
    const QString action = actionOf(keyCode, modifiers);
    const bool isOurs = std::ranges::any_of(m_registrations,
        [&](const Registration &registration) { return registration.action == action; });
    if (isOurs)
        return hotKeyExists;
    const QString title =
        tr("Shortcut %1").arg(QKeySequence(key).toString(QKeySequence::NativeText));
    readLeftovers();
    const bool isKnown = m_leftovers.remove(action) || m_setAside.remove(action);
    m_release.start();
    const auto grant = m_shortcuts.take({.name = action, .title = title, .key = key}, isKnown);
    if (!grant)
        return static_cast<qint32>(grant.error());
    if (grant->key != 0) {
        m_registrations.insert(id, {.action = action, .isUsersChoice = grant->isUsersChoice});
        return noErr;
    }
    giveUp({.action = action, .isUsersChoice = grant->isUsersChoice});
    return hotKeyExists;
}

void KWinHotKeys::unregisterHotKey(quint32 id)
{
    const auto registration = m_registrations.constFind(id);
    if (registration == m_registrations.cend())
        return;
    giveUp(*registration);
    m_registrations.erase(registration);
}

QString KWinHotKeys::holder(quint16 keyCode, quint32 modifiers)
{
    const int key = qtKeyOf(keyCode, modifiers);
    if (key == 0)
        return {};
    if (const auto owner = m_shortcuts.owner(key))
        return tr("the shortcut “%1” of %2").arg(owner->title, owner->component);
    return m_setAside.contains(actionOf(keyCode, modifiers))
        ? tr("a change that you made in your desktop's settings")
        : QString();
}

QString KWinHotKeys::label(quint16 keyCode)
{
    return m_keyboard.label(keyCode);
}

int KWinHotKeys::qtKeyOf(quint16 keyCode, quint32 modifiers) const
{
    using enum wayland::Keyboard::Level;
    return qtCombination(
        m_keyboard.keysym(keyCode, plain), m_keyboard.keysym(keyCode, shifted), modifiers);
}

/// What the user has changed stays in System Settings, without effect, so that it is there again when the
/// shortcut is.
void KWinHotKeys::giveUp(const Registration &registration)
{
    if (registration.isUsersChoice) {
        m_shortcuts.setAside(registration.action);
        m_setAside.insert(registration.action);
    } else {
        m_shortcuts.release(registration.action);
    }
}

/// Not before this process registers something: another one may be the holder of all that is ours.
void KWinHotKeys::readLeftovers()
{
    if (std::exchange(m_knowsLeftovers, true))
        return;
    const QStringList actions = m_shortcuts.actions();
    m_leftovers.unite({actions.begin(), actions.end()});
    m_leftovers.subtract(m_setAside);
}

void KWinHotKeys::pressedAction(const QString &action)
{
    const auto pressedOne = std::ranges::find(m_registrations, action, &Registration::action);
    if (pressedOne != m_registrations.end())
        Q_EMIT pressed(pressedOne.key());
}

/// The keys work on meanwhile, and are taken over by who registers them again.
void KWinHotKeys::loseAll()
{
    for (const Registration &registration : std::as_const(m_registrations))
        m_leftovers.insert(registration.action);
    m_registrations.clear();
    Q_EMIT registrationsLost();
    m_release.start();
}

void KWinHotKeys::releaseLeftovers()
{
    for (const QString &action : std::exchange(m_leftovers, {}))
        m_shortcuts.release(action);
}

} // namespace corvane::kwin
