#include "ScriptHost.h"

#include "AgentScript.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <QtCore/QUuid>
#include <QtDBus/QDBusReply>

namespace corvane::kwin {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kwinName = "org.kde.KWin"_L1;

/// The bus would let a poll fail after 25 s. Nothing else wakes us while the desk is at rest.
constexpr auto heartbeatTime = 20s;
constexpr auto nextTry = 500ms;
constexpr auto firstPollTime = 1s; ///< from the agent's start
constexpr int farewellTimeout = 500;

QString scriptFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/corvane"_L1;
}

bool isAnswer(const QDBusMessage &message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

} // namespace

ScriptHost::ScriptHost(wayland::AgentMailbox &mailbox)
    : AgentHost(mailbox, kwinName), m_pollPatience(firstPollTime)
{
}

void ScriptHost::takeIdentity()
{
    const QString identity = QUuid::createUuid().toString(QUuid::Id128);
    m_scriptName = "corvane-"_L1 + identity;
    m_objectPath = "/app/corvane/agent_"_L1 + identity;
    listenAt(m_objectPath);
}

void ScriptHost::start()
{
    m_heartbeat = std::make_unique<QTimer>();
    m_heartbeat->setSingleShot(true);
    m_heartbeat->setInterval(heartbeatTime);
    connect(m_heartbeat.get(), &QTimer::timeout, this, &ScriptHost::heartbeat);
    takeIdentity();
    AgentHost::start();
}

void ScriptHost::stop()
{
    for (const QString &name : compositor().isEmpty() ? QStringList() : m_loaded)
        bus().call(scriptingCall(u"unloadScript"_s, {name}), QDBus::Block, farewellTimeout);
    removeScript();
    m_heartbeat.reset();
    AgentHost::stop();
}

QDBusMessage ScriptHost::scriptingCall(const QString &method, const QVariantList &arguments) const
{
    return callTo(u"/Scripting"_s, u"org.kde.kwin.Scripting"_s, method, arguments);
}

void ScriptHost::compositorChanged()
{
    m_isDescribed = false;
    m_silentBeats = 0;
    m_heartbeat->stop();
    if (!compositor().isEmpty())
        unload();
}

/// What has fallen silent would speak up beside the new one.
void ScriptHost::unload()
{
    for (const QString &name : std::exchange(m_loaded, {}))
        call(scriptingCall(u"unloadScript"_s, {name}), [](const QDBusMessage &) {});
    load();
}

void ScriptHost::load()
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
void ScriptHost::run(const QList<QString> &paths)
{
    call(callTo(paths.first(), u"org.kde.kwin.Script"_s, u"run"_s),
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
void ScriptHost::expectPoll()
{
    m_heartbeat->start();
    QTimer::singleShot(m_pollPatience, this, [this, name = m_scriptName] {
        const bool isNeeded = m_heartbeat && name == m_scriptName && !compositor().isEmpty()
            && !mailbox().isPresent();
        if (!isNeeded)
            return;
        m_pollPatience *= 2;
        takeIdentity();
        load();
    });
}

void ScriptHost::loadLater()
{
    QTimer::singleShot(nextTry, this, [this, kwin = compositor()] {
        if (m_heartbeat && !kwin.isEmpty() && kwin == compositor())
            unload();
    });
}

/// The mode of such a file is 0600.
bool ScriptHost::writeScript()
{
    constexpr auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QDir().mkdir(scriptFolder(), ownersOnly);
    m_script = std::make_unique<QTemporaryFile>(scriptFolder() + "/agent-XXXXXX.js"_L1);
    const QJsonObject home{{"service"_L1, bus().baseService()}, {"path"_L1, m_objectPath},
        {"interface"_L1, interfaceName}, {"name"_L1, m_scriptName}};
    return m_script->open()
        && m_script->write("const home = " + QJsonDocument(home).toJson(QJsonDocument::Compact)
               + ";\n" + agentScript())
        > 0
        && m_script->flush();
}

void ScriptHost::removeScript()
{
    m_script.reset();
    QDir().rmdir(scriptFolder());
}

void ScriptHost::askDescription()
{
    call(callTo(u"/KWin"_s, u"org.kde.KWin"_s, u"supportInformation"_s),
        [this](const QDBusMessage &answer) {
            static const QRegularExpression version(u"KWin version: ([0-9.]+)"_s);
            const auto match = version.match(QDBusReply<QString>(answer).value());
            if (match.hasMatch())
                Q_EMIT described("KWin "_L1 + match.captured(1));
        });
}

void ScriptHost::heartbeat()
{
    // A command may just be on its way.
    const bool isSilent = !mailbox().renewPoll() && ++m_silentBeats > 1;
    if (!isSilent)
        return m_heartbeat->start();
    forgetAgent();
    compositorChanged();
}

void ScriptHost::polled(bool isNew)
{
    m_silentBeats = 0;
    m_heartbeat->start();
    if (isNew) {
        m_pollPatience = firstPollTime;
        removeScript(); // KWin has read it
    }
    if (!std::exchange(m_isDescribed, true))
        askDescription();
}

/// The command is the answer to the call.
wayland::AgentMailbox::AnswerPoll ScriptHost::answerTo(const QDBusMessage &poll)
{
    poll.setDelayedReply(true);
    return [bus = bus(), poll](const QString &number, const QString &command) {
        bus.send(poll.createReply(QVariantList{number, command}));
    };
}

} // namespace corvane::kwin
