#include "Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusReply>
#include <QtDBus/QDBusVirtualObject>

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <memory>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr desktop::Milliseconds patience{30000};

constexpr auto desk = R"({
    "displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
    "applications": [{"id": "org.example.Editor", "name": "Editor",
        "windows": [{"title": "Letter", "frame": [40, 60, 700, 600]}]}]
})";

/// In place of a running program: it has some methods, and notes each call.
struct FakeInstance final : QDBusVirtualObject {
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        calls << message;
        return connection.send(methods.contains(message.member())
                ? message.createReply({7, QString(), QString()})
                : message.createErrorReply(QDBusError::UnknownMethod, {}));
    }
    QString introspect(const QString &) const override { return {}; }

    QStringList methods;
    QList<QDBusMessage> calls;
};

/// The program on a simulated desk, with a session bus of its own or none.
class ProgramTests : public testing::Test
{
protected:
    struct Result {
        int status = -1;
        std::string output;
        std::string error;

        QJsonObject json() const
        {
            return QJsonDocument::fromJson(QByteArray::fromStdString(output)).object();
        }
    };

    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        environment.insert(u"CORVANE_BACKEND"_s, u"simulated"_s);
        environment.insert(
            u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + folder.filePath(u"none"_s));
        environment.insert(u"XDG_DATA_HOME"_s, folder.filePath(u"data"_s));
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.filePath(u"config"_s));
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.filePath(u"config"_s));
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        environment.remove(u"DISPLAY"_s);
        describe(desk);
    }

    void describe(const char *text)
    {
        QFile file(folder.filePath(u"desk.json"_s));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
        environment.insert(u"CORVANE_DESK"_s, file.fileName());
    }

    /// A file of the program's own.
    QString kept(const QString &name) const { return folder.filePath(u"data/Corvane/"_s + name); }

    void keep(const QString &name, const char *text) const
    {
        ASSERT_TRUE(QDir().mkpath(folder.filePath(u"data/Corvane"_s)));
        QFile file(kept(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
    }

    void startBus()
    {
        bus.setProcessEnvironment(environment);
        bus.setProgram(u"dbus-daemon"_s);
        bus.setArguments({u"--session"_s, u"--nofork"_s, u"--print-address"_s,
            u"--address=unix:path="_s + folder.filePath(u"bus"_s)});
        bus.start();
        ASSERT_TRUE(bus.waitForReadyRead());
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s,
            QString::fromUtf8(bus.readAllStandardOutput()).trimmed());
    }

    /// Asks it to end, where it has not.
    struct Ending {
        void operator()(QProcess *process) const
        {
            process->terminate();
            EXPECT_TRUE(process->state() == QProcess::NotRunning || process->waitForFinished());
            delete process;
        }
    };
    using Program = std::unique_ptr<QProcess, Ending>;

    Program startProgram(const QStringList &arguments) const
    {
        Program process(new QProcess);
        process->setProgram(QStringLiteral(CORVANE_PROGRAM));
        process->setArguments(arguments);
        process->setProcessEnvironment(environment);
        process->start();
        return process;
    }

    Result run(const QStringList &arguments) const
    {
        const auto process = startProgram(arguments);
        if (!process->waitForFinished() || process->exitStatus() != QProcess::NormalExit)
            return {};
        return {process->exitCode(), process->readAllStandardOutput().toStdString(),
            process->readAllStandardError().toStdString()};
    }

    /// Has the bus start the program when it is called.
    void makeActivatable() const
    {
        const QString services = folder.filePath(u"data/dbus-1/services"_s);
        ASSERT_TRUE(QDir().mkpath(services));
        QFile file(services + u"/app.corvane.Corvane.service"_s);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("[D-BUS Service]\nName=app.corvane.Corvane\nExec=" CORVANE_PROGRAM "\n");
    }

    QDBusConnection sessionBus() const
    {
        const QString address = environment.value(u"DBUS_SESSION_BUS_ADDRESS"_s);
        return QDBusConnection::connectToBus(address, address);
    }

    /// Calls as a desktop does; returns the error's name, empty when there is none.
    QString callApplication(const QString &method, const QVariantList &arguments) const
    {
        auto call = QDBusMessage::createMethodCall(u"app.corvane.Corvane"_s,
            u"/app/corvane/Corvane"_s, u"org.freedesktop.Application"_s, method);
        call.setArguments(arguments);
        return sessionBus().call(call).errorName();
    }

    QString activateAction(const QString &action, const QVariantList &parameter = {}) const
    {
        return callApplication(u"ActivateAction"_s, {action, QVariant(parameter), QVariantMap()});
    }

    /// Ends the program that the bus has started.
    void endActivated() const
    {
        QDBusConnectionInterface *names = sessionBus().interface();
        const uint pid = names->servicePid(u"app.corvane.Corvane"_s);
        ASSERT_GT(pid, 1U);
        ASSERT_EQ(::kill(static_cast<pid_t>(pid), SIGTERM), 0);
        EXPECT_TRUE(desktop::waitUntil(
            [&] { return !names->isServiceRegistered(u"app.corvane.Corvane"_s); }, patience));
    }

    /// Waits until what it logs contains the text.
    static QByteArray readUntil(QProcess &process, const char *text)
    {
        process.setReadChannel(QProcess::StandardError);
        QByteArray log;
        while (!log.contains(text) && process.waitForReadyRead())
            log += process.readAllStandardError();
        return log;
    }

    void TearDown() override
    {
        bus.kill();
        bus.waitForFinished();
    }

    QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess bus;
};

} // namespace

