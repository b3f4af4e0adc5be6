#include "FreedesktopSession.h"
#include "Launcher.h"
#include "Rivals.h"
#include "Testing.h"

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane::freedesktop {

const QString id = u"org.example.App-1"_s;

/// Writes what it is started with, a line for each thing.
const QByteArray recorder = R"sh(#!/bin/sh
descriptors=$(for each in 0 1 2 3 4 5 6 7 8 9; do readlink /proc/$$/fd/$each; done)
{ for each; do echo "argument $each"; done
  echo "$descriptors" | sed '/pipe:/d; s/^/descriptor /'
  echo "folder $(pwd)"
  echo "family $PPID $(cut -d' ' -f5,6 /proc/$$/stat) $$"
  grep -E '^Sig(Blk|Ign)' /proc/self/status
  env; } >"$RECORD.part"
mv "$RECORD.part" "$RECORD"
)sh";

struct LauncherTests : EntryTests {
    Launcher launcher{entries};
    const QByteArray program = addProgram(u"recorder"_s, recorder).toLocal8Bit();
    QFile record{path(u"record"_s)};
    const bool isRecorded = qputenv("RECORD", record.fileName().toLocal8Bit());

    void installRecorder(const QByteArray &arguments, const QByteArray &keys = {}) const
    {
        install(id, "Exec=" + program + arguments + '\n' + keys);
    }
    /// What follows this heading in each line that the program wrote, once it has run.
    std::vector<std::string> recorded(const QByteArray &heading)
    {
        EXPECT_TRUE(eventually([this] { return record.open(QFile::ReadOnly); }));
        std::vector<std::string> values;
        for (const QByteArray &line : record.readAll().split('\n')) {
            if (line.startsWith(heading))
                values.push_back(line.mid(heading.size()).toStdString());
        }
        record.close();
        return values;
    }
};

TEST_F(LauncherTests, aProgramStandsOnItsOwnAndInheritsNothingOfOurs)
{
    const QByteArrayList ours{"QT_QPA_PLATFORM", "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"};
    for (const QByteArray &name : ours)
        qputenv(name.constData(), "ours");
    const int descriptor = ::open("/dev/zero", O_RDONLY);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    const auto handler = signal(SIGPIPE, SIG_IGN);
    installRecorder(" --new \"two words\" 100%% %U last", "Path=" + path(u"bin"_s).toUtf8());

    EXPECT_TRUE(launcher.open(id));
    signal(SIGPIPE, handler);
    pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    close(descriptor);

    EXPECT_THAT(recorded("argument "), ElementsAre("--new", "two words", "100%", "last"));
    EXPECT_THAT(recorded("descriptor "), ElementsAre("/dev/null", "/dev/null", "/dev/null"));
    EXPECT_THAT(recorded("folder "), ElementsAre(path(u"bin"_s).toStdString()));
    EXPECT_THAT(recorded("Sig"), Each(MatchesRegex("(Blk|Ign):\t0+")));
    EXPECT_THAT(recorded(""), Not(Contains(HasSubstr("=ours"))));
    EXPECT_THAT(recorded("DESKTOP_STARTUP_ID="), ElementsAre(MatchesRegex(".+_TIME[1-9][0-9]*")));
    const QStringList family = QString::fromStdString(recorded("family ")[0]).split(u' ');
    EXPECT_NE(family[0].toInt(), getpid());
    EXPECT_EQ(family.mid(1), QStringList(3, family[3])) << "it leads its group and its session";
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), 0) << "it is a zombie of ours";

    record.remove();
    installRecorder(" %u", "MimeType=x-scheme-handler/corvanetest;");
    write(u"home/applications/mimeapps.list"_s,
        "[Default Applications]\nx-scheme-handler/corvanetest=" + id.toUtf8() + ".desktop\n");
    EXPECT_TRUE(FreedesktopSession().openAddress(QUrl(u"corvanetest:page"_s)));
    EXPECT_THAT(recorded("argument "), ElementsAre("corvanetest:page"));
    EXPECT_THAT(recorded(""), Not(Contains(HasSubstr("=ours"))));
    for (const QByteArray &name : ours)
        qunsetenv(name.constData());
}

