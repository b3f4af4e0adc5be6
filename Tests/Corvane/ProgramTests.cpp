#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

constexpr auto desk = R"({
    "displays": [{"name": "Built-in", "frame": [0, 0, 1440, 900]}],
    "applications": [{"id": "org.example.Editor", "name": "Editor",
        "windows": [{"title": "Letter", "frame": [40, 60, 700, 600]}]}]
})";

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

    void startBus()
    {
        bus.setProgram(u"dbus-daemon"_s);
        bus.setArguments({u"--session"_s, u"--nofork"_s, u"--print-address"_s,
            u"--address=unix:path="_s + folder.filePath(u"bus"_s)});
        bus.start();
        ASSERT_TRUE(bus.waitForReadyRead());
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s,
            QString::fromUtf8(bus.readAllStandardOutput()).trimmed());
    }

    std::unique_ptr<QProcess> startProgram(const QStringList &arguments) const
    {
        auto process = std::make_unique<QProcess>();
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
    EXPECT_EQ(mistake.status, 2);
    EXPECT_THAT(readUntil(*resident, "snapBack").toStdString(), HasSubstr("leftHalf: Editor"));
    resident->terminate();
    EXPECT_TRUE(resident->waitForFinished());
}

TEST_F(ProgramTests, desktopsCanActivateAPlacement)
{
    startBus();
    const auto resident = startProgram({u"--verbose"_s});
    readUntil(*resident, "ready");

    QProcess call;
    call.setProcessEnvironment(environment);
    call.start(u"dbus-send"_s,
        {u"--session"_s, u"--print-reply"_s, u"--dest=app.corvane.Corvane"_s,
            u"/app/corvane/Corvane"_s, u"app.corvane.Corvane.Instance.Run"_s,
            u"array:string:--place,topHalf"_s});
    ASSERT_TRUE(call.waitForFinished());

    EXPECT_THAT(call.readAllStandardOutput().toStdString(), HasSubstr("topHalf: Editor"));
    resident->terminate();
    EXPECT_TRUE(resident->waitForFinished());
}

TEST_F(ProgramTests, withoutASessionBusItStaysAndSaysWhatIsMissing)
{
    const auto resident = startProgram({u"--verbose"_s});

    const std::string log = readUntil(*resident, "ready").toStdString();

    EXPECT_THAT(log, HasSubstr("no session bus"));
    EXPECT_THAT(log, HasSubstr("21 of 21"));
    resident->terminate();
    EXPECT_TRUE(resident->waitForFinished());
}

} // namespace corvane