TEST_F(ProgramTests, placesOnceWithoutARunningInstance)
{
    const Result moved = run({u"--place"_s, u"leftHalf"_s, u"--json"_s});
    const Result nothing = run({u"--place"_s, u"snapBack"_s});

    EXPECT_EQ(moved.status, 0) << moved.error;
    EXPECT_EQ(moved.json()[u"outcome"_s], u"moved"_s);
    EXPECT_EQ(moved.json()[u"to"_s], (QJsonArray{0, 0, 720, 900}));
    EXPECT_EQ(nothing.status, 1);
    EXPECT_EQ(nothing.output, "snapBack: nothing to snap back\n");
}

TEST_F(ProgramTests, aMistakeExitsWithTwoAndSaysWhatExists)
{
    const Result placement = run({u"--place"_s, u"middle"_s});
    const Result flag = run({u"--wat"_s});

    EXPECT_EQ(placement.status, 2);
    EXPECT_THAT(placement.error, HasSubstr("leftHalf"));
    EXPECT_EQ(flag.status, 2);
    EXPECT_THAT(flag.error, HasSubstr("--place"));
    EXPECT_EQ(flag.output, "");
}

TEST_F(ProgramTests, aDeskThatCannotBeReadIsOneSentence)
{
    describe("{\"displays\": 5}");

    const Result result = run({u"--place"_s, u"leftHalf"_s});

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error, HasSubstr("displays"));
}

