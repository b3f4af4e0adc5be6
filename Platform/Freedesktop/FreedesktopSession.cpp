#include "FreedesktopSession.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStandardPaths>

#include <gio/gio.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

bool FreedesktopSession::openAddress(const QUrl &address)
{
    return g_app_info_launch_default_for_uri(address.toEncoded().constData(), nullptr, nullptr);
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
    openAddress(file.adjusted(QUrl::RemoveFilename));
}

LoginItem FreedesktopSession::loginItem()
{
    return LoginItem::absent;
}

expected<void, QString> FreedesktopSession::setLoginItem(bool)
{
    return unexpected<QString>(u"This desktop is not asked yet."_s);
}

void FreedesktopSession::openLoginItems() { }

void FreedesktopSession::notify(const QString &, const QString &, const QString &) { }

DesktopLook FreedesktopSession::look()
{
    return {};
}

void FreedesktopSession::setListed(quint64, bool) { }

} // namespace corvane::freedesktop
