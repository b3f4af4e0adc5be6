#pragma once

#include "EntryFolders.h"
#include "PrivateSession.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusVirtualObject>

namespace corvane::freedesktop {

/// A service on the session bus that notes every call, and answers when the test says so.
struct FakeService final : QDBusVirtualObject {
    FakeService(const QString &name, const QString &path)
        : bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name))
    {
        if (!bus.registerVirtualObject(path, this) || !bus.registerService(name))
            qFatal("%s cannot be on the bus", qUtf8Printable(name));
    }
    ~FakeService() override { QDBusConnection::disconnectFromBus(bus.name()); }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        message.setDelayedReply(true);
        calls << message;
        return true;
    }
    QString introspect(const QString &) const override { return {}; }

    void answer(qsizetype call, const QVariantList &values)
    {
        bus.send(calls[call].createReply(values));
    }
    void refuse(qsizetype call) { bus.send(calls[call].createErrorReply(QDBusError::Failed, {})); }
    bool hears(qsizetype count)
    {
        return eventually([&] { return calls.size() >= count; });
    }
    QVariant argument(qsizetype call, qsizetype index)
    {
        return calls.value(call).arguments().value(index);
    }

    QDBusConnection bus;
    QList<QDBusMessage> calls;
};

} // namespace corvane::freedesktop
