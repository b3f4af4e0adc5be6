#include "SimulatedSession.h"

namespace corvane {

bool SimulatedSession::openAddress(const QUrl &)
{
    return opensAddresses;
}

QUrl SimulatedSession::trustSettingsAddress()
{
    return QUrl(QStringLiteral("help:window-access"));
}

std::optional<int> SimulatedSession::clearTrustRow(const QString &bundleIdentifier)
{
    clearedRows << bundleIdentifier;
    return clearingStatus;
}

int SimulatedSession::systemMajorVersion()
{
    return 0;
}

void SimulatedSession::reveal(const QUrl &) { }

LoginItem SimulatedSession::loginItem()
{
    return item;
}

expected<void, QString> SimulatedSession::setLoginItem(bool opensAtLogin)
{
    if (!loginItemError.isEmpty())
        return unexpected<QString>(loginItemError);
    item = opensAtLogin ? itemOnceSet : LoginItem::absent;
    return {};
}

void SimulatedSession::openLoginItems() { }

void SimulatedSession::notify(
    const QString &id, const QString &title, const QString &body, const QString &action)
{
    notifications.removeIf([&id](const Notification &each) { return each.id == id; });
    notifications.append({id, title, body, action});
}

DesktopLook SimulatedSession::look()
{
    return m_look;
}

bool SimulatedSession::isPointerButtonDown()
{
    return isButtonDown;
}

SystemFacts SimulatedSession::systemFacts()
{
    return facts;
}

void SimulatedSession::changeLook(const DesktopLook &look)
{
    m_look = look;
    Q_EMIT lookChanged(look);
}

} // namespace corvane