TEST_F(ProgramTests, withoutADesktopItSaysSo)
{
    environment.insert(u"CORVANE_BACKEND"_s, u"x11"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    const Result bare = run({});
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
    const Result wayland = run({u"--place"_s, u"leftHalf"_s});

    EXPECT_EQ(bare.status, 1);
    EXPECT_THAT(bare.error, HasSubstr("DISPLAY"));
    EXPECT_EQ(wayland.status, 1);
    EXPECT_THAT(wayland.error, HasSubstr("Wayland"));
    const Result both = run({u"--place"_s, u"leftHalf"_s, u"--print-settings"_s});
    EXPECT_EQ(both.status, 1);
    EXPECT_EQ(both.json()[u"sizeStep"_s], 60);
}

TEST_F(ProgramTests, theBusThreadHadNoTypesLeftWhenTheProgramEnded)
{
    startBus();
    environment.insert(u"CORVANE_BACKEND"_s, u"x11"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    std::array<Program, 24> programs;
    for (Program &program : programs)
        program = startProgram({u"--place"_s, u"leftHalf"_s});

    for (const Program &program : programs) {
        ASSERT_TRUE(program->waitForFinished());
        EXPECT_EQ(program->readAllStandardError().count('\n'), 1);
    }
}

TEST_F(ProgramTests, aSecondStartHandsItsFlagsToTheRunningOne)
{
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    ASSERT_THAT(readUntil(*resident, "ready").toStdString(), HasSubstr("21 of 21"));

    const Result first = run({u"--place"_s, u"leftHalf"_s, u"--json"_s});
    const Result second = run({u"--place"_s, u"leftHalf"_s, u"--json"_s});
    const Result back = run({u"--place"_s, u"snapBack"_s, u"--json"_s});
    const Result again = run({});
    const Result mistake = run({u"--place"_s, u"middle"_s});

    // One process has seen all of it: the press cycles, and there is something to go back to.
    EXPECT_EQ(first.json()[u"placement"_s], u"leftHalf"_s);
    EXPECT_EQ(second.json()[u"placement"_s], u"leftTwoThirds"_s);
    EXPECT_EQ(back.json()[u"to"_s], first.json()[u"to"_s]);
    EXPECT_EQ(again.status, 0);
    EXPECT_THAT(again.output, HasSubstr("running already"));
    EXPECT_THAT(again.error, HasSubstr("settings window"));
    EXPECT_EQ(mistake.status, 2);
    EXPECT_THAT(readUntil(*resident, "snapBack").toStdString(), HasSubstr("leftHalf: Editor"));
}

TEST_F(ProgramTests, aSecondStartHandsItsActivationTokenOverToARunningOneThatTakesIt)
{
    startBus();
    FakeInstance running;
    QDBusConnection names = sessionBus();
    ASSERT_TRUE(names.registerVirtualObject(u"/app/corvane/Corvane"_s, &running)
        && names.registerService(u"app.corvane.Corvane"_s));
    environment.insert(u"DESKTOP_STARTUP_ID"_s, u"launcher_TIME7"_s);
    for (const QStringList &methods : {QStringList{u"Run"_s, u"RunWith"_s}, {u"Run"_s}}) {
        running.methods = methods;
        const auto program = startProgram({u"--open-settings"_s});

        EXPECT_TRUE(desktop::waitUntil(
            [&] {
                QCoreApplication::processEvents();
                return program->state() == QProcess::NotRunning;
            },
            patience));
        EXPECT_EQ(program->exitCode(), 7);
    }
    ASSERT_EQ(running.calls.size(), 3) << "one of an earlier version takes the flags alone";
    const QVariantList call = running.calls[0].arguments();
    EXPECT_EQ(call[0].toStringList(), QStringList{u"--open-settings"_s});
    EXPECT_EQ(qdbus_cast<QVariantMap>(call[1])[u"activation-token"_s], u"launcher_TIME7"_s);
    EXPECT_EQ(running.calls[2].member(), u"Run"_s);
}

TEST_F(ProgramTests, openingTheMenuDidNotEndItWithoutAnXServer)
{
    startBus();
    const auto resident = startProgram({u"--verbose"_s, u"--pop-menu"_s});
    readUntil(*resident, "ready");

    run({u"--place"_s, u"leftHalf"_s});

    EXPECT_THAT(readUntil(*resident, "leftHalf").toStdString(), HasSubstr("leftHalf: Editor"));
}

TEST_F(ProgramTests, actionsOfTheDesktopEntryAreCalledLikeThePlacements)
{
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    readUntil(*resident, "ready");

    EXPECT_EQ(activateAction(u"leftHalf"_s), QString());
    EXPECT_EQ(activateAction(u"place"_s, {u"topHalf"_s}), QString());
    EXPECT_EQ(activateAction(u"capture"_s), QString());
    EXPECT_EQ(activateAction(u"explode"_s), u"org.freedesktop.DBus.Error.InvalidArgs"_s);
    EXPECT_EQ(activateAction(u"place"_s), u"org.freedesktop.DBus.Error.InvalidArgs"_s);

    const std::string log = readUntil(*resident, "topHalf: Editor").toStdString();
    EXPECT_THAT(log, HasSubstr("leftHalf: Editor"));
    EXPECT_THAT(run({u"--layouts"_s}).output, HasSubstr("*  Layout"));
}

TEST_F(ProgramTests, nothingButAnAddressCanBeOpened)
{
    startBus();
    const auto resident = startProgram({u"corvane://settings/about"_s});
    EXPECT_THAT(readUntil(*resident, "later").toStdString(), HasSubstr("settings window"));

    for (const QString &uri :
        {u"corvane://settings/about"_s, u"--capture"_s, u"corvane://capture"_s})
        EXPECT_EQ(callApplication(u"Open"_s, {QStringList{uri}, QVariantMap()}).isEmpty(),
            uri.endsWith(u"about"_s));
    EXPECT_THAT(run({u"--layouts"_s}).output, HasSubstr("--capture NAME"));
    EXPECT_EQ(run({u"corvane://place/leftHalf"_s}).status, 2);
}

TEST_F(ProgramTests, theBusStartsItForAnActionAndItStays)
{
    startBus();
    makeActivatable();

    const QString error = activateAction(u"rightHalf"_s);
    const Result back = run({u"--place"_s, u"snapBack"_s, u"--json"_s});

    EXPECT_EQ(error, QString());
    EXPECT_EQ(back.json()[u"to"_s], (QJsonArray{40, 60, 700, 600})) << back.output;
    endActivated();
}

TEST_F(ProgramTests, withoutASessionBusItStaysAndSaysWhatIsMissing)
{
    const auto resident = startProgram({u"--verbose"_s});

    const std::string log = readUntil(*resident, "ready").toStdString();

    EXPECT_THAT(log, HasSubstr("no session bus"));
    EXPECT_THAT(log, HasSubstr("21 of 21"));
}

TEST_F(ProgramTests, whateverIsMissingItStartsAndSaysSo)
{
    describe(R"({"displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
        "trusted": false, "distrustReason": "Nobody manages windows."})");
    keep(u"settings.json"_s, "{");
    keep(u"layouts.json"_s, "{}");
    QFile config(folder.filePath(u"config"_s)); // no folder, and none can be made
    ASSERT_TRUE(config.open(QFile::WriteOnly));

    const auto resident = startProgram({u"--verbose"_s});
    const std::string log = readUntil(*resident, "tray").toStdString();

    EXPECT_THAT(log, HasSubstr("21 of 21 hot keys registered"));
    EXPECT_THAT(log, HasSubstr("no session bus"));
    EXPECT_THAT(log, HasSubstr("some of your settings"));
    EXPECT_THAT(log, HasSubstr("some of your layouts"));
    EXPECT_THAT(log, HasSubstr("Nobody manages windows."));
    EXPECT_THAT(log, HasSubstr("no tray for its icon"));
    EXPECT_EQ(resident->state(), QProcess::Running);
}

TEST_F(ProgramTests, withoutAPlaceToWriteItWorksForTheRun)
{
    QFile data(folder.filePath(u"data"_s));
    ASSERT_TRUE(data.open(QFile::WriteOnly));
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    readUntil(*resident, "ready");

    const Result captured = run({u"--capture"_s, u"Work"_s});

    EXPECT_EQ(captured.status, 1);
    EXPECT_THAT(captured.error, HasSubstr("Changes work until Corvane quits."));
    EXPECT_EQ(run({u"--apply-layout"_s, u"Work"_s}).status, 0);
    EXPECT_THAT(readUntil(*resident, "could not save").toStdString(), HasSubstr("layouts.json"));
}

TEST_F(ProgramTests, obeysTheSettingsFile)
{
    keep(u"settings.json"_s, R"({"gap": 10, "cycling": false,
        "shortcuts": ["leftHalf", {"keyCode": 123, "modifiers": 786432}],
        "knownPlacements": ["leftHalf"]})");

    const Result first = run({u"--place"_s, u"leftHalf"_s, u"--json"_s});
    const auto resident = startProgram({u"--verbose"_s});
    const std::string log = readUntil(*resident, "ready").toStdString();

    EXPECT_EQ(first.json()[u"to"_s], (QJsonArray{10, 10, 705, 880}));
    // The other placements have gained their preset's shortcuts, save the one whose keys are taken.
    EXPECT_THAT(log, HasSubstr("20 of 20"));
    const Result settings = run({u"--print-settings"_s});
    EXPECT_EQ(settings.status, 0);
    EXPECT_EQ(settings.json()[u"gap"_s], 10);
    EXPECT_EQ(settings.json()[u"cycling"_s], false);
    EXPECT_EQ(settings.json()[u"sizeStep"_s], 60);
}

