#pragma once

#include "Session.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

namespace corvane {

/// Does nothing outside itself: it notes what it was asked, and answers with its public fields.
class SimulatedSession final : public Session
{
    Q_OBJECT

public:
    bool openAddress(const QUrl &address) override;
    QUrl trustSettingsAddress() override;
    std::optional<int> clearTrustRow(const QString &bundleIdentifier) override;
    int systemMajorVersion() override;

    bool opensAddresses = true;
    QUrl settingsAddress{QStringLiteral("help:window-access")};
    std::optional<int> clearingStatus{};
    int majorVersion = 0;

    QList<QUrl> openedAddresses;
    QStringList clearedRows;
};

} // namespace corvane
