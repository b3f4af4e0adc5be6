#include "../CorvaneCore/StoreFolder.h"
#include "PrivateSession.h"
#include "Relauncher.h"
#include "Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusReply>

#include <gmock/gmock.h>

namespace corvane {

using enum InstallProblem;

namespace {

constexpr auto name = "app.corvane.Corvane"_L1;

/// Two versions of which the second is current, in a session of their own.
class RelauncherTests : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(session.startBus(), QString());
        const QString address = session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s);
        // What is started inherits it.
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
        bus.emplace(QDBusConnection::connectToBus(address, u"relauncher"_s));
        folder.emplace(InstallFolder::open(home.path(u"corvane"_s)).value());
    }
    void TearDown() override
    {
        freedesktop::ProcessHandle(pid_t(bus->interface()->servicePid(name).value())).kill();
        QDBusConnection::disconnectFromBus(u"relauncher"_s);
    }

    void install(qint64 build, const QByteArray &version)
    {
        ASSERT_TRUE(folder->stage(1));
        const QString bin = folder->stagingPath() + u"/bin"_s;
        ASSERT_TRUE(QDir().mkpath(bin));
        ASSERT_TRUE(QFile::copy(QStringLiteral(CORVANE_TEST_VERSION), bin + u"/corvane"_s));
        QFile file(bin + u"/version"_s);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(version) == version.size());
        ASSERT_TRUE(folder->adopt(build) && folder->makeCurrent(build));
    }

    Relauncher::End relaunch(const Relauncher::Patience &patience)
    {
        Relauncher::End end;
        QEventLoop loop;
        Relauncher relauncher(*folder, *bus, home.path(), patience);
        relauncher.start({2, u"2.0.0"_s, 1}, [&](const Relauncher::End &given) {
            end = given;
            loop.quit();
        });
        loop.exec();
        return end;
    }

    /// Whether this version answers in the end.
    bool comesToRun(qint64 build)
    {
        const QString version = folder->versionPath(build);
        return desktop::waitUntil([&] {
            const auto owner = bus->interface()->servicePid(name);
            return owner.isValid()
                && QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(owner.value())).startsWith(version);
        });
    }

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    // Programs may not run from every memory.
    const StoreFolder home{.folder = QTemporaryDir()};
    desktop::PrivateSession session;
    std::optional<QDBusConnection> bus;
    std::optional<InstallFolder> folder;
};

struct BadVersionTests : RelauncherTests, testing::WithParamInterface<const char *> {
};

} // namespace

TEST_P(BadVersionTests, aVersionThatDoesNotAnswerAsItselfMakesRoomForTheOneBefore)
{
    install(1, "1.0.0");
    install(2, GetParam());

    const auto end = relaunch({.quit = desktop::patience, .answer = 2s});

    ASSERT_FALSE(end);
    EXPECT_EQ(end.error().problem, doesNotAnswer);
    EXPECT_EQ(folder->current(), 1);
    EXPECT_TRUE(comesToRun(1));
    EXPECT_THAT(UpdateState::load(home.path()).failedBuilds, testing::ElementsAre(2));
}

INSTANTIATE_TEST_SUITE_P(SilentOrAnother, BadVersionTests, testing::Values("silent", "1.9.0"));

TEST_F(RelauncherTests, whileTheVersionBeforeRunsNothingIsStarted)
{
    install(1, "1.0.0");
    const auto before = session.launch(folder->currentProgram());
    ASSERT_TRUE(comesToRun(1));
    install(2, "2.0.0");

    const auto end = relaunch({.quit = 100ms});

    ASSERT_FALSE(end);
    EXPECT_EQ(end.error().problem, stillRuns);
    EXPECT_TRUE(comesToRun(1));
    EXPECT_EQ(UpdateState::load(home.path()).failedBuilds, QList<qint64>());
}

} // namespace corvane
