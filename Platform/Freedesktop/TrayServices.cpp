#include "TrayServices.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVariant>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {
const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString shellService = u"org.gnome.Shell"_s;
const QString plasmaService = u"org.kde.plasmashell"_s;
const QStringList indicatorServices{
    u"com.canonical.indicator.application"_s, u"org.ayatana.indicator.application"_s};
} // namespace

MenuForm menuForm(const TrayServices &services)
{
    const bool isShell = !services.watcher.isEmpty() && services.watcher == services.shell;
    if (isShell || services.hasIndicators)
        return MenuForm::exported;
    // Most others never pass a right click on: without a menu to show, they show nothing or a menu
    // of their own.
    return services.hasPlasma ? MenuForm::drawn : MenuForm::drawnOrExported;
}

TrayServicesWatch::TrayServicesWatch()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto *owners = new QDBusServiceWatcher(
        watcherService, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owners, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayServicesWatch::refresh);
    // Naming the sender would make Qt wait for its owner.
    bus.connect(QString(), watcherPath, watcherService, u"StatusNotifierHostRegistered"_s, this,
        SLOT(refresh()));
    refresh();
}

void TrayServicesWatch::refresh()
{
    m_services.hasIndicators = false;
    for (const QString &service : indicatorServices) {
        askForOwner(service,
            [this](const QString &owner) { m_services.hasIndicators |= !owner.isEmpty(); });
    }
    askForOwner(
        plasmaService, [this](const QString &owner) { m_services.hasPlasma = !owner.isEmpty(); });
    askForOwner(shellService, [this](const QString &owner) { m_services.shell = owner; });
    // The bus answers in order: with this answer the others have come.
    askForOwner(watcherService, [this](const QString &owner) {
        m_services.watcher = owner;
        m_services.hasHost = false;
        owner.isEmpty() ? report() : askForHost();
    });
}

void TrayServicesWatch::askForOwner(const QString &service, Answer answer)
{
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s,
        u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetNameOwner"_s);
    call << service;
    auto *pending =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
        [answer = std::move(answer)](QDBusPendingCallWatcher *done) {
            const QDBusPendingReply<QString> reply = *done;
            answer(reply.isValid() ? reply.value() : QString());
            done->deleteLater();
        });
}

void TrayServicesWatch::askForHost()
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherService, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << watcherService << u"IsStatusNotifierHostRegistered"_s;
    auto *pending =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(
        pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *done) {
            const QDBusPendingReply<QDBusVariant> reply = *done;
            m_services.hasHost = reply.isValid() && reply.value().variant().toBool();
            done->deleteLater();
            report();
        });
}

void TrayServicesWatch::report()
{
    m_isKnown = true;
    Q_EMIT changed();
}

} // namespace corvane::freedesktop
