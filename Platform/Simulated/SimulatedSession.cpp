#include "SimulatedSession.h"

namespace corvane {

bool SimulatedSession::openAddress(const QUrl &address)
{
    openedAddresses << address;
    return opensAddresses;
}

QUrl SimulatedSession::trustSettingsAddress()
{
    return settingsAddress;
}

std::optional<int> SimulatedSession::clearTrustRow(const QString &bundleIdentifier)
{
    clearedRows << bundleIdentifier;
    return clearingStatus;
}

int SimulatedSession::systemMajorVersion()
{
    return majorVersion;
}

} // namespace corvane
