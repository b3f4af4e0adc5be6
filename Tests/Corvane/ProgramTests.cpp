#include "../CorvaneCore/StoreFolder.h"
#include "Waiting.h"

#include <QtCore/QProcess>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusReply>

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <memory>

namespace corvane {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr auto name = "app.corvane.Corvane"_L1;
constexpr auto invalid = "org.freedesktop.DBus.Error.InvalidArgs"_L1;

using Program = std::unique_ptr<QProcess>;

/// The program on a simulated desk, with a session bus of its own or none.
class ProgramTests : public testing::Test
{
protected:
    ProgramTests()
    {
        for (const auto &[variable, value] : {std::pair(u"CORVANE_BACKEND"_s, u"simulated"_s),
                 {u"LC_ALL"_s, u"C.UTF-8"_s}, {u"CORVANE_DESK"_s, folder.path(u"desk.json"_s)},
                 {u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + folder.path(u"none"_s)},
                 {u"XDG_DATA_HOME"_s, folder.path(u"data"_s)},
                 {u"XDG_CONFIG_HOME"_s, folder.path(u"config"_s)}})
            environment.insert(variable, value);
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        folder.write(u"desk.json"_s,
            R"({"displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
            "applications": [{"id": "org.example.Editor", "name": "Editor",
            "windows": [{"title": "Le\u001b[31mtter", "frame": [40, 60, 700, 600]}]}]})");
    }

    void startBus()
    {
        bus.reset(new QProcess);
        bus->setProcessEnvironment(environment);
        bus->start(u"dbus-daemon"_s,
            {u"--session"_s, u"--nofork"_s, u"--print-address"_s,
                u"--address=unix:path="_s + folder.path(u"bus"_s)});
        ASSERT_TRUE(bus->waitForReadyRead());
        address = QString::fromUtf8(bus->readAllStandardOutput()).trimmed();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    }
    QDBusConnection session() const { return QDBusConnection::connectToBus(address, address); }

    Program start(const char *arguments) const
    {
        Program process(new QProcess);
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(CORVANE_PROGRAM),
            QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts));
        return process;
    }
    /// Runs to its end; what it prints, errors last.
    std::string run(const char *arguments, int status = 0) const
    {
        const auto process = start(arguments);
        EXPECT_TRUE(process->waitForFinished() && process->exitStatus() == QProcess::NormalExit);
        const QByteArray error = process->readAllStandardError();
        EXPECT_EQ(process->exitCode(), status) << arguments << ": " << error.data();
        return (process->readAllStandardOutput() + error).toStdString();
    }
    void expect(const char *arguments, int status, const char *said) const
    {
        EXPECT_THAT(run(arguments, status), HasSubstr(said)) << arguments;
    }

    /// What it logs until that contains the text.
    static std::string readUntil(const Program &process, const char *text)
    {
        process->setReadChannel(QProcess::StandardError);
        QByteArray log;
        while (!log.contains(text) && process->waitForReadyRead())
            log += process->readAllStandardError();
        return log.toStdString();
    }

    /// Calls as a desktop does; returns the error's name, empty when there is none.
    QString call(const QString &method, const QVariant &what, const QVariantList &parameter = {})
    {
        auto call = QDBusMessage::createMethodCall(
            name, u"/app/corvane/Corvane"_s, u"org.freedesktop.Application"_s, method);
        call << what;
        if (method == u"ActivateAction")
            call << QVariant(parameter);
        return session().call(call << QVariantMap()).errorName();
    }

    const StoreFolder folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    Program bus;
    QString address;
};

} // namespace

TEST_F(ProgramTests, aCommandWithoutARunningInstanceAnswersAndIsWrittenDownWithoutTitles)
{
    expect("--history", 0, "No moves have been written down yet.\n");
    expect("--capture Work", 0, "Captured 1 window on 1 display as \"Work\".\n");
    expect("--layouts", 0, "*  Work");
    expect("--place leftHalf --json", 0, R"("to":[0,0,720,900])");
    expect("--apply-layout Work --json", 0, R"("status":"placed")");
    expect("--place snapBack", 1, "snapBack: nothing to snap back\n");
    expect("--place middle", 2, "leftHalf");
    expect("--apply-layout Play", 2, "the layouts are: Work");
    expect("--history", 0, "40,60 700×600 → 0,0 720×900\n");
    expect("--history --json 1", 0, R"([{"action":"layout")");
    EXPECT_THAT(run("--history"), Not(HasSubstr("\x1b")));
    const std::string events = folder.read(u"data/Corvane/diagnostics.jsonl"_s)->toStdString();
    EXPECT_THAT(events, AllOf(HasSubstr("leftHalf: Editor moved"), Not(HasSubstr("tter"))));
}

TEST_F(ProgramTests, aMissingDesktopIsOneSentence)
{
    environment.insert(u"CORVANE_BACKEND"_s, u"x11"_s);
    expect("", 1, "DISPLAY");
    expect("--place leftHalf --print-settings", 1, R"("sizeStep": 60)");
    startBus();
    std::array<Program, 24> programs; // whose bus thread had no types left when they ended
    for (Program &program : programs)
        program = start("--place leftHalf");
    for (const Program &program : programs) {
        ASSERT_TRUE(program->waitForFinished());
        EXPECT_EQ(program->readAllStandardError().count('\n'), 1);
    }
}

