#pragma once

#include "Session.h"

namespace corvane::freedesktop {

class FreedesktopSession final : public Session
{
    Q_OBJECT

public:
    bool openAddress(const QUrl &address) override;
    /// A local help page: no desktop has a settings pane for this.
    QUrl trustSettingsAddress() override;
    std::optional<int> clearTrustRow(const QString &bundleIdentifier) override;
    int systemMajorVersion() override;
    void reveal(const QUrl &file) override;
    LoginItem loginItem() override;
    expected<void, QString> setLoginItem(bool opensAtLogin) override;
    void openLoginItems() override;
    void notify(const QString &id, const QString &title, const QString &body) override;
    DesktopLook look() override;
    void setListed(quint64 window, bool isListed) override;
};

} // namespace corvane::freedesktop
