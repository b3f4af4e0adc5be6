#include "InstanceService.h"

#include <QtDBus/QDBusConnection>

namespace corvane {

using namespace Qt::StringLiterals;

InstanceService::InstanceService(QObject *parent, Runner run)
    : QDBusAbstractAdaptor(parent), m_run(std::move(run))
{
}

int InstanceService::Run(
    const QStringList &arguments, const QDBusMessage &call, QString &, QString &)
{
    call.setDelayedReply(true);
    answer(arguments, call);
    return CommandResult::done;
}

QCoro::Task<> InstanceService::answer(QStringList arguments, QDBusMessage call)
{
    const CommandResult result = co_await m_run(arguments);
    QDBusConnection::sessionBus().send(
        call.createReply({result.status, result.output, result.error}));
}

ApplicationService::ApplicationService(QObject *parent, InstanceService::Runner run)
    : QDBusAbstractAdaptor(parent), m_run(std::move(run))
{
}

void ApplicationService::Activate(const QVariantMap &)
{
    m_run({});
}

void ApplicationService::Open(const QStringList &, const QVariantMap &)
{
    m_run({});
}

void ApplicationService::ActivateAction(
    const QString &action, const QVariantList &parameter, const QVariantMap &)
{
    if (action == "place"_L1 && !parameter.isEmpty())
        m_run({u"--place"_s, parameter.first().toString()});
}

} // namespace corvane
