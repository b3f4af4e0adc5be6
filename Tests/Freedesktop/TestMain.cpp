#include "PrivateSession.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    corvane::desktop::PrivateSession session;
    if (const QString error = session.startBus(); !error.isEmpty())
        qFatal("%s", qUtf8Printable(error));
    const auto address = session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit());
    return RUN_ALL_TESTS();
}