TEST_F(ProgramTests, aDamagedSettingsFileIsKeptAndTold)
{
    keep(u"settings.json"_s, R"({"gap": "wide", "sizeStep": 40})");

    const auto resident = startProgram({u"--verbose"_s});
    const std::string log = readUntil(*resident, "ready").toStdString();

    EXPECT_THAT(log, HasSubstr("Corvane could not read some of your settings in settings.json"));
    const QStringList copies =
        QDir(kept({})).entryList({u"settings.json.unreadable-*"_s}, QDir::Files);
    ASSERT_EQ(copies.size(), 1);
    EXPECT_THAT(log, HasSubstr(copies.first().toStdString()));
    const Result settings = run({u"--print-settings"_s});
    EXPECT_EQ(settings.json()[u"sizeStep"_s], 40);
    EXPECT_THAT(settings.error, HasSubstr("some of your settings in settings.json"));
}

TEST_F(ProgramTests, everyMoveAndRefusalIsWrittenDown)
{
    describe(R"({
        "displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
        "applications": [{"id": "org.example.Editor", "name": "Editor",
            "windows": [{"title": "Le\u001b[31mtter", "frame": [40, 60, 700, 600]}]}]})");
    EXPECT_EQ(run({u"--history"_s}).output, "No moves have been written down yet.\n");
    EXPECT_EQ(run({u"--history"_s, u"--json"_s}).output, "[]\n");

    run({u"--place"_s, u"leftHalf"_s});
    run({u"--place"_s, u"topRight"_s});
    describe(R"({
        "displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
        "applications": [{"id": "org.example.Player", "name": "Player",
            "windows": [{"title": "Film", "frame": [0, 0, 1440, 900], "fullScreen": true}]}]})");
    run({u"--place"_s, u"leftHalf"_s});

    const Result all = run({u"--history"_s});
    EXPECT_EQ(all.status, 0);
    EXPECT_THAT(all.output, HasSubstr("Top Right Quarter  "));
    EXPECT_THAT(all.output, HasSubstr("40,60 700×600 → 0,0 720×900\n"));
    EXPECT_THAT(all.output, HasSubstr("Player       is in full screen  Built-in  refused\n"));
    EXPECT_THAT(all.output, Not(HasSubstr("\x1b")));
    const QJsonArray newest = QJsonDocument::fromJson(
        QByteArray::fromStdString(run({u"--history"_s, u"--json"_s, u"2"_s}).output))
                                  .array();
    ASSERT_EQ(newest.size(), 2);
    EXPECT_EQ(newest[0][u"action"_s], u"topRight"_s);
    EXPECT_EQ(newest[1][u"action"_s], u"refused"_s);
    QFile diagnostics(kept(u"diagnostics.jsonl"_s));
    ASSERT_TRUE(diagnostics.open(QFile::ReadOnly));
    const std::string events = diagnostics.readAll().toStdString();
    EXPECT_THAT(events, HasSubstr("leftHalf: Editor moved from 40,60"));
    EXPECT_THAT(events, Not(HasSubstr("tter"))) << "a title";
}

