#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>

namespace corvane::freedesktop {

/// A service on the session bus that notes every call, and answers when the test says so.
class FakeService final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    FakeService(const QString &name, const QString &path);
    ~FakeService() override;

    void answer(qsizetype call, const QVariantList &values);
    void refuse(qsizetype call);
    void signal(const QString &interface, const QString &name, const QVariantList &values);

    QList<QDBusMessage> calls;

private:
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override;
    QString introspect(const QString &) const override { return {}; }

    QString m_name;
    QString m_path;
    QDBusConnection m_bus;
};

} // namespace corvane::freedesktop
