#include "GlobalAccel.h"

#include "BusCall.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusError>
#include <QtDBus/QDBusMetaType>

#include <array>

namespace corvane::kwin {

using namespace Qt::StringLiterals;

namespace {

constexpr auto serviceName = "org.kde.kglobalaccel"_L1;
constexpr auto objectPath = "/kglobalaccel"_L1;
constexpr auto interfaceName = "org.kde.KGlobalAccel"_L1;
constexpr auto componentName = "corvane"_L1;
constexpr int callTimeout = 1'000;

// How a key is set.
constexpr uint present = 2; ///< for a program that runs
constexpr uint asAsked = 4; ///< whatever is stored for the action
constexpr uint asDefault = 8; ///< only what the user can go back to

/// A sequence of four keys, of which we need one.
struct KeySequence {
    int key = 0;
};

/// How a key is compared with those that are held: as the same.
struct MatchType {
    int value = 0;
};

struct ShortcutInfo {
    QString name;
    QString title;
    QString component;
    QString componentTitle;
};

QDBusArgument &operator<<(QDBusArgument &argument, const KeySequence &sequence)
{
    argument.beginStructure();
    argument << QList<int>{sequence.key, 0, 0, 0};
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, KeySequence &sequence)
{
    QList<int> keys;
    argument.beginStructure();
    argument >> keys;
    argument.endStructure();
    sequence.key = keys.value(0);
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const MatchType &type)
{
    argument.beginStructure();
    argument << type.value;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MatchType &type)
{
    argument.beginStructure();
    argument >> type.value;
    argument.endStructure();
    return argument;
}

QStringList idOf(const QString &name, const QString &title = {})
{
    return {componentName, name, QCoreApplication::applicationName(), title};
}

QVariant keysOf(int key)
{
    return QVariant::fromValue(QList<KeySequence>{{key}});
}

int keyIn(const QDBusMessage &answer)
{
    const auto sequences = qdbus_cast<QList<KeySequence>>(answer.arguments().value(0));
    return sequences.isEmpty() ? 0 : sequences.constFirst().key;
}

QList<ShortcutInfo> shortcutsIn(const QDBusMessage &answer)
{
    QList<ShortcutInfo> shortcuts;
    if (answer.signature() != "a(ssssssaiai)"_L1)
        return shortcuts;
    const auto argument = answer.arguments().constFirst().value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        ShortcutInfo info;
        QString context;
        QList<int> keys;
        argument.beginStructure();
        argument >> info.name >> info.title >> info.component >> info.componentTitle >> context
            >> context >> keys >> keys;
        argument.endStructure();
        shortcuts << info;
    }
    argument.endArray();
    return shortcuts;
}

} // namespace

GlobalAccel::GlobalAccel() : m_watcher(serviceName, m_bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    qDBusRegisterMetaType<KeySequence>();
    qDBusRegisterMetaType<QList<KeySequence>>();
    qDBusRegisterMetaType<MatchType>();
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &GlobalAccel::restarted);
    const QString component = "/component/"_L1 + componentName;
    const QString interface = u"org.kde.kglobalaccel.Component"_s;
    m_bus.connect(serviceName, component, interface, u"globalShortcutPressed"_s, this,
        SLOT(hearPress(QString, QString, qlonglong)));
    m_bus.connect(serviceName, component, interface, u"globalShortcutReleased"_s, this,
        SLOT(hearRelease(QString, QString, qlonglong)));
    m_bus.connect(serviceName, objectPath, interfaceName, u"yourShortcutsChanged"_s, this,
        SLOT(hearChange(QStringList)));
}

QStringList GlobalAccel::actions()
{
    const auto answer = finish(begin(u"allActionsForComponent"_s, {idOf({})}));
    QStringList names;
    if (!answer)
        return names;
    const auto ids = qdbus_cast<QList<QStringList>>(answer->arguments().value(0));
    for (const QStringList &id : ids)
        names << id.value(1);
    return names;
}

