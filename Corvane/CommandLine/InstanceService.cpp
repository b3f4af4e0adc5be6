#include "InstanceService.h"

#include "Address.h"
#include "OneLine.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusError>

#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

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
    std::ignore = answer(arguments, activation(platformData), call);
    return CommandResult::done;
}

QCoro::Task<> InstanceService::answer(QStringList arguments, QString activation, QDBusMessage call)
{
    const CommandResult result = co_await m_run(arguments, activation);
    QDBusConnection::sessionBus().send(
        call.createReply({result.status, result.output, result.error}));
}

ApplicationService::ApplicationService(
    QObject *parent, InstanceService::Runner run, Actions actions)
    : QDBusAbstractAdaptor(parent), m_run(std::move(run)), m_actions(std::move(actions))
{
}

void ApplicationService::Activate(const QVariantMap &platformData)
{
    std::ignore = m_run({}, activation(platformData));
}

void ApplicationService::Open(
    const QStringList &uris, const QVariantMap &platformData, const QDBusMessage &call)
{
    for (const QString &uri : uris) {
        // Nothing but an address may come this way: a flag would be a command.
        if (const auto pane = Address::pane(uri); !pane)
            return refuse(call, pane.error());
        std::ignore = m_run({uri}, activation(platformData));
    }
}

void ApplicationService::ActivateAction(const QString &action, const QVariantList &parameter,
    const QVariantMap &, const QDBusMessage &call)
{
    if (action == "capture"_L1)
        return m_actions.capture();
    // The actions of the desktop entry are called like their placements.
    const QString name = action == "place"_L1 ? parameter.value(0).toString() : action;
    if (const auto placement = placementNamed(name))
        return m_actions.perform(*placement);
    if (action == "place"_L1)
        return refuse(call, u"There is no placement \"%1\"."_s.arg(oneLine(name)));
    refuse(call, u"There is no action \"%1\"."_s.arg(oneLine(action)));
}

} // namespace corvane
