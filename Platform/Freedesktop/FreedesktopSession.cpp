#include "FreedesktopSession.h"

#include "AutostartEntry.h"
#include "BusCall.h"
#include "InstallRecord.h"
#include "Spawn.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QSysInfo>

#include <gio/gio.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

AutostartEntry autostartEntry()
{
    const QString settings =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return {settings + u"/autostart"_s, ownProgram()};
}

} // namespace

FreedesktopSession::FreedesktopSession(const QDBusConnection &bus)
    : m_bus(bus), m_notifications(bus), m_appearance(bus)
{
    connect(&m_appearance, &DesktopAppearance::changed, this, &Session::lookChanged);
    connect(&m_notifications, &Notifications::clicked, this, &Session::notificationClicked);
}

bool FreedesktopSession::openAddress(const QUrl &address)
{
    GAppLaunchContext *context = g_app_launch_context_new();
    const auto changes = variablesToRestore();
    for (const auto &[name, value] : changes.asKeyValueRange()) {
        if (value)
            g_app_launch_context_setenv(context, name.constData(), value->constData());
        else
            g_app_launch_context_unsetenv(context, name.constData());
    }
    const bool isOpened =
        g_app_info_launch_default_for_uri(address.toEncoded().constData(), context, nullptr);
    g_object_unref(context);
    return isOpened;
}

QUrl FreedesktopSession::trustSettingsAddress()
{
    const QString page = u"corvane/help/moving-windows.html"_s;
    const QString installed = QStandardPaths::locate(QStandardPaths::GenericDataLocation, page);
    return QUrl::fromLocalFile(installed.isEmpty()
            ? QCoreApplication::applicationDirPath() + u"/../share/"_s + page
            : installed);
}

std::optional<int> FreedesktopSession::clearTrustRow(const QString &)
{
    return std::nullopt;
}

int FreedesktopSession::systemMajorVersion()
{
    return 0;
}

void FreedesktopSession::reveal(const QUrl &file)
{
    const QString service = u"org.freedesktop.FileManager1"_s;
    auto call = QDBusMessage::createMethodCall(
        service, u"/org/freedesktop/FileManager1"_s, service, u"ShowItems"_s);
    call << QStringList{file.toString(QUrl::FullyEncoded)} << QString();
    const auto openFolder = [this, file] { openAddress(file.adjusted(QUrl::RemoveFilename)); };
    const auto onAnswer = [openFolder](const QDBusMessage &answer) {
        if (answer.type() == QDBusMessage::ErrorMessage && !mayStillCome(answer))
            openFolder();
    };
    if (!callLater(m_bus, call, startPatience, this, onAnswer))
        openFolder();
}

LoginItem FreedesktopSession::loginItem()
{
    return autostartEntry().state();
}

expected<void, QString> FreedesktopSession::setLoginItem(bool opensAtLogin)
{
    return opensAtLogin ? autostartEntry().add() : autostartEntry().remove();
}

void FreedesktopSession::openLoginItems()
{
    const QByteArrayList command = autostartSettings(qgetenv("XDG_CURRENT_DESKTOP").split(':'));
    if (command.isEmpty() || !spawn(command, {}).isEmpty())
        reveal(QUrl::fromLocalFile(autostartEntry().path()));
}

void FreedesktopSession::notify(
    const QString &id, const QString &title, const QString &body, const QString &action)
{
    m_notifications.show(id, {title, body, action});
}

DesktopLook FreedesktopSession::look()
{
    return m_appearance.look();
}

bool FreedesktopSession::isPointerButtonDown()
{
    return false;
}

SystemFacts FreedesktopSession::systemFacts()
{
    QFile model(u"/sys/class/dmi/id/product_name"_s);
    const bool isKnown = model.open(QFile::ReadOnly);
    return {.system = QSysInfo::prettyProductName(),
        .computer = isKnown ? QString::fromUtf8(model.readAll()).trimmed() : QString(),
        .desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP")};
}

} // namespace corvane::freedesktop
