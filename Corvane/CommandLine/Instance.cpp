#include "Instance.h"

#include "Identity.h"
#include "OneLine.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {
constexpr auto objectPath = "/app/corvane/Corvane"_L1;
constexpr auto instanceInterface = "app.corvane.Corvane.Instance"_L1;
// Milliseconds. A placement takes a second at most; a layout waits half a minute for its apps.
constexpr int answerTimeout = 5000;
constexpr int layoutTimeout = 60000;

int patience(const QStringList &arguments)
{
    const auto layouts = static_cast<int>(arguments.count("--apply-layout"_L1));
    const auto flags = static_cast<int>(arguments.filter(u"--"_s).size());
    return layouts * layoutTimeout + std::max(1, flags) * answerTimeout;
}

QDBusMessage callRunning(const QString &method, const QVariantList &values, int timeout)
{
    auto call = QDBusMessage::createMethodCall(
        Identity::bundleIdentifier, objectPath, instanceInterface, method);
    call.setAutoStartService(false);
    call.setArguments(values);
    return QDBusConnection::sessionBus().call(call, QDBus::Block, timeout);
}

} // namespace

QString Instance::takeActivation()
{
    QString activation;
    for (const char *const name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (activation.isEmpty())
            activation = qEnvironmentVariable(name);
        qunsetenv(name);
    }
    return activation;
}

std::optional<CommandResult> Instance::handOver(
    const QStringList &arguments, const QString &activation)
{
    const int timeout = patience(arguments);
    const QVariantMap platformData{{u"activation-token"_s, activation}};
    QDBusMessage answer = callRunning(u"RunWith"_s, {arguments, platformData}, timeout);
    // The program that runs may be an earlier version, until the next login.
    if (answer.errorName() == "org.freedesktop.DBus.Error.UnknownMethod"_L1)
        answer = callRunning(u"Run"_s, {arguments}, timeout);
    const QVariantList values = answer.arguments();
    if (answer.type() == QDBusMessage::ReplyMessage && values.size() == 3)
        return CommandResult{values[0].toInt(), values[1].toString(), values[2].toString()};
    const bool nobody = !QDBusConnection::sessionBus().isConnected()
        || answer.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown"_L1
        || answer.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1;
    if (nobody)
        return std::nullopt;
    return CommandResult{CommandResult::refused, {},
        u"The running Corvane did not answer: %1\n"_s.arg(oneLine(answer.errorMessage(), 200))};
}

Instance::Claim Instance::claim(InstanceService::Runner run, ApplicationService::Actions actions)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Claim::unavailable;
    new ApplicationService(this, run, std::move(actions));
    new InstanceService(this, std::move(run));
    // The object comes first: whoever sees the name may call it at once.
    bus.registerObject(objectPath, this);
    return bus.registerService(Identity::bundleIdentifier) ? Claim::granted : Claim::taken;
}

} // namespace corvane
