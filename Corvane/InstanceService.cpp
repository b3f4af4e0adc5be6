#include "InstanceService.h"

namespace corvane {

using namespace Qt::StringLiterals;

InstanceService::InstanceService(QObject *parent, Runner run)
    : QDBusAbstractAdaptor(parent), m_run(std::move(run))
{
}

int InstanceService::Run(const QStringList &arguments, QString &output, QString &error)
{
    const CommandResult result = m_run(arguments);
    output = result.output;
    error = result.error;
    return result.status;
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
