#include "AgentHost.h"

#include "BusCall.h"

#include <QtDBus/QDBusReply>

#include <atomic>

namespace corvane::wayland {

using namespace Qt::StringLiterals;

namespace {

constexpr int callTimeout = 5'000;

QDBusConnection ownConnection()
{
    static std::atomic<int> count = 0;
    return QDBusConnection::connectToBus(
        QDBusConnection::SessionBus, u"corvane-agent-%1"_s.arg(++count));
}

} // namespace

AgentHost::AgentHost(AgentMailbox &mailbox, QLatin1StringView compositorName)
    : m_mailbox(mailbox), m_bus(ownConnection()), m_compositorName(compositorName)
{
}

void AgentHost::start()
{
    m_watcher = std::make_unique<QDBusServiceWatcher>(
        m_compositorName, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { compositorIs(owner); });
    const QDBusMessage owner =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
            u"org.freedesktop.DBus"_s, u"GetNameOwner"_s)
        << QString(m_compositorName);
    freedesktop::callLater(m_bus, owner, callTimeout, this, [this](const QDBusMessage &answer) {
        const QDBusReply<QString> reply(answer);
        if (m_compositor.isEmpty() && reply.isValid())
            compositorIs(reply.value());
    });
}

void AgentHost::stop()
{
    m_watcher.reset();
    m_bus.unregisterObject(m_path);
    QDBusConnection::disconnectFromBus(m_bus.name());
}

bool AgentHost::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    if (message.service() != m_compositor || message.interface() != interfaceName)
        return false;
    if (message.member() == "Poll"_L1 && message.signature() == "sss"_L1) {
        takePoll(message);
        return true;
    }
    if (message.member() == "News"_L1 && message.signature() == "s"_L1) {
        m_mailbox.told(message.arguments().constFirst().toString());
        Q_EMIT newsArrived();
    } else if (!take(message)) {
        return false;
    }
    if (message.isReplyRequired()) // or the compositor would wait for it
        m_bus.send(message.createReply());
    return true;
}

void AgentHost::takePoll(const QDBusMessage &poll)
{
    const bool isNew = !m_mailbox.isPresent();
    const QVariantList told = poll.arguments();
    const QString news = told.at(2).toString();
    m_mailbox.polled(told.at(0).toString(), told.at(1).toString(), news, answerTo(poll));
    polled(isNew);
    if (isNew)
        Q_EMIT presenceChanged();
    if (!news.isEmpty())
        Q_EMIT newsArrived();
}

QDBusMessage AgentHost::callTo(const QString &path, const QString &interface, const QString &method,
    const QVariantList &arguments) const
{
    QDBusMessage call = QDBusMessage::createMethodCall(m_compositorName, path, interface, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    return call;
}

void AgentHost::listenAt(const QString &path)
{
    if (!m_path.isEmpty())
        m_bus.unregisterObject(m_path);
    m_path = path;
    m_bus.registerVirtualObject(m_path, this);
}

void AgentHost::compositorIs(const QString &owner)
{
    m_compositor = owner;
    forgetAgent();
    compositorChanged();
}

void AgentHost::forgetAgent()
{
    const bool wasPresent = m_mailbox.isPresent();
    m_mailbox.clear();
    if (wasPresent)
        Q_EMIT presenceChanged();
}

void AgentHost::call(
    const QDBusMessage &message, std::function<void(const QDBusMessage &)> onAnswer)
{
    freedesktop::callLater(m_bus, message, callTimeout, this,
        [this, compositor = m_compositor, onAnswer = std::move(onAnswer)](
            const QDBusMessage &answer) {
            if (compositor == m_compositor)
                onAnswer(answer);
        });
}

} // namespace corvane::wayland
