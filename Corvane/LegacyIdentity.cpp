#include "LegacyIdentity.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "UserDefaults.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

namespace corvane::LegacyIdentity {

using namespace Qt::StringLiterals;

namespace {

constexpr auto systemSettings = "com.apple.systempreferences"_L1;

void copyDefaults(const QString &from)
{
    QSettings earlierDefaults(QCoreApplication::organizationName(), from);
    earlierDefaults.setFallbacksEnabled(false);
    QSettings defaults;
    for (const QString &key : earlierDefaults.allKeys()) {
        // The flags say what has been done for the earlier identity, not for this one.
        if (!UserDefaults::isFlag(key))
            defaults.setValue(key, earlierDefaults.value(key));
    }
}

void quitSystemSettings()
{
    Applications &applications = Platform::current().applications();
    for (const RunningApplication &each : applications.running()) {
        if (each.bundleIdentifier != systemSettings)
            continue;
        applications.quit(each.pid);
        FlightRecorder::shared().record(
            u"legacy-system-settings"_s, u"quit, so it reads the new identifier when it opens"_s);
    }
}

QString clearingOutcome(std::optional<int> exitStatus)
{
    if (!exitStatus)
        return u"old copy not found; its rows stay for the person to remove"_s;
    return *exitStatus == 0 ? u"cleared"_s : u"failed (exit status %1)"_s.arg(*exitStatus);
}

} // namespace

void adopt(const QString &from)
{
    if (!UserDefaults::testAndSet(UserDefaults::carriedOverLegacyDefaults))
        copyDefaults(from);
    if (UserDefaults::testAndSet(UserDefaults::clearedLegacyPermissions))
        return;
    quitSystemSettings();
    FlightRecorder::shared().record(u"legacy-permissions"_s,
        clearingOutcome(Platform::current().session().clearTrustRow(from)));
}

} // namespace corvane::LegacyIdentity
