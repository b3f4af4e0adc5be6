#include "ReleaseSite.h"
#include "ScreenReaderTests.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusReply>

#include <cstdio>
#include <signal.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

QByteArray read(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

/// A user's own copy, release 1 of three.
class UpdateReaderTests : public ScreenReaderTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ScreenReaderTests::SetUp());
        corvane().stop();
        auto published = ReleaseSite::publish(desktop());
        ASSERT_TRUE(published) << qPrintable(published.error());
        site = std::move(*published);
        installed = std::make_unique<CorvaneProcess>(desktop(), site->program());
    }
    void TearDown() override
    {
        installed.reset();
        if (const pid_t pid = running(); pid > 0)
            kill(pid, SIGTERM);
        EXPECT_TRUE(waitUntil([this] { return running() == 0; }));
        site.reset();
        EXPECT_TRUE(corvane().start());
        ScreenReaderTests::TearDown();
    }

    [[nodiscard]] bool diagnosticsSay(const QByteArray &text)
    {
        return waitUntil([&] { return read(pathOf(u"diagnostics.jsonl"_s)).contains(text); });
    }
    /// Who has the program's name; 0 for nobody.
    [[nodiscard]] pid_t running()
    {
        const auto bus = QDBusConnection::connectToBus(
            desktop().environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"updates"_s);
        const QDBusReply<uint> pid = bus.interface()->servicePid(u"app.corvane.Corvane"_s);
        return pid.isValid() ? pid_t(pid.value()) : 0;
    }
    /// Asks for updates, and installs the one that is found.
    void installFromSheet()
    {
        EXPECT_EQ(installed->ask({u"--check-for-updates"_s}).exitStatus, 0);
        EXPECT_TRUE(comesTo(find(u"push button Install and Relaunch"_s), Accessible::focused));
        keys().press({0, Key::enter});
    }
    void expectKeysToWork(xcb_window_t window)
    {
        for (const auto &[placement, stroke] : {shortcuts[1], shortcuts[0]}) {
            keys().press(stroke);
            EXPECT_TRUE(rests(window, frameOf(placement, standardDisplay)));
        }
    }
    void expectRequests(const QByteArrayList &paths)
    {
        for (const QByteArray &path : paths)
            EXPECT_EQ(site->nextRequest(), path);
    }

    std::unique_ptr<ReleaseSite> site;
    std::unique_ptr<CorvaneProcess> installed;
};

/// A copy that a package brought.
class PackageReaderTests : public ScreenReaderTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ScreenReaderTests::SetUp());
        corvane().stop();
        QDir().mkpath(folder.filePath(u"bin"_s));
        QDir().mkpath(folder.filePath(u"share/corvane"_s));
        QFile record(folder.filePath(u"share/corvane/install.json"_s));
        ASSERT_TRUE(record.open(QFile::WriteOnly) && record.write("{\"kind\": \"package\"}") > 0);
        bring();
    }
    void TearDown() override
    {
        packaged.reset();
        EXPECT_TRUE(corvane().start());
        ScreenReaderTests::TearDown();
    }
    [[nodiscard]] QString program() const { return folder.filePath(u"bin/corvane"_s); }
    /// As package managers do: under another name first.
    void bring()
    {
        ASSERT_TRUE(QFile::copy(QStringLiteral(CORVANE_PROGRAM), program() + u".new"_s));
        ASSERT_EQ(std::rename(qPrintable(program() + u".new"_s), qPrintable(program())), 0);
    }
    /// Those that run the program as it lies there now.
    [[nodiscard]] QList<pid_t> runningNow()
    {
        QList<pid_t> all = desktop().processes();
        all.removeIf([this](pid_t pid) {
            return QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(pid)) != program();
        });
        return all;
    }

    const QTemporaryDir folder;
    std::unique_ptr<CorvaneProcess> packaged;
};

} // namespace

