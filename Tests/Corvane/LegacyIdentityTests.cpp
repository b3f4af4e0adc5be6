#include "LegacyIdentity.h"

#include "FlightRecorder.h"
#include "SimulatedPlatform.h"
#include "UserDefaults.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

void useHome(const QString &path)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path + u"/.config"_s);
    UserDefaults::prepare();
}

/// What adopting records.
QStringList eventsOfAdopting()
{
    const qsizetype before = FlightRecorder::shared().ledger().size();
    LegacyIdentity::adopt(LegacyIdentity::earlier);
    QStringList events;
    for (const auto &event : FlightRecorder::shared().ledger().mid(before))
        events << event.kind + u": "_s + event.detail;
    return events;
}

} // namespace

TEST(LegacyIdentityTests, takesOverTheEarlierDefaultsOnceIntoAPrivateFile)
{
    const QTemporaryDir home;
    SimulatedPlatform platform;
    useHome(home.path());
    QSettings(u"Corvane"_s, LegacyIdentity::earlier).setValue("column", 210);
    QSettings(u"Corvane"_s, LegacyIdentity::earlier).setValue("loginItemCarriedOver", true);

    LegacyIdentity::adopt(LegacyIdentity::earlier);
    QSettings defaults;
    EXPECT_EQ(defaults.value("column"), 210);
    defaults.setValue("column", 300);
    LegacyIdentity::adopt(LegacyIdentity::earlier);

    EXPECT_EQ(defaults.value("column"), 300);
    EXPECT_FALSE(defaults.contains("loginItemCarriedOver"));
    const QFileInfo file(defaults.fileName());
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    EXPECT_EQ(QFileInfo(file.path()).permissions() & (QFile::ExeGroup | QFile::ExeOther), 0);
}

TEST(LegacyIdentityTests, clearsTheEarlierPermissionsOnceWhateverComesOfIt)
{
    const QString quit =
        u"legacy-system-settings: quit, so it reads the new identifier when it opens"_s;
    const std::pair<std::optional<int>, QString> outcomes[]{{0, u"cleared"_s},
        {std::nullopt, u"old copy not found; its rows stay for the person to remove"_s},
        {70, u"failed (exit status 70)"_s}};
    for (const auto &[status, outcome] : outcomes) {
        const QTemporaryDir home;
        SimulatedPlatform platform;
        useHome(home.path());
        platform.session().clearingStatus = status;
        const pid_t settings = platform.desktop().start(u"com.apple.systempreferences"_s, {});
        platform.desktop().openWindow(settings, {.title = {}, .frame = {0, 0, 600, 400}});

        EXPECT_EQ(eventsOfAdopting(), (QStringList{quit, u"legacy-permissions: "_s + outcome}));
        EXPECT_EQ(eventsOfAdopting(), QStringList());

        EXPECT_EQ(platform.session().clearedRows, QStringList{LegacyIdentity::earlier});
        EXPECT_EQ(platform.desktop().findApplication(settings), nullptr);
    }
}

TEST(LegacyIdentityTests, goesOnWhereNothingCanBeWritten)
{
    SimulatedPlatform platform;
    useHome(u"/dev/null"_s); // root may write to any folder

    const QStringList events = eventsOfAdopting();

    ASSERT_EQ(events.size(), 3);
    EXPECT_TRUE(events.first().startsWith(u"save-failed"_s));
    EXPECT_TRUE(events.last().startsWith(u"legacy-permissions"_s));
}

} // namespace corvane
