#include "Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
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
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr desktop::Milliseconds patience{30000};
constexpr auto name = "app.corvane.Corvane"_L1;
constexpr auto invalid = "org.freedesktop.DBus.Error.InvalidArgs"_L1;

/// A desk of one display and one application's only window.
QByteArray deskOf(const char *application, const char *window)
{
    return QByteArray(R"({"displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
        "applications": [{"id": "org.example.)")
        + application + R"(", "name": ")" + application + R"(", "windows": [)" + window + "]}]}";
}

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
    /// A command line, its exit status and something of what it prints.
    struct Step {
        const char *arguments;
        int status;
        const char *said;
    };
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

    ProgramTests()
    {
        const std::pair<const char *, QString> variables[]{{"CORVANE_BACKEND", u"simulated"_s},
            {"CORVANE_DESK", path(u"desk.json"_s)}, {"XDG_DATA_HOME", path(u"data"_s)},
            {"DBUS_SESSION_BUS_ADDRESS", u"unix:path="_s + path(u"none"_s)},
            {"XDG_CONFIG_HOME", path(u"config"_s)}, {"LC_ALL", u"C.UTF-8"_s}};
        for (const auto &[variable, value] : variables)
            environment.insert(QLatin1StringView(variable), value);
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        write(u"desk.json"_s,
            deskOf("Editor", R"({"title": "Le\u001b[31mtter", "frame": [40, 60, 700, 600]})"));
    }
    ~ProgramTests() override
    {
        bus.kill();
        bus.waitForFinished();
    }

    QString path(const QString &file) const { return folder.filePath(file); }

    void write(const QString &file, const QByteArray &text) const
    {
        QDir().mkpath(QFileInfo(path(file)).path());
        QFile written(path(file));
        ASSERT_TRUE(written.open(QFile::WriteOnly) && written.write(text) == text.size());
    }
    QByteArray read(const QString &file) const
    {
        QFile written(path(file));
        return written.open(QFile::ReadOnly) ? written.readAll() : QByteArray();
    }

    void startBus()
    {
        bus.setProcessEnvironment(environment);
        bus.start(u"dbus-daemon"_s,
            {u"--session"_s, u"--nofork"_s, u"--print-address"_s,
                u"--address=unix:path="_s + path(u"bus"_s)});
        ASSERT_TRUE(bus.waitForReadyRead());
        address = QString::fromUtf8(bus.readAllStandardOutput()).trimmed();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    }
    QDBusConnection session() const { return QDBusConnection::connectToBus(address, address); }

    /// With these arguments, one space between them.
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
    void expect(std::initializer_list<Step> steps) const
    {
        for (const auto &[arguments, status, said] : steps)
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
    QString call(const QString &method, const QVariantList &arguments) const
    {
        auto call = QDBusMessage::createMethodCall(
            name, u"/app/corvane/Corvane"_s, u"org.freedesktop.Application"_s, method);
        call.setArguments(arguments);
        return session().call(call).errorName();
    }
    QString activate(const QString &action, const QVariantList &parameter = {}) const
    {
        return call(u"ActivateAction"_s, {action, QVariant(parameter), QVariantMap()});
    }

    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess bus;
    QString address;
};

} // namespace

TEST_F(ProgramTests, aCommandWithoutARunningInstanceAnswersAndIsWrittenDownWithoutTitles)
{
    expect({
        {"--history", 0, "No moves have been written down yet.\n"},
        {"--layouts", 0, "--capture NAME"},
        {"--capture Work", 0, "Captured 1 window on 1 display as \"Work\".\n"},
        {"--layouts", 0, "*  Work"},
        {"--place leftHalf --json", 0, R"("to":[0,0,720,900])"},
        {"--apply-layout Work --json", 0, R"("status":"placed")"},
        {"--place snapBack", 1, "snapBack: nothing to snap back\n"},
        {"--place middle", 2, "leftHalf"},
        {"--wat", 2, "--place"},
        {"--apply-layout Play", 2, "the layouts are: Work"},
        {"corvane://place/leftHalf", 2, "corvane://settings"},
    });
    write(u"desk.json"_s,
        deskOf("Player", R"({"title": "Film", "frame": [0, 0, 1440, 900], "fullScreen": true})"));
    expect({
        {"--place leftHalf", 1, "full screen"},
        {"--apply-layout Work", 1, "Editor: is not installed on this computer\n"},
        {"--history", 0, "Left Half  Editor"},
        {"--history", 0, "40,60 700×600 → 0,0 720×900\n"},
        {"--history", 0, "is in full screen  Built-in  refused\n"},
        {"--history --json 1", 0, R"([{"action":"refused")"},
    });
    EXPECT_THAT(run("--history"), Not(HasSubstr("\x1b")));
    const std::string events = read(u"data/Corvane/diagnostics.jsonl"_s).toStdString();
    EXPECT_THAT(events, HasSubstr("leftHalf: Editor moved from 40,60"));
    EXPECT_THAT(events, Not(HasSubstr("tter"))) << "a title";
}

