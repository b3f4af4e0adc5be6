#include "FakeService.h"

namespace corvane::freedesktop {

FakeService::FakeService(const QString &name, const QString &path)
    : m_name(name)
    , m_path(path)
    , m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), m_name))
{
    if (!m_bus.registerVirtualObject(m_path, this) || !m_bus.registerService(m_name))
        qFatal("%s cannot be offered", qUtf8Printable(m_name));
}

FakeService::~FakeService()
{
    QDBusConnection::disconnectFromBus(m_name);
}

void FakeService::answer(qsizetype call, const QVariantList &values)
{
    m_bus.send(calls.at(call).createReply(values));
}

void FakeService::refuse(qsizetype call)
{
    m_bus.send(calls.at(call).createErrorReply(QDBusError::Failed, {}));
}

void FakeService::signal(const QString &interface, const QString &name, const QVariantList &values)
{
    auto message = QDBusMessage::createSignal(m_path, interface, name);
    message.setArguments(values);
    m_bus.send(message);
}

bool FakeService::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    message.setDelayedReply(true);
    calls << message;
    return true;
}

} // namespace corvane::freedesktop
