#include "AgentHost.h"

#include "AgentScript.h"
#include "BusCall.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <QtCore/QUuid>
#include <QtDBus/QDBusReply>

#include <atomic>

namespace corvane::kwin {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kwinName = "org.kde.KWin"_L1;
constexpr auto interfaceName = "app.corvane.Agent"_L1;

/// The bus would let a poll fail after 25 s. Nothing else wakes us while the desk is at rest.
constexpr auto heartbeatTime = 20s;
constexpr auto nextTry = 500ms;
constexpr auto firstPollTime = 1s; ///< from the agent's start
constexpr int callTimeout = 5'000;
constexpr int farewellTimeout = 500;

QDBusConnection ownConnection()
{
    static std::atomic<int> count = 0;
    return QDBusConnection::connectToBus(
        QDBusConnection::SessionBus, u"corvane-kwin-%1"_s.arg(++count));
}

QDBusMessage kwinCall(const QString &path, const QString &interface, const QString &method,
    const QVariantList &arguments = {})
{
    QDBusMessage call = QDBusMessage::createMethodCall(kwinName, path, interface, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    return call;
}

QDBusMessage scriptingCall(const QString &method, const QVariantList &arguments)
{
    return kwinCall(u"/Scripting"_s, u"org.kde.kwin.Scripting"_s, method, arguments);
}

QString scriptFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/corvane"_L1;
}

bool isAnswer(const QDBusMessage &message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

} // namespace

AgentHost::AgentHost(AgentMailbox &mailbox)
    : m_mailbox(mailbox), m_bus(ownConnection()), m_pollPatience(firstPollTime)
{
    takeIdentity();
}

void AgentHost::takeIdentity()
{
    const QString identity = QUuid::createUuid().toString(QUuid::Id128);
    m_scriptName = "corvane-"_L1 + identity;
    m_objectPath = "/app/corvane/agent_"_L1 + identity;
}

void AgentHost::start()
{
    m_heartbeat = std::make_unique<QTimer>();
    m_heartbeat->setSingleShot(true);
    m_heartbeat->setInterval(heartbeatTime);
    connect(m_heartbeat.get(), &QTimer::timeout, this, &AgentHost::heartbeat);
    m_bus.registerVirtualObject(m_objectPath, this);
    m_watcher = std::make_unique<QDBusServiceWatcher>(
        kwinName, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { kwinIs(owner); });
    const QDBusMessage owner =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
            u"org.freedesktop.DBus"_s, u"GetNameOwner"_s)
        << QString(kwinName);
    freedesktop::callLater(m_bus, owner, callTimeout, this, [this](const QDBusMessage &answer) {
        if (m_kwin.isEmpty() && isAnswer(answer))
            kwinIs(QDBusReply<QString>(answer).value());
    });
}

void AgentHost::stop()
{
    for (const QString &name : m_kwin.isEmpty() ? QStringList() : m_loaded)
        m_bus.call(scriptingCall(u"unloadScript"_s, {name}), QDBus::Block, farewellTimeout);
    removeScript();
    m_heartbeat.reset();
    m_watcher.reset();
    m_bus.unregisterObject(m_objectPath);
    QDBusConnection::disconnectFromBus(m_bus.name());
}

bool AgentHost::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    if (message.service() != m_kwin || message.interface() != interfaceName)
        return false;
    if (message.member() == "Poll"_L1 && message.signature() == "sss"_L1) {
        polled(message);
    } else if (message.member() == "News"_L1 && message.signature() == "s"_L1) {
        m_mailbox.told(message.arguments().constFirst().toString());
        Q_EMIT newsArrived();
        m_bus.send(message.createReply()); // or KWin would wait for it
    } else {
        return false;
    }
    return true;
}

void AgentHost::kwinIs(const QString &owner)
{
    m_kwin = owner;
    const bool wasPresent = m_mailbox.isPresent();
    m_mailbox.clear();
    if (wasPresent)
        Q_EMIT presenceChanged();
    m_isDescribed = false;
    m_silentBeats = 0;
    m_heartbeat->stop();
    if (!m_kwin.isEmpty())
        unload();
}

/// What has fallen silent would speak up beside the new one.
void AgentHost::unload()
{
    for (const QString &name : std::exchange(m_loaded, {}))
        call(scriptingCall(u"unloadScript"_s, {name}), [](const QDBusMessage &) {});
    load();
}