TEST_F(ProgramTests, aMissingDesktopIsOneSentence)
{
    write(u"desk.json"_s, "{\"displays\": 5}");
    expect({{"--place leftHalf", 1, "displays"}});
    environment.insert(u"CORVANE_BACKEND"_s, u"x11"_s);
    expect({{"", 1, "DISPLAY"}, {"--place leftHalf --print-settings", 1, R"("sizeStep": 60)"}});
    startBus();
    std::array<Program, 24> programs; // whose bus thread had no types left when they ended
    for (Program &program : programs)
        program = start("--place leftHalf");
    for (const Program &program : programs) {
        ASSERT_TRUE(program->waitForFinished());
        EXPECT_EQ(program->readAllStandardError().count('\n'), 1);
    }
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
    expect({{"--place leftHalf", 1, "Wayland"}});
}

TEST_F(ProgramTests, aSecondStartHandsItsFlagsToTheRunningOne)
{
    startBus();
    const auto resident = start("--verbose --pop-menu"); // which ended it without an X server
    EXPECT_THAT(readUntil(resident, "ready"), HasSubstr("21 of 21"));

    // One process sees all of it: the press cycles, and there is something to go back to.
    expect({
        {"--capture Work", 0, "Work"},
        {"--place leftHalf --json", 0, R"("placement":"leftHalf")"},
        {"--place leftHalf --json", 0, R"("placement":"leftTwoThirds")"},
        {"--place snapBack --json", 0, R"("to":[0,0,720,900])"},
        {"", 0, "running already"},
        {"", 0, "settings window"},
        {"--apply-layout Work", 0, "placed at 40,60 700×600\n"},
        {"--place middle", 2, "leftHalf"},
        {"--apply-layout Play", 2, "the layouts are: Work"},
        {"--history 1", 0, "Work  Editor"},
    });
    EXPECT_THAT(readUntil(resident, "layout applied"), HasSubstr("leftHalf: Editor"));

    EXPECT_EQ(activate(u"rightHalf"_s), QString());
    EXPECT_EQ(activate(u"place"_s, {u"topHalf"_s}), QString());
    EXPECT_EQ(activate(u"capture"_s), QString());
    EXPECT_EQ(activate(u"explode"_s), invalid);
    EXPECT_EQ(activate(u"place"_s), invalid);
    const std::pair<const char *, QString> uris[]{
        {"corvane://settings/about", {}}, {"--capture", invalid}, {"corvane://capture", invalid}};
    for (const auto &[uri, error] : uris)
        EXPECT_EQ(call(u"Open"_s, {QStringList{QLatin1StringView(uri)}, QVariantMap()}), error);
    EXPECT_THAT(readUntil(resident, "topHalf: Editor"), HasSubstr("rightHalf: Editor"));
    EXPECT_THAT(run("--layouts"), AllOf(HasSubstr("*  Layout"), Not(HasSubstr("Layout 2"))));
}