TEST_F(ProgramTests, aHistoryThatCannotBeWrittenIsOneLineForEachFile)
{
    for (const char *name : {"activity.jsonl", "diagnostics.jsonl"})
        ASSERT_TRUE(QDir().mkpath(kept(QString::fromLatin1(name))));
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    std::string log = readUntil(*resident, "diagnostics.jsonl: There").toStdString();

    EXPECT_EQ(run({u"--place"_s, u"leftHalf"_s}).status, 0);
    EXPECT_EQ(run({u"--place"_s, u"topHalf"_s}).status, 0);
    log += readUntil(*resident, "topHalf").toStdString();

    for (const char *line : {"activity.jsonl: There is a folder in its place.",
             "diagnostics.jsonl: There is a folder in its place."}) {
        EXPECT_THAT(log, HasSubstr(line));
        EXPECT_EQ(log.find(line), log.rfind(line)) << line;
    }
}

TEST_F(ProgramTests, settingsEditedWhileItRunsTakeEffectAndAreThePrintedOnes)
{
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    readUntil(*resident, "ready");

    keep(u"settings.json"_s, R"({"gap": 10, "shortcuts": [], "knownPlacements": ["leftHalf"]})");
    const std::string log = readUntil(*resident, "ready").toStdString();
    keep(u"settings.json"_s, R"({"gap": )");
    const std::string error = readUntil(*resident, "settings.json").toStdString();

    EXPECT_THAT(log, HasSubstr("20 of 20"));
    EXPECT_THAT(error, HasSubstr("so those in force stay. The old file is kept in"));
    EXPECT_EQ(run({u"--print-settings"_s}).json()[u"gap"_s], 10);
    EXPECT_EQ(run({u"--place"_s, u"leftHalf"_s, u"--json"_s}).json()[u"to"_s],
        (QJsonArray{10, 10, 705, 880}));
}