void AgentHost::load()
{
    if (!writeScript())
        return loadLater();
    const QVariantList script{m_script->fileName(), m_scriptName};
    call(scriptingCall(u"loadScript"_s, script), [this](const QDBusMessage &answer) {
        const int number = isAnswer(answer) ? QDBusReply<int>(answer).value() : -1;
        if (number < 0)
            return loadLater();
        m_loaded << m_scriptName;
        run({u"/Scripting/Script%1"_s.arg(number), u"/%1"_s.arg(number)});
    });
}

/// Where a script's object lies is another place in KWin 5.27 and in 6.
void AgentHost::run(const QList<QString> &paths)
{
    call(kwinCall(paths.first(), u"org.kde.kwin.Script"_s, u"run"_s),
        [this, rest = paths.mid(1)](const QDBusMessage &answer) {
            if (isAnswer(answer))
                expectPoll();
            else if (rest.isEmpty())
                loadLater();
            else
                run(rest);
        });
}

/// KWin 5.27 numbers a script by how many there are. Once one of the first is gone, the next one's number is
/// that of another, which hears what is said to it. It fills a place all the same, so that one more has a
/// number of its own.
void AgentHost::expectPoll()
{
    m_heartbeat->start();
    QTimer::singleShot(m_pollPatience, this, [this, name = m_scriptName] {
        const bool isNeeded =
            m_heartbeat && name == m_scriptName && !m_kwin.isEmpty() && !m_mailbox.isPresent();
        if (!isNeeded)
            return;
        m_pollPatience *= 2;
        m_bus.unregisterObject(m_objectPath);
        takeIdentity();
        m_bus.registerVirtualObject(m_objectPath, this);
        load();
    });
}

void AgentHost::loadLater()
{
    QTimer::singleShot(nextTry, this, [this, kwin = m_kwin] {
        if (m_heartbeat && !kwin.isEmpty() && kwin == m_kwin)
            unload();
    });
}

/// The mode of such a file is 0600.
bool AgentHost::writeScript()
{
    constexpr auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QDir().mkdir(scriptFolder(), ownersOnly);
    m_script = std::make_unique<QTemporaryFile>(scriptFolder() + "/agent-XXXXXX.js"_L1);
    const QJsonObject home{{"service"_L1, m_bus.baseService()}, {"path"_L1, m_objectPath},
        {"interface"_L1, interfaceName}, {"name"_L1, m_scriptName}};
    return m_script->open()
        && m_script->write("const home = " + QJsonDocument(home).toJson(QJsonDocument::Compact)
               + ";\n" + agentScript())
        > 0
        && m_script->flush();
}

void AgentHost::removeScript()
{
    m_script.reset();
    QDir().rmdir(scriptFolder());
}

void AgentHost::askDescription()
{
    call(kwinCall(u"/KWin"_s, u"org.kde.KWin"_s, u"supportInformation"_s),
        [this](const QDBusMessage &answer) {
            static const QRegularExpression version(u"KWin version: ([0-9.]+)"_s);
            const auto match = version.match(QDBusReply<QString>(answer).value());
            if (match.hasMatch())
                Q_EMIT described("KWin "_L1 + match.captured(1));
        });
}

void AgentHost::heartbeat()
{
    // A command may just be on its way.
    const bool isSilent = !m_mailbox.renewPoll() && ++m_silentBeats > 1;
    if (isSilent)
        kwinIs(m_kwin);
    else
        m_heartbeat->start();
}

void AgentHost::polled(const QDBusMessage &message)
{
    message.setDelayedReply(true);
    const bool isNew = !m_mailbox.isPresent();
    const QVariantList told = message.arguments();
    const QString news = told.at(2).toString();
    m_mailbox.polled(told.at(0).toString(), told.at(1).toString(), news,
        [bus = m_bus, message](const QString &number, const QString &command) {
            bus.send(message.createReply(QVariantList{number, command}));
        });
    m_silentBeats = 0;
    m_heartbeat->start();
    if (isNew) {
        m_pollPatience = firstPollTime;
        removeScript(); // KWin has read it
        Q_EMIT presenceChanged();
    }
    if (!news.isEmpty())
        Q_EMIT newsArrived();
    if (!std::exchange(m_isDescribed, true))
        askDescription();
}

void AgentHost::call(
    const QDBusMessage &message, std::function<void(const QDBusMessage &)> onAnswer)
{
    freedesktop::callLater(m_bus, message, callTimeout, this,
        [this, kwin = m_kwin, onAnswer = std::move(onAnswer)](const QDBusMessage &answer) {
            if (kwin == m_kwin)
                onAnswer(answer);
        });
}

} // namespace corvane::kwin
