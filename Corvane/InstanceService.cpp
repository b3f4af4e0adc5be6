#include "InstanceService.h"

#include "Address.h"
#include "Placement.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusError>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// An action's command line; empty when there is no such action. The actions of the desktop entry
/// are called like their placements.
QStringList actionArguments(const QString &action, const QVariantList &parameter)
{
    if (action == "capture"_L1)
        return {u"--capture"_s};
    if (action == "place"_L1 && !parameter.isEmpty())
        return {u"--place"_s, parameter.first().toString()};
    if (placementNamed(action))
        return {u"--place"_s, action};
    return {};
}

QString activation(const QVariantMap &platformData)
{
    const QString token = platformData[u"activation-token"_s].toString();
    return token.isEmpty() ? platformData[u"desktop-startup-id"_s].toString() : token;
}

void refuse(const QDBusMessage &call, const QString &sentence)
{
    call.setDelayedReply(true);
    QDBusConnection::sessionBus().send(call.createErrorReply(QDBusError::InvalidArgs, sentence));
}

} // namespace

InstanceService::InstanceService(QObject *parent, Runner run)
    : QDBusAbstractAdaptor(parent), m_run(std::move(run))
{
}

int InstanceService::Run(
    const QStringList &arguments, const QDBusMessage &call, QString &output, QString &error)
{
    return RunWith(arguments, {}, call, output, error);
}

int InstanceService::RunWith(const QStringList &arguments, const QVariantMap &platformData,
    const QDBusMessage &call, QString &, QString &)
{
    call.setDelayedReply(true);
    answer(arguments, activation(platformData), call);
    return CommandResult::done;
}

QCoro::Task<> InstanceService::answer(QStringList arguments, QString activation, QDBusMessage call)
{
    const CommandResult result = co_await m_run(arguments, activation);
    QDBusConnection::sessionBus().send(
        call.createReply({result.status, result.output, result.error}));
}

ApplicationService::ApplicationService(QObject *parent, InstanceService::Runner run)
    : QDBusAbstractAdaptor(parent), m_run(std::move(run))
{
}

void ApplicationService::Activate(const QVariantMap &platformData)
{
    m_run({}, activation(platformData));
}

void ApplicationService::Open(
    const QStringList &uris, const QVariantMap &platformData, const QDBusMessage &call)
{
    for (const QString &uri : uris) {
        // Nothing but an address may come this way: a flag would be a command.
        if (const auto pane = Address::pane(uri); !pane)
            return refuse(call, pane.error());
        m_run({uri}, activation(platformData));
    }
}

void ApplicationService::ActivateAction(const QString &action, const QVariantList &parameter,
    const QVariantMap &platformData, const QDBusMessage &call)
{
    if (const QStringList arguments = actionArguments(action, parameter); !arguments.isEmpty()) {
        m_run(arguments, activation(platformData));
        return;
    }
    refuse(call, u"There is no action \"%1\"."_s.arg(action));
}

} // namespace corvane