TEST_F(ProgramTests, aReportIsSavedWithAndWithoutADesktopAndReplacesNothing)
{
    run("--place leftHalf");
    const QByteArray file = folder.path(u"report.txt"_s).toLocal8Bit();
    const QByteArray save = "--report gap --save " + file;

    EXPECT_EQ(run(save.constData()), "");
    const std::string saved = folder.read(u"report.txt"_s)->toStdString();
    EXPECT_THAT(saved,
        AllOf(HasSubstr("\ngap\n"), HasSubstr("Session: Simulated\n"),
            HasSubstr("  move: leftHalf: Editor moved"),
            HasSubstr("Display 1: Built-in, 1440×900")));
    expect(save.constData(), 1, "report.txt” exists already.\n");
    environment.insert(u"CORVANE_BACKEND"_s, u"x11"_s);
    EXPECT_THAT(run("--report --save - --history 1"),
        AllOf(HasSubstr("move: leftHalf"), HasSubstr("→"), Not(HasSubstr("Session:"))));
}

TEST_F(ProgramTests, theBusStartsItAndASecondStartHandsItsFlagsToIt)
{
    startBus();
    folder.write(u"data/dbus-1/services/app.corvane.Corvane.service"_s,
        "[D-BUS Service]\nName=app.corvane.Corvane\n"
        "Exec=" CORVANE_PROGRAM " --verbose --pop-menu\n"); // which ended it without an X server
    EXPECT_EQ(call(u"ActivateAction"_s, u"rightHalf"_s), QString());
    EXPECT_THAT(readUntil(bus, "rightHalf: Editor"), HasSubstr("21 of 21"));

    // One process sees all of it: the press cycles, and there is something to go back to.
    expect("--place snapBack --json", 0, R"("to":[40,60,700,600])");
    expect("--capture Work", 0, "Work");
    expect("--place leftHalf --json", 0, R"("placement":"leftHalf")");
    expect("--place leftHalf --json", 0, R"("placement":"leftTwoThirds")");
    expect("", 0, "running already");
    expect("--apply-layout Work", 0, "placed at 40,60 700×600\n");
    expect("--place middle", 2, "leftHalf");
    EXPECT_THAT(readUntil(bus, "layout applied"),
        AllOf(HasSubstr("leftHalf: Editor"), Not(HasSubstr("tter"))));

    EXPECT_EQ(call(u"ActivateAction"_s, u"place"_s, {u"topHalf"_s}), QString());
    EXPECT_EQ(call(u"ActivateAction"_s, u"capture"_s), QString());
    EXPECT_EQ(call(u"ActivateAction"_s, u"explode"_s), invalid);
    EXPECT_EQ(call(u"ActivateAction"_s, u"place"_s), invalid);
    EXPECT_EQ(call(u"Open"_s, QStringList{u"--capture"_s}), invalid);
    EXPECT_THAT(run("--layouts"), AllOf(HasSubstr("*  Layout"), Not(HasSubstr("Layout 2"))));
    ::kill(static_cast<pid_t>(session().interface()->servicePid(name)), SIGTERM);
    EXPECT_TRUE(
        desktop::waitUntil([&] { return !session().interface()->isServiceRegistered(name); }, 30s));
}

TEST_F(ProgramTests, itsFilesAreObeyedPrunedAndFollowed)
{
    const QString settings = u"data/Corvane/settings.json"_s;
    const QString history = u"data/Corvane/activity.jsonl"_s;
    const QString snapshot = u"data/Corvane/snapshot.json"_s;
    folder.write(settings, R"({"gap": 10, "sizeStep": "wide"})");
    folder.write(history, R"({"date":"2001-01-01T00:00:00Z","app":"Old"})");
    startBus();
    const auto resident = start("--verbose");

    EXPECT_THAT(readUntil(resident, "ready"),
        HasSubstr("Corvane could not read some of your settings in settings.json"));
    EXPECT_THAT(run("--print-settings"),
        AllOf(HasSubstr(R"("gap": 10)"), HasSubstr("some of your settings in settings.json")));
    EXPECT_TRUE(desktop::waitUntil(
        [&] { return !folder.read(history)->contains("Old") && folder.read(snapshot); }, 30s));
    EXPECT_THAT(folder.read(snapshot)->toStdString(),
        AllOf(HasSubstr(R"("accessibilityTrusted": true)"), HasSubstr(R"("kind": "hotkeys")")));

    // Every placement but one gains its preset's shortcut.
    folder.write(settings, R"({"gap": 20, "shortcuts": [], "knownPlacements": ["leftHalf"]})");
    EXPECT_THAT(readUntil(resident, "ready"), HasSubstr("20 of 20"));
    expect("--place leftHalf --json", 0, R"("to":[20,20,690,860])");
}

} // namespace corvane
