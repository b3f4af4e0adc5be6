#include "Resident.h"

#include "Programs.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

Resident::Resident(PrivateSession &session)
    : CorvaneProcess(session, corvaneProgram)
    , m_bus(QDBusConnection::connectToBus(
          session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"resident"_s))
{
}

Resident::~Resident()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

void Resident::request(const QStringList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(u"app.corvane.Corvane"_s,
        u"/app/corvane/Corvane"_s, u"app.corvane.Corvane.Instance"_s, u"Run"_s);
    call << arguments;
    static_cast<void>(m_bus.asyncCall(call));
}

} // namespace corvane::bench