TEST_F(ProgramTests, aSecondStartHandsItsActivationTokenOverToARunningOneThatTakesIt)
{
    startBus();
    FakeInstance running;
    QDBusConnection names = session();
    ASSERT_TRUE(names.registerVirtualObject(u"/app/corvane/Corvane"_s, &running)
        && names.registerService(name));
    environment.insert(u"DESKTOP_STARTUP_ID"_s, u"launcher_TIME7"_s);
    for (const QStringList &methods : {QStringList{u"Run"_s, u"RunWith"_s}, {u"Run"_s}}) {
        running.methods = methods;
        const auto program = start("--open-settings");

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

TEST_F(ProgramTests, theBusStartsItForAnActionAndItStays)
{
    startBus();
    write(u"data/dbus-1/services/app.corvane.Corvane.service"_s,
        "[D-BUS Service]\nName=app.corvane.Corvane\nExec=" CORVANE_PROGRAM "\n");

    EXPECT_EQ(activate(u"rightHalf"_s), QString());
    expect({{"--place snapBack --json", 0, R"("to":[40,60,700,600])"}});

    QDBusConnectionInterface *names = session().interface();
    const uint pid = names->servicePid(name);
    ASSERT_GT(pid, 1U);
    ASSERT_EQ(::kill(static_cast<pid_t>(pid), SIGTERM), 0);
    EXPECT_TRUE(desktop::waitUntil([&] { return !names->isServiceRegistered(name); }, patience));
}

TEST_F(ProgramTests, itsFilesAreObeyedPrunedAndFollowed)
{
    const QString settings = u"data/Corvane/settings.json"_s;
    const QString history = u"data/Corvane/activity.jsonl"_s;
    const QString snapshot = u"data/Corvane/snapshot.json"_s;
    write(settings, R"({"gap": 10, "sizeStep": "wide", "cycling": false})");
    write(history,
        R"({"date":"2001-01-01T00:00:00Z","action":"center","title":"Center","app":"Old",)"
        R"("window":"","display":"","from":[],"to":[]})"
        "\n");
    startBus();
    expect({{"--place leftHalf --json", 0, R"("to":[10,10,705,880])"}});
    const auto resident = start("--verbose");

    EXPECT_THAT(readUntil(resident, "ready"),
        AllOf(HasSubstr("Corvane could not read some of your settings in settings.json"),
            HasSubstr("as settings.json.unreadable-")));
    EXPECT_FALSE(QDir(path(u"data/Corvane"_s)).entryList({u"*.unreadable-*"_s}).isEmpty());
    EXPECT_THAT(run("--print-settings"),
        AllOf(HasSubstr(R"("gap": 10)"), HasSubstr(R"("sizeStep": 60)"),
            HasSubstr("some of your settings in settings.json")));
    EXPECT_TRUE(desktop::waitUntil(
        [&] { return !read(history).contains("Old") && !read(snapshot).isEmpty(); }, patience));
    EXPECT_THAT(read(snapshot).toStdString(),
        AllOf(HasSubstr(R"("accessibilityTrusted": true)"), HasSubstr(R"("name": "Built-in")"),
            HasSubstr(R"("kind": "hotkeys")")));

    // Every placement but one gains its preset's shortcut.
    write(settings, R"({"gap": 20, "shortcuts": [], "knownPlacements": ["leftHalf"]})");
    EXPECT_THAT(readUntil(resident, "ready"), HasSubstr("20 of 20"));
    write(settings, R"({"gap": )");
    EXPECT_THAT(readUntil(resident, "settings.json"),
        HasSubstr("so those in force stay. The old file is kept in"));
    expect({{"--print-settings", 0, R"("gap": 20)"},
        {"--place leftHalf --json", 0, R"("to":[20,20,690,860])"}});
}

TEST_F(ProgramTests, whateverIsMissingItStartsAndSaysSo)
{
    write(u"desk.json"_s, R"({"displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
        "trusted": false, "distrustReason": "Nobody manages windows."})");
    write(u"data/Corvane/layouts.json"_s, "{}");
    write(u"config"_s, "no folder, and none can be made");
    const auto resident = start("--verbose");
    EXPECT_THAT(readUntil(resident, "tray"),
        AllOf(HasSubstr("21 of 21 hot keys registered"), HasSubstr("no session bus"),
            HasSubstr("some of your layouts"), HasSubstr("Nobody manages windows."),
            HasSubstr("no tray for its icon")));
    EXPECT_EQ(resident->state(), QProcess::Running);
}

TEST_F(ProgramTests, withoutAPlaceToWriteItWorksForTheRunAndSaysSoOnceForEachFile)
{
    write(u"data"_s, "no folder");
    startBus();
    const auto resident = start("--verbose");
    std::string log = readUntil(resident, "diagnostics.jsonl: Its folder is not a folder.");

    expect({
        {"--capture Work", 1, "Changes work until Corvane quits."},
        {"--place leftHalf", 0, "leftHalf"},
        {"--apply-layout Work", 0, "placed"},
        {"--place topHalf", 0, "topHalf"},
    });
    log += readUntil(resident, "topHalf");
    for (const char *file : {"layouts.json: ", "activity.jsonl: ", "diagnostics.jsonl: "}) {
        EXPECT_THAT(log, HasSubstr(file));
        EXPECT_EQ(log.find(file), log.rfind(file)) << file;
    }
}

} // namespace corvane
