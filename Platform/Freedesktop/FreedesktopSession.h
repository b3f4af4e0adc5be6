#pragma once

#include "DesktopAppearance.h"
#include "Notifications.h"

namespace corvane::freedesktop {

/// Without a session bus nothing is notified, and the look stays light.
class FreedesktopSession : public Session
{
    Q_OBJECT

public:
    explicit FreedesktopSession(const QDBusConnection &bus = QDBusConnection::sessionBus());

    bool openAddress(const QUrl &address) override;
    /// The address of a local help page: no desktop has a settings pane for this.
    QUrl trustSettingsAddress() override;
    std::optional<int> clearTrustRow(const QString &bundleIdentifier) override;
    int systemMajorVersion() override;
    void reveal(const QUrl &file) override;
    LoginItem loginItem() override;
    expected<void, QString> setLoginItem(bool opensAtLogin) override;
    void openLoginItems() override;
    void notify(const QString &id, const QString &title, const QString &body,
        const QString &action = {}) override;
    DesktopLook look() override;
    /// Always false: Wayland compositors tell no program.
    bool isPointerButtonDown() override;
    /// All but the session and the window manager.
    SystemFacts systemFacts() override;

private:
    QDBusConnection m_bus;
    Notifications m_notifications;
    DesktopAppearance m_appearance;
};

} // namespace corvane::freedesktop
