#include "../CorvaneCore/StoreFolder.h"
#include "BundleDraft.h"
#include "CommandLines.h"
#include "DesktopEntry.h"
#include "HomeInstall.h"
#include "InstallFolder.h"
#include "KeyFile.h"
#include "PrivateSession.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusReply>

#include <gmock/gmock.h>

namespace corvane {

using freedesktop::KeyFile;
using testing::ElementsAreArray;

namespace {

constexpr auto entryName = "share/applications/app.corvane.Corvane.desktop"_L1;
constexpr auto serviceName = "share/dbus-1/services/app.corvane.Corvane.service"_L1;

/// A home whose name has every letter that has to be quoted, and a bundle beside it.
struct NewHome {
    // Programs may not run from every memory.
    const StoreFolder folder{.folder = QTemporaryDir()};
    const QString home = folder.path(u"a \"ho`me$ \\s %u"_s);
    const QString local = home + u"/.local/"_s;
    HomeUser user{home, local + u"share"_s, {local + u"bin"_s}};
    QDBusConnection bus{QString()};
    QStringList said;

    int install(const BundleDraft &bundle)
    {
        QDir(folder.path(u"bundle"_s)).removeRecursively();
        bundle.write(folder.path(u"bundle"_s));
        said.clear();
        return installHere(folder.path(u"bundle"_s), user, bus,
            [this](const QString &sentence) { said << sentence; });
    }
    [[nodiscard]] std::optional<QByteArray> read(const QString &name) const
    {
        return folder.read(within(name));
    }
    [[nodiscard]] QString within(const QString &name) const
    {
        return QDir(folder.path()).relativeFilePath(local + name);
    }
    [[nodiscard]] QString program() const { return local + u"lib/corvane/current/bin/corvane"_s; }
};

QByteArrayList commandOf(const QByteArray &exec)
{
    freedesktop::DesktopEntry entry;
    entry.exec = exec;
    return freedesktop::commandLine(entry);
}

} // namespace

TEST(HomeInstallTests, theDesktopFindsEverythingThroughTheLink)
{
    NewHome home;

    ASSERT_EQ(home.install(BundleDraft(7)), 0);

    EXPECT_EQ(home.said.size(), 1);
    const QByteArray command = home.program().toUtf8();
    const QString entry = home.local + entryName;
    EXPECT_EQ(KeyFile(entry, "Desktop Entry").value("TryExec"), command);
    EXPECT_EQ(
        commandOf(KeyFile(entry, "Desktop Entry").value("Exec")), (QByteArrayList{"env", command}));
    EXPECT_EQ(commandOf(KeyFile(entry, "Desktop Action maximize").value("Exec")),
        (QByteArrayList{"env", command, "--place", "maximize"}));
    EXPECT_EQ(KeyFile(home.local + serviceName, "D-BUS Service").value("Exec"),
        KeyFile(entry, "Desktop Entry").value("Exec").replace("%%", "%").chopped(3).sliced(4));
    for (const QString &name : {u"bin/corvane"_s, u"share/man/man1/corvane.1"_s,
             u"share/bash-completion/completions/corvane"_s,
             u"share/icons/hicolor/scalable/apps/app.corvane.Corvane.svg"_s})
        EXPECT_EQ(
            QFile::symLinkTarget(home.local + name), home.local + u"lib/corvane/current/"_s + name);
}

TEST(HomeInstallTests, anyBuildFollowsAnyOtherAndTheOneBeforeStays)
{
    const std::pair<QList<qint64>, QList<qint64>> rows[]{{{1, 1}, {1}}, {{2, 1}, {1, 2}},
        {{1, 2, 3, 3}, {2, 3}}, {{1, 3, 2}, {2, 3}}, {{1, 2, 1}, {1, 2}}};
    for (const auto &[installed, kept] : rows) {
        SCOPED_TRACE(testing::PrintToString(installed));
        NewHome home;

        for (const qint64 build : installed)
            EXPECT_EQ(home.install(BundleDraft(build)), 0);

        auto folder = InstallFolder::open(InstallFolder::pathIn(home.home));
        EXPECT_EQ(folder->current(), installed.last());
        EXPECT_THAT(folder->builds(), ElementsAreArray(kept));
    }
}

TEST(HomeInstallTests, aSecondCallMendsAVersionThatIsDamaged)
{
    NewHome home;
    ASSERT_EQ(home.install(BundleDraft(7)), 0);
    ASSERT_TRUE(QFile::remove(home.program()));

    EXPECT_EQ(home.install(BundleDraft(7)), 0);

    EXPECT_TRUE(QFile::exists(home.program()));
    EXPECT_FALSE(QFile::exists(home.local + u"lib/corvane/staging"_s)) << "what was damaged went";
}

TEST(HomeInstallTests, whatAnotherHasPutThereStaysAndTheRestIsInstalled)
{
    NewHome home;
    const QString command = home.local + u"bin/corvane"_s;
    ASSERT_TRUE(QDir().mkpath(home.local + u"bin"_s));
    ASSERT_TRUE(QFile::link(u"/usr/bin/env"_s, command));
    const QStringList texts{entryName, serviceName, u"share/man/man1/corvane.1"_s};
    for (const QString &name : texts)
        home.folder.write(home.within(name), "mine");

    EXPECT_EQ(home.install(BundleDraft(7)), 0);

    EXPECT_EQ(QFile::symLinkTarget(command), u"/usr/bin/env");
    for (const QString &name : texts) {
        EXPECT_EQ(home.read(name), "mine");
        EXPECT_TRUE(home.said.join(u'\n').contains(name)) << qPrintable(name);
    }
    EXPECT_TRUE(home.read(u"share/icons/hicolor/scalable/apps/app.corvane.Corvane.svg"_s));
}

TEST(HomeInstallTests, whatIsNoBundleThatRunsHereChangesNothing)
{
    BundleDraft broken(8);
    broken.files["bin/corvane"] = "#!/bin/sh\necho no such display >&2; exit 1\n";
    const std::pair<BundleDraft, const char *> rows[]{{broken, "no such display"},
        {BundleDraft(8, "package"), "install.json"}, {BundleDraft(0), "install.json"}};
    for (const auto &[bundle, said] : rows) {
        SCOPED_TRACE(said);
        NewHome home;
        ASSERT_EQ(home.install(BundleDraft(7)), 0);
        QFile::remove(home.local + u"bin/corvane"_s);

        EXPECT_EQ(home.install(bundle), 1);

        EXPECT_TRUE(home.said.join(u'\n').contains(QString::fromUtf8(said)));
        EXPECT_EQ(QFile::symLinkTarget(home.local + u"lib/corvane/current"_s),
            home.local + u"lib/corvane/versions/7"_s);
        EXPECT_FALSE(QFile::exists(home.local + u"bin/corvane"_s));
    }
}

TEST(HomeInstallTests, theBusLearnsOfTheServiceAndTheUserOfACopyThatRuns)
{
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    desktop::PrivateSession session;
    ASSERT_EQ(session.startBus(), QString());
    NewHome home;
    home.user = {session.home(), session.dataFolder(), {}};
    home.bus = QDBusConnection::connectToBus(
        session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"install"_s);
    ASSERT_TRUE(home.bus.registerService(u"app.corvane.Corvane"_s));

    EXPECT_EQ(home.install(BundleDraft(7)), 0);

    EXPECT_TRUE(
        home.bus.interface()->activatableServiceNames().value().contains(u"app.corvane.Corvane"_s));
    EXPECT_EQ(home.said.size(), 3);
    EXPECT_TRUE(home.said.value(1).contains(QCoreApplication::applicationFilePath()));
    EXPECT_TRUE(home.said.value(2).contains(u"/.local/bin"_s));
    QDBusConnection::disconnectFromBus(u"install"_s);
}

} // namespace corvane
