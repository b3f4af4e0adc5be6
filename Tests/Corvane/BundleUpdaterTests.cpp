#include "BundleUpdater.h"
#include "ModelDesk.h"
#include "Updates.h"

#include <QtWidgets/QApplication>

#include <gmock/gmock.h>

namespace corvane {

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Stage = UpdateSession::Stage;

const QByteArray found =
    R"(echo '{"kind":"found","version":"1.3","build":45,"released":"2026-03-01T12:00:00Z"}')"
    "\n";

/// A copy whose helper is a script.
struct BundleDesk {
    explicit BundleDesk(const QByteArray &script)
    {
        folder.write(u"helper"_s, "#!/bin/sh\n" + script);
        QFile::setPermissions(folder.path(u"helper"_s), QFile::ReadOwner | QFile::ExeOwner);
        updates.start();
    }

    UpdateSource source()
    {
        auto updater = std::make_unique<BundleUpdater>(BundleUpdater::Setup{
            .helper = folder.path(u"helper"_s), .spawn = [this](const QByteArrayList &command) {
                spawned = command.sliced(1);
                return u"it cannot"_s;
            }});
        return {{.kind = InstallKind::bundle, .build = 44}, std::move(updater)};
    }
    [[nodiscard]] bool comesTo(const std::function<bool()> &condition)
    {
        const QDeadlineTimer deadline(std::chrono::seconds(20));
        while (!condition() && !deadline.hasExpired())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }
    template <typename Kind>
    [[nodiscard]] bool shows()
    {
        return comesTo(
            [this] { return std::holds_alternative<Kind>(session.stage.value().value); });
    }
    [[nodiscard]] std::string message() const
    {
        const auto *const failed = std::get_if<Stage::Failed>(&session.stage.value().value);
        return failed ? failed->message.toStdString() : "it did not fail";
    }

    StoreFolder folder;
    ModelDesk desk;
    AppModel model = desk.model();
    QByteArrayList spawned;
    Updates updates{model, source()};
    UpdateSession &session = updates.driver().session();
};

} // namespace

TEST(BundleUpdaterTests, whateverBecomesOfTheHelperIsSaidInOneSentence)
{
    const QByteArray failed = R"(echo '{"kind":"failed","domain":"%1","problem":"%2"}')";
    const auto failing = [&](const char *domain, const char *problem) {
        return QByteArray(failed).replace("%1", domain).replace("%2", problem);
    };
    const QByteArray installing = found + "read word\n";
    const std::pair<QByteArray, const char *> rows[]{
        {"exit 0", "did not work"},
        {"exit 1", "did not work"},
        {"kill -9 $$", "did not work"},
        {"echo '<html>'; sleep 60", "did not work"},
        {"yes | tr -d '\\n'", "did not work"},
        {failing("network", "unreachable"), "could not be reached"},
        {failing("feed", "expired"), "out of date"},
        {failing("feed", "thing"), "did not work"},
        {installing + "echo '{\"kind\":\"downloading\",\"bytes\":9}'\n"
                + failing("network", "timedOut"),
            "stopped part way"},
        {installing + "echo '{\"kind\":\"downloading\",\"bytes\":9}'\n"
                + failing("install", "notAsSigned"),
            "signed"},
        {installing + "exit 0", "did not work"},
    };
    for (const auto &[script, sentence] : rows) {
        SCOPED_TRACE(script.toStdString());
        BundleDesk desk(script);

        desk.model.onCheckForUpdatesNow();
        if (script.startsWith(found)) {
            EXPECT_TRUE(desk.shows<Stage::Found>());
            desk.session.onInstall();
        }

        EXPECT_TRUE(desk.shows<Stage::Failed>());
        EXPECT_THAT(desk.message(), HasSubstr(sentence));
        EXPECT_FALSE(desk.model.updateStatus.value().checking);
        EXPECT_EQ(desk.spawned, QByteArrayList());
    }
}

TEST(BundleUpdaterTests, aQuietCheckThatHangsGivesWayToTheUsers)
{
    BundleDesk desk("[ \"$2\" = --asked ] || sleep 60\necho '{\"kind\":\"notFound\"}'\n");
    desk.updates.readFeedQuietly();
    EXPECT_TRUE(desk.model.updateStatus.value().checking);

    desk.model.onCheckForUpdatesNow();

    EXPECT_TRUE(desk.shows<Stage::UpToDate>());
    EXPECT_TRUE(desk.comesTo([&] { return !desk.model.updateStatus.value().checking; }));
}

TEST(BundleUpdaterTests, whatHasBeenInstalledIsStartedOnceTheHelperHasEnded)
{
    BundleDesk desk(found + R"(read word; echo '{"kind":"ready"}'; read word
echo '{"kind":"installed","build":45,"version":"1.3","previous":44}'; touch "$0.ended")");
    desk.model.onCheckForUpdatesNow();
    ASSERT_TRUE(desk.shows<Stage::Found>());

    desk.session.onInstall();

    EXPECT_TRUE(desk.shows<Stage::Failed>()); // it could not be started
    EXPECT_THAT(desk.message(), HasSubstr("Quit Corvane and open it again"));
    EXPECT_TRUE(QFile::exists(desk.folder.path(u"helper.ended"_s)));
    EXPECT_THAT(
        desk.spawned, ElementsAre("--relaunch", "45", "--version", "1.3", "--previous", "44"));
}

TEST(BundleUpdaterTests, theNextQuietCheckComesInADayAndAfterAFailureInAnHour)
{
    for (const auto &[line, hours] : {std::pair(R"({"kind":"notFound"})", 24),
             std::pair(R"({"kind":"failed","domain":"network","problem":"unreachable"})", 1)}) {
        SCOPED_TRACE(line);
        BundleDesk desk("echo >> \"$0.runs\"\necho '" + QByteArray(line) + "'\n");
        const auto runs = [&] { return QFileInfo(desk.folder.path(u"helper.runs"_s)).size(); };
        const auto hasEnded = [&] { return !desk.model.updateStatus.value().checking; };
        desk.updates.readFeedQuietly();
        EXPECT_TRUE(desk.comesTo(hasEnded));
        ManualClock &clock = desk.desk.platform.manualClock();

        clock.advance(std::chrono::hours(hours) - std::chrono::seconds(1));
        EXPECT_EQ(runs(), 1);
        clock.advance(std::chrono::seconds(1));
        EXPECT_TRUE(desk.comesTo(hasEnded));
        EXPECT_EQ(runs(), 2);
    }
}

} // namespace corvane
