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
};

} // namespace corvane::freedesktop
