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
using testing::ElementsAre;

namespace {

class LegacyIdentityTests : public testing::Test
{
protected:
    LegacyIdentityTests()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
        UserDefaults::prepare();
    }

    /// What it records on being run.
    static std::vector<std::pair<QString, QString>> eventsOfAdopting()
    {
        const qsizetype before = FlightRecorder::shared().ledger().size();
        LegacyIdentity::adopt(LegacyIdentity::earlier);
        std::vector<std::pair<QString, QString>> events;
        for (const auto &event : FlightRecorder::shared().ledger().mid(before))
            events.emplace_back(event.kind, event.detail);
        return events;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"home/.config"_s);
    SimulatedPlatform platform;
};

} // namespace

TEST_F(LegacyIdentityTests, takesOverTheEarlierDefaultsOnce)
{
    {
        QSettings earlier(u"Corvane"_s, LegacyIdentity::earlier);
        earlier.setValue("column", 210);
        earlier.setValue(UserDefaults::loginItemCarriedOver, true);
    }

    LegacyIdentity::adopt(LegacyIdentity::earlier);
    QSettings defaults;
    EXPECT_EQ(defaults.value("column"), 210);
    defaults.setValue("column", 300);
    LegacyIdentity::adopt(LegacyIdentity::earlier);

    EXPECT_EQ(defaults.value("column"), 300);
    EXPECT_FALSE(defaults.contains(UserDefaults::loginItemCarriedOver));
    const QFileInfo file(defaults.fileName());
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    EXPECT_EQ(QFileInfo(file.path()).permissions() & (QFile::ExeGroup | QFile::ExeOther), 0);
}

TEST_F(LegacyIdentityTests, clearsTheEarlierPermissionsOnceWithTheSystemSettingsClosed)
{
    platform.session().clearingStatus = 0;
    const pid_t settings =
        platform.desktop().start(u"com.apple.systempreferences"_s, u"System Settings"_s);
    platform.desktop().openWindow(settings, {.title = u"General"_s, .frame = {0, 0, 600, 400}});

    EXPECT_THAT(eventsOfAdopting(),
        ElementsAre(std::pair(u"legacy-system-settings"_s,
                        u"quit, so it reads the new identifier when it opens"_s),
            std::pair(u"legacy-permissions"_s, u"cleared"_s)));
    EXPECT_TRUE(eventsOfAdopting().empty());

    EXPECT_EQ(platform.session().clearedRows, QStringList{u"com.orvalle.corvane"_s});
    platform.deliver();
    EXPECT_FALSE(platform.applications().application(settings));
}

TEST_F(LegacyIdentityTests, aSystemThatCannotClearThemIsNotAskedAgain)
{
    for (const auto &[status, outcome] :
        {std::pair(
             std::optional<int>(), u"old copy not found; its rows stay for the person to remove"_s),
            std::pair(std::optional(70), u"failed (exit status 70)"_s)}) {
        QSettings().remove(UserDefaults::clearedLegacyPermissions);
        platform.session().clearingStatus = status;

        EXPECT_THAT(eventsOfAdopting(), ElementsAre(std::pair(u"legacy-permissions"_s, outcome)));
        EXPECT_TRUE(eventsOfAdopting().empty());
    }
}

TEST_F(LegacyIdentityTests, aHomeThatCannotBeWrittenToIsLived)
{
    // A file where the folder should be, since nothing stops root from writing.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, u"/dev/null/.config"_s);

    const auto events = eventsOfAdopting();

    ASSERT_EQ(events.size(), 3);
    EXPECT_EQ(events[0].first, u"save-failed"_s);
    EXPECT_EQ(events[2].first, u"legacy-permissions"_s);
}

} // namespace corvane