expected<GlobalAccel::Grant, AXError> GlobalAccel::take(const Action &action, bool isKnown)
{
    const QStringList id = idOf(action.name, action.title);
    QList<QDBusPendingCall> calls{begin(u"doRegister"_s, {id})};
    Grant grant;
    if (isKnown) {
        const auto asked = begin(u"defaultShortcutKeys"_s, {id});
        const auto stored = finish(begin(u"shortcutKeys"_s, {id}));
        const auto before = finish(asked);
        if (!stored || !before)
            return unexpected(AXError::cannotComplete);
        grant.isUsersChoice = keyIn(*before) != 0 && keyIn(*stored) != keyIn(*before);
    }
    calls << begin(u"setShortcutKeys"_s, {id, keysOf(action.key), asDefault});
    const uint flags = grant.isUsersChoice ? present : present | asAsked;
    const auto answer = finish(begin(u"setShortcutKeys"_s, {id, keysOf(action.key), flags}));
    if (!answer)
        return unexpected(answer.error());
    grant.key = keyIn(*answer);
    return grant;
}

void GlobalAccel::release(const QString &name)
{
    send(u"unregister"_s, {QString(componentName), name});
}

void GlobalAccel::setAside(const QString &name)
{
    send(u"setInactive"_s, {idOf(name)});
}

std::optional<GlobalAccel::Owner> GlobalAccel::owner(int key)
{
    const auto answer = finish(begin(u"globalShortcutsByKey"_s,
        {QVariant::fromValue(KeySequence{key}), QVariant::fromValue(MatchType{})}));
    if (!answer)
        return std::nullopt;
    for (const ShortcutInfo &shortcut : shortcutsIn(*answer)) {
        if (shortcut.component != componentName)
            return Owner{.component = shortcut.componentTitle, .title = shortcut.title};
    }
    return std::nullopt;
}

void GlobalAccel::hearPress(const QString &, const QString &name, qlonglong)
{
    // A release that is never told must not mute the key for good.
    constexpr auto longestRepeatPause = std::chrono::seconds(2);
    const auto now = std::chrono::steady_clock::now();
    const auto held = m_held.constFind(name);
    const bool isRepeat = held != m_held.cend() && now - *held < longestRepeatPause;
    m_held.insert(name, now);
    if (!isRepeat)
        Q_EMIT pressed(name);
}

void GlobalAccel::hearRelease(const QString &, const QString &name, qlonglong)
{
    m_held.remove(name);
}

void GlobalAccel::hearChange(const QStringList &action)
{
    if (action.value(0) == componentName)
        Q_EMIT changed();
}

QDBusPendingCall GlobalAccel::begin(const QString &method, const QVariantList &arguments)
{
    // One second is what a service that hangs may cost, not one for each shortcut.
    if (m_isSilent)
        return QDBusPendingCall::fromError(QDBusError(QDBusError::NoReply, {}));
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    return m_bus.asyncCall(call, callTimeout);
}

expected<QDBusMessage, AXError> GlobalAccel::finish(QDBusPendingCall call)
{
    call.waitForFinished();
    if (!call.isError())
        return call.reply();
    const auto type = call.error().type();
    if (type == QDBusError::ServiceUnknown || type == QDBusError::Disconnected)
        return unexpected(AXError::apiDisabled);
    if (!std::exchange(m_isSilent, true))
        awaitAnswer();
    return unexpected(AXError::cannotComplete);
}

void GlobalAccel::send(const QString &method, const QVariantList &arguments)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    m_bus.send(call);
}

void GlobalAccel::awaitAnswer()
{
    const QDBusMessage ping = QDBusMessage::createMethodCall(
        serviceName, objectPath, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    freedesktop::callLater(
        m_bus, ping, freedesktop::startPatience, this, [this](const QDBusMessage &answer) {
            m_isSilent = false;
            if (answer.type() == QDBusMessage::ReplyMessage)
                Q_EMIT restarted();
        });
}

} // namespace corvane::kwin