TEST_F(ProgramTests, aStartIsRecordedAndPrunesWhatIsOld)
{
    keep(u"activity.jsonl"_s,
        R"({"date":"2001-01-01T00:00:00Z","action":"center","title":"Center","app":"Old",)"
        R"("window":"","display":"","from":[],"to":[]})"
        "\n");
    const auto resident = startProgram({u"--verbose"_s});
    readUntil(*resident, "ready");
    QFile history(kept(u"activity.jsonl"_s));
    QFile snapshot(kept(u"snapshot.json"_s));

    EXPECT_TRUE(
        desktop::waitUntil([&] { return history.size() == 0 && snapshot.exists(); }, patience));

    EXPECT_EQ(history.size(), 0);
    ASSERT_TRUE(snapshot.open(QFile::ReadOnly));
    const QJsonObject values = QJsonDocument::fromJson(snapshot.readAll()).object();
    EXPECT_EQ(values[u"accessibilityTrusted"_s], true);
    EXPECT_EQ(values[u"displays"_s][0][u"name"_s], u"Built-in"_s);
    EXPECT_EQ(values[u"recentEvents"_s][1][u"kind"_s], u"hotkeys"_s);
}

TEST_F(ProgramTests, capturesListsAndAppliesALayoutWithoutARunningInstance)
{
    EXPECT_THAT(run({u"--layouts"_s}).output, HasSubstr("--capture NAME"));

    const Result captured = run({u"--capture"_s, u"Work"_s});
    EXPECT_EQ(captured.status, 0) << captured.error;
    EXPECT_EQ(captured.output, "Captured 1 window on 1 display as \"Work\".\n");
    EXPECT_THAT(run({u"--layouts"_s}).output, HasSubstr("*  Work"));

    const Result applied = run({u"--apply-layout"_s, u"Work"_s, u"--json"_s});
    EXPECT_EQ(applied.status, 0) << applied.error;
    EXPECT_EQ(applied.json()[u"layout"_s], u"Work"_s);
    const QJsonValue pane = applied.json()[u"panes"_s][0];
    EXPECT_EQ(pane[u"status"_s], u"placed"_s);
    EXPECT_EQ(pane[u"windowTitle"_s], u"Letter"_s);
    EXPECT_EQ(pane[u"previous"_s], (QJsonArray{40, 60, 700, 600}));

    const Result unknown = run({u"--apply-layout"_s, u"Play"_s});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.error, HasSubstr("the layouts are: Work"));
    EXPECT_EQ(run({u"--apply-layout"_s}).status, 2);
}

TEST_F(ProgramTests, aLayoutWithAPaneThatFoundNoWindowSaysWhichAndExitsWithOne)
{
    ASSERT_EQ(run({u"--capture"_s, u"Work"_s}).status, 0);
    describe(R"({"displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}]})");

    const Result applied = run({u"--apply-layout"_s, u"Work"_s});

    EXPECT_EQ(applied.status, 1);
    EXPECT_EQ(applied.output, "Editor: is not installed on this computer\n");
}

TEST_F(ProgramTests, theRunningInstanceAppliesLayoutsAndAnswersWhenItIsDone)
{
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    readUntil(*resident, "ready");

    EXPECT_EQ(run({u"--capture"_s, u"Work"_s}).status, 0);
    EXPECT_EQ(run({u"--place"_s, u"topLeft"_s}).status, 0);
    const Result applied = run({u"--apply-layout"_s, u"Work"_s});

    EXPECT_EQ(applied.status, 0) << applied.error;
    EXPECT_EQ(applied.output, "Editor \"Letter\" placed at 40,60 700×600\n");
    EXPECT_THAT(run({u"--history"_s, u"1"_s}).output, HasSubstr("Work  Editor"));
}

} // namespace corvane