TEST_F(PackageReaderTests, anotherVersionInItsPlaceIsToldAndOpenedOnRequest)
{
    startReader();
    packaged = std::make_unique<CorvaneProcess>(desktop(), program());
    ASSERT_TRUE(packaged->start());
    EXPECT_EQ(packaged->ask({u"--pane"_s, u"about"_s}).exitStatus, 0);
    find(u"label This copy came with a package, so your package manager updates it."_s);
    bring();
    EXPECT_TRUE(packaged->waitForLog(u"Another version of Corvane was installed"_s));
    EXPECT_TRUE(runningNow().isEmpty());

    EXPECT_TRUE(reader().operate(find(u"push button Open Again"_s)));

    EXPECT_TRUE(waitUntil([&] { return !packaged->isRunning() && runningNow().size() == 1; }));
    for (const pid_t pid : runningNow())
        kill(pid, SIGTERM);
    EXPECT_TRUE(waitUntil([&] { return runningNow().isEmpty(); }));
}

TEST_F(UpdateReaderTests, aReleaseIsFoundShownAndInstalledAndOneThatDoesNotRunIsLeftAgain)
{
    startReader();
    const QByteArray feed = "/updates/stable.json";
    ASSERT_TRUE(site->offer(2)) << qPrintable(desktop().logs());
    QFile defaults(desktop().configFolder() + u"/Corvane/Corvane.conf"_s);
    QDir().mkpath(QFileInfo(defaults).path());
    ASSERT_TRUE(
        defaults.open(QFile::WriteOnly) && defaults.write("[General]\nchecksForUpdates=false\n"));
    defaults.close();
    ASSERT_TRUE(installed->start()) << qPrintable(desktop().logs());
    EXPECT_EQ(installed->ask({u"--pane"_s, u"about"_s}).exitStatus, 0);
    find(u"push button Check Now"_s);
    installed->stop();
    defaults.remove();

    ASSERT_TRUE(installed->start()) << qPrintable(desktop().logs());
    EXPECT_TRUE(diagnosticsSay("update-found-quietly"));
    const xcb_window_t window = showFocused();
    expectKeysToWork(window);
    EXPECT_EQ(installed->ask({u"--capture"_s, u"Desk"_s}).exitStatus, 0);
    EXPECT_EQ(installed->ask({u"--pane"_s, u"tremor-log"_s}).exitStatus, 0);
    find(u"push button Show in Files"_s);
    const QByteArray settings = read(pathOf(settingsFile)), layouts = read(pathOf(layoutsFile));
    const pid_t first = running();

    installFromSheet();
    ASSERT_TRUE(focus(window));
    ASSERT_TRUE(waitUntil(
        [&] {
            keys().press(shortcuts[0].second);
            return running() != 0 && running() != first && site->current() == 2;
        },
        Milliseconds{60000}))
        << qPrintable(desktop().logs());
    EXPECT_TRUE(diagnosticsSay("no newer build on the feed"));
    find(u"push button Show in Files"_s);
    // One quiet check, one that was asked for, and the quiet one of the new version. The server was not
    // asked while the switch was off.
    const QByteArray version = "0.1.0";
    expectRequests({feed, feed, "/release-notes/Corvane-" + version,
        "/2/corvane-" + version + "-" + QSysInfo::currentCpuArchitecture().toLatin1() + ".tar.zst",
        feed});

    EXPECT_TRUE(focus(window));
    expectKeysToWork(window);
    EXPECT_EQ(read(pathOf(settingsFile)), settings);
    EXPECT_EQ(read(pathOf(layoutsFile)), layouts);
    ASSERT_TRUE(site->offer(3)) << qPrintable(desktop().logs());
    const pid_t second = running();

    installFromSheet();
    find(u"label The new version did not start."_s);

    EXPECT_NE(running(), second);
    EXPECT_EQ(site->current(), 2);
    find(u"push button Show in Files"_s);
    const Accessible sheet = find(u"dialog Corvane Update"_s);
    keys().press({0, Key::escape});
    EXPECT_TRUE(comesTo(sheet, Accessible::showing, false));
    EXPECT_TRUE(focus(window));
    expectKeysToWork(window);
    EXPECT_EQ(read(pathOf(layoutsFile)), layouts);
    EXPECT_EQ(installed->ask({u"--check-for-updates"_s}).exitStatus, 0);
    find(u"label You have the newest Corvane"_s);
}

} // namespace corvane::desktop