TEST_F(LauncherTests, aTextProgramIsOpenedInATerminalAtHome)
{
    qputenv("TERMINAL", program);
    install(id, "Exec=true\nTerminal=true");

    EXPECT_TRUE(launcher.open(id));

    EXPECT_THAT(recorded("argument "), ElementsAre("-e", "true"));
    EXPECT_THAT(recorded("folder "), ElementsAre(QDir::homePath().toStdString()));
}

TEST_F(LauncherTests, aFurtherWindowIsAskedForByItsActionElseByAFurtherStart)
{
    const auto action = [this](const QByteArray &name) {
        return "Actions=new-private-window;" + name
            + ";\n[Desktop Action new-private-window]\nExec=" + program
            + " private\n[Desktop Action " + name + "]\nExec=" + program + " action\n";
    };
    for (const auto &[keys, argument] :
        {std::pair("SingleMainWindow=true\n" + action("new-window"), "action"),
            {action("NewWindow"), "action"},
            {"DBusActivatable=true\n" + action("new_window"), "action"}, {action("other"), "start"},
            {"Actions=new-window;", "start"}}) {
        installRecorder(" start", keys);
        EXPECT_TRUE(launcher.openFurtherWindow(id));
        EXPECT_THAT(recorded("argument "), ElementsAre(argument)) << keys.constData();
        record.remove();
    }
    installRecorder({}, "SingleMainWindow=true");
    EXPECT_EQ(launcher.openFurtherWindow(id).error(),
        u"\"Application\" shows no more than one window."_s);
}

TEST_F(LauncherTests, anApplicationOnTheBusIsAskedAndStartedOnlyWhereNobodyAnswers)
{
    installRecorder(" --started", "DBusActivatable=true");
    EXPECT_TRUE(launcher.open(id));
    EXPECT_THAT(recorded("argument "), ElementsAre("--started"));
    record.remove();
    FakeService application(id, u"/org/example/App_1"_s);
    EXPECT_TRUE(launcher.open(id));
    installRecorder({},
        "DBusActivatable=true\nActions=new-window;\n[Desktop Action new-window]\nExec=" + program);
    EXPECT_TRUE(launcher.openFurtherWindow(id));

    ASSERT_TRUE(application.hears(2));
    EXPECT_EQ(application.calls[0].member(), u"Activate"_s);
    const auto data = qdbus_cast<QVariantMap>(application.argument(0, 0));
    EXPECT_THAT(
        data[u"desktop-startup-id"_s].toString().toStdString(), MatchesRegex(".+_TIME[1-9][0-9]*"));
    EXPECT_EQ(application.calls[1].member(), u"ActivateAction"_s);
    EXPECT_EQ(application.calls[1].signature(), u"sava{sv}"_s);
    EXPECT_EQ(application.argument(1, 0), u"new-window"_s);
    EXPECT_FALSE(record.exists());
}

TEST_F(LauncherTests, rivalsOfThisSessionAreFoundByTheirProcessesAndOnlyTheirsAreEnded)
{
    const QString display = u":%1"_s.arg(getpid());
    qputenv("DISPLAY", display.toLocal8Bit());
    desktop::PrivateSession session;
    session.setVariable(u"DISPLAY"_s, u":1%1"_s.arg(getpid()));
    const auto elsewhere = session.launchIdle(u"zentile"_s);
    session.setVariable(u"DISPLAY"_s, display + u".0"_s);
    const auto stranger = session.launchIdle(u"cortiles"_s);
    const auto rival = session.launchIdle(u"cortile"_s);
    write(u"quicktile.py"_s, "read line\n");
    const auto interpreted =
        session.launch(u"sh"_s, {path(u"quicktile.py"_s)}, desktop::ChildProcess::Channel::pipes);
    Rivals rivals;

    EXPECT_THAT(rivals.running(),
        ElementsAre(RunningApplication{interpreted->pid(), u"quicktile"_s, u"QuickTile"_s, false},
            RunningApplication{rival->pid(), u"cortile"_s, u"Cortile"_s, false}));
    for (const auto *each : {&rival, &stranger, &elsewhere})
        rivals.terminate((*each)->pid());

    EXPECT_TRUE(eventually([&] { return rivals.running().size() == 1; }));
    EXPECT_TRUE(stranger->isRunning() && elsewhere->isRunning());
}

} // namespace corvane::freedesktop
