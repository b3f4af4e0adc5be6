#include "ExtensionHost.h"

#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusReply>

namespace corvane::gnome {

using namespace Qt::StringLiterals;

namespace {
constexpr auto ownName = "app.corvane.Desk"_L1;
} // namespace

ExtensionHost::ExtensionHost(wayland::AgentMailbox &mailbox)
    : AgentHost(mailbox, "org.gnome.Shell"_L1)
{
}

void ExtensionHost::start()
{
    AgentHost::start();
    listenAt(u"/app/corvane/Agent"_s);
}

void ExtensionHost::stop()
{
    if (QDBusConnectionInterface *names = bus().interface())
        names->unregisterService(ownName);
    AgentHost::stop();
}

void ExtensionHost::compositorChanged()
{
    if (compositor().isEmpty())
        return;
    // Not before the compositor is known, whose extension calls whoever has the name at once. Another process
    // of ours that has it keeps it until it ends.
    if (QDBusConnectionInterface *names = bus().interface())
        names->registerService(ownName, QDBusConnectionInterface::QueueService,
            QDBusConnectionInterface::DontAllowReplacement);
    const auto version = callTo(u"/org/gnome/Shell"_s, u"org.freedesktop.DBus.Properties"_s,
        u"Get"_s, {u"org.gnome.Shell"_s, u"ShellVersion"_s});
    call(version, [this](const QDBusMessage &answer) {
        const QDBusReply<QVariant> reply(answer);
        if (reply.isValid())
            Q_EMIT described("GNOME Shell "_L1 + reply.value().toString());
    });
}

wayland::AgentMailbox::AnswerPoll ExtensionHost::answerTo(const QDBusMessage &)
{
    const QDBusMessage call =
        callTo(u"/app/corvane/Extension"_s, u"app.corvane.Extension"_s, u"Do"_s);
    return [bus = bus(), call](const QString &number, const QString &command) {
        QDBusMessage message = call;
        message.setArguments({number, command});
        bus.send(message);
    };
}

bool ExtensionHost::take(const QDBusMessage &message)
{
    if (message.member() == "Pressed"_L1 && message.signature() == "s"_L1)
        Q_EMIT pressed(message.arguments().constFirst().toString().toUInt());
    else if (message.member() == "Gone"_L1)
        forgetAgent();
    else
        return false;
    return true;
}

} // namespace corvane::gnome
