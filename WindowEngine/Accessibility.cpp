#include "Accessibility.h"

#include "Identity.h"
#include "Platform.h"

#include <QtCore/QCoreApplication>

namespace corvane::Accessibility {

using namespace Qt::StringLiterals;

namespace {

QString clearingReport(std::optional<int> exitStatus)
{
    if (!exitStatus) {
        return u"own row not cleared before asking (%1): could not run tccutil"_s.arg(
            Identity::bundleIdentifier);
    }
    return u"own row %1 before asking (%2, tccutil exit %3)"_s
        .arg(*exitStatus == 0 ? u"cleared"_s : u"not cleared"_s, Identity::bundleIdentifier)
        .arg(*exitStatus);
}

void clearStaleRow()
{
    const auto status = Platform::current().session().clearTrustRow(Identity::bundleIdentifier);
    if (onDiagnostic)
        onDiagnostic(clearingReport(status));
}

} // namespace

bool isTrusted()
{
    return Platform::current().windows().isTrusted();
}

void setMessagingTimeout(double seconds)
{
    Platform::current().windows().setMessagingTimeout(seconds);
}

bool requestTrust(StaleRow staleRow)
{
    if (staleRow == StaleRow::clear)
        clearStaleRow();
    return isTrusted();
}

bool openSettings()
{
    Session &session = Platform::current().session();
    return session.openAddress(session.trustSettingsAddress());
}

QString paneName()
{
    constexpr int lastWithAccessibilityPane = 26;
    return Platform::current().session().systemMajorVersion() > lastWithAccessibilityPane
        ? QCoreApplication::translate("Accessibility", "Device Control and Data Access")
        : QCoreApplication::translate("Accessibility", "Accessibility");
}

} // namespace corvane::Accessibility
