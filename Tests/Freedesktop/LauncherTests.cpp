#include "EntryFolders.h"
#include "FakeService.h"
#include "FreedesktopSession.h"
#include "Launcher.h"
#include "Rivals.h"

#include <gmock/gmock.h>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

namespace {

const QString id = u"org.example.App-1"_s;

/// Writes what it is started with, a line for each thing.
const QByteArray recorder = R"sh(#!/bin/sh
descriptors=$(for each in 0 1 2 3 4 5 6 7 8 9; do readlink /proc/$$/fd/$each; done)
{ for each; do echo "argument $each"; done
  echo "$descriptors" | sed '/pipe:/d; s/^/descriptor /'
  echo "folder $(pwd)"
  echo "family $PPID $(cut -d' ' -f5,6 /proc/$$/stat) $$"
  grep -E '^Sig(Blk|Ign)' /proc/$$/status
  env; } >"$RECORD.part"
mv "$RECORD.part" "$RECORD"
)sh";

struct LauncherTests : testing::Test {
    EntryFolders folders;
    DesktopEntries entries;
    Launcher launcher{entries};
    const QByteArray program = folders.addProgram(u"recorder"_s, recorder).toLocal8Bit();
    const bool isRecorded = qputenv("RECORD", folders.path(u"record"_s).toLocal8Bit());

    void install(const QByteArray &arguments, const QByteArray &keys = {}) const
    {
        folders.install(id, "Exec=" + program + arguments + '\n' + keys);
    }
    /// What follows this heading in each line that the program wrote, once it has run.
    std::vector<std::string> recorded(const QByteArray &heading)
    {
        EXPECT_TRUE(eventually([this] { return hasStarted(); }));
        QFile file(folders.path(u"record"_s));
        std::vector<std::string> values;
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(heading))
                values.push_back(line.mid(heading.size()).toStdString());
        }
        return values;
    }
    [[nodiscard]] bool hasStarted() const { return QFile::exists(folders.path(u"record"_s)); }
    void forget() const { QFile::remove(folders.path(u"record"_s)); }
};

} // namespace

TEST_F(LauncherTests, aProgramStandsOnItsOwnAndInheritsNothingOfOurs)
{
    const QByteArrayList ours{
        "QT_NO_GLIB", "QT_QPA_PLATFORM", "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"};
    for (const QByteArray &name : ours)
        qputenv(name.constData(), "ours");
    const int descriptor = ::open("/dev/zero", O_RDONLY);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    const auto handler = signal(SIGPIPE, SIG_IGN);
    const QString folder = folders.path(u"home/two words"_s);
    QDir().mkpath(folder);
    install(R"( --new "two words" 100%% "\$HOME \`id\` \"q\"" $HOME;id %U last)",
        "Path=" + folder.toUtf8());

    EXPECT_TRUE(launcher.open(id));
    signal(SIGPIPE, handler);
    pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    close(descriptor);

    EXPECT_THAT(recorded("argument "),
        ElementsAre("--new", "two words", "100%", R"($HOME `id` "q")", "$HOME;id", "last"));
    EXPECT_THAT(recorded("descriptor "), ElementsAre("/dev/null", "/dev/null", "/dev/null"));
    EXPECT_THAT(recorded("folder "), ElementsAre(folder.toStdString()));
    EXPECT_THAT(recorded("Sig"), Each(MatchesRegex("(Blk|Ign):\t0+")));
    EXPECT_THAT(recorded(""), Not(Contains(HasSubstr("=ours"))));
    EXPECT_THAT(recorded("DESKTOP_STARTUP_ID="), ElementsAre(MatchesRegex(".+_TIME[1-9][0-9]*")));
    const QStringList family = QString::fromStdString(recorded("family ")[0]).split(u' ');
    EXPECT_NE(family[0].toInt(), getpid());
    EXPECT_EQ(family.mid(1), QStringList(3, family[3])) << "it leads its group and its session";
    siginfo_t ended{};
    EXPECT_EQ(waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT), 0);
    EXPECT_EQ(ended.si_pid, 0) << "it is a zombie of ours";

    forget();
    install(" %u", "MimeType=x-scheme-handler/corvanetest;");
    folders.write(u"home/applications/mimeapps.list"_s,
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
    folders.install(id, "Exec=true \"two words\"\nTerminal=true");

    EXPECT_TRUE(launcher.open(id));

    EXPECT_THAT(recorded("argument "), ElementsAre("-e", "true", "two words"));
    EXPECT_THAT(recorded("folder "), ElementsAre(QDir::homePath().toStdString()));
}

TEST_F(LauncherTests, whatCannotBeOpenedSaysWhyInOneSentence)
{
    struct Case {
        QByteArray keys;
        std::string sentence;
    };
    for (const auto &[keys, sentence] :
        {Case{"Exec=", "Application. cannot be opened: its desktop entry names no program\\."},
            Case{"Exec=no-such-program", "Application. cannot be opened: its program is not .*\\."},
            Case{"Exec=true\nType=Link",
                "Application. cannot be opened: its desktop entry describes no application\\."},
            Case{"Exec=true\n[broken",
                "org.* cannot be opened: its desktop entry cannot be read\\."},
            Case{"Exec=true\nHidden=true", "org.example.App-1. is not installed\\."},
            Case{"Exec=true\nPath=/no/such/folder", "Application.*/no/such/folder.*\\."}}) {
        folders.install(id, keys);
        const auto opened = launcher.open(id);
        EXPECT_THAT(opened ? "" : opened.error().toStdString(), MatchesRegex("." + sentence));
    }
}

TEST_F(LauncherTests, aFurtherWindowIsAskedForByItsActionElseByAFurtherStart)
{
    const auto action = [this](const QByteArray &name) {
        return "Actions=new-private-window;" + name
            + ";\n[Desktop Action new-private-window]\nExec=" + program
            + " private\n[Desktop Action " + name + "]\nExec=" + program + " action\n";
    };
    for (const auto &[keys, argument] :
        {std::pair(action("new-window"), "action"), {action("NewWindow"), "action"},
            {action("new_window"), "action"}, {action("new-empty-window"), "action"},
            {"SingleMainWindow=true\n" + action("new-window"), "action"},
            {"DBusActivatable=true\n" + action("new-window"), "action"}, {action("other"), "start"},
            {"Actions=new-window;", "start"}, {{}, "start"}, {"DBusActivatable=true", "start"}}) {
        install(" start", keys);
        EXPECT_TRUE(launcher.openFurtherWindow(id));
        EXPECT_THAT(recorded("argument "), ElementsAre(argument)) << keys.constData();
        forget();
    }
    install({}, "SingleMainWindow=true");
    EXPECT_EQ(launcher.openFurtherWindow(id).error(),
        u"\"Application\" shows no more than one window."_s);
}

TEST_F(LauncherTests, anApplicationOnTheBusIsAskedAndStartedOnlyWhereNobodyAnswers)
{
    for (const QString &unanswered : {id, u"app"_s}) {
        folders.install(unanswered, "DBusActivatable=true\nExec=" + program + " --started");
        EXPECT_TRUE(launcher.open(unanswered));
        EXPECT_THAT(recorded("argument "), ElementsAre("--started"));
        forget();
    }
    FakeService application(id, u"/org/example/App_1"_s);
    EXPECT_TRUE(launcher.open(id));
    install({},
        "DBusActivatable=true\nActions=new-tab;new-window;\n"
        "[Desktop Action new-window]\nExec="
            + program);
    EXPECT_TRUE(launcher.openFurtherWindow(id));

    ASSERT_TRUE(application.hears(2));
    EXPECT_EQ(application.calls[0].interface(), u"org.freedesktop.Application"_s);
    EXPECT_EQ(application.calls[0].member(), u"Activate"_s);
    EXPECT_EQ(application.calls[0].signature(), u"a{sv}"_s);
    const auto data = qdbus_cast<QVariantMap>(application.argument(0, 0));
    EXPECT_THAT(
        data[u"desktop-startup-id"_s].toString().toStdString(), MatchesRegex(".+_TIME[1-9][0-9]*"));
    EXPECT_EQ(application.calls[1].member(), u"ActivateAction"_s);
    EXPECT_EQ(application.calls[1].signature(), u"sava{sv}"_s);
    EXPECT_EQ(application.argument(1, 0), u"new-window"_s);
    EXPECT_FALSE(hasStarted());
    EXPECT_EQ(application.calls.size(), 2);
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
    const auto first = session.launchIdle(u"cortile"_s);
    const auto second = session.launchIdle(u"cortile"_s);
    folders.write(u"quicktile.py"_s, "read line\n");
    const auto interpreted = session.launch(
        u"sh"_s, {folders.path(u"quicktile.py"_s)}, desktop::ChildProcess::Channel::pipes);
    Rivals rivals;
    QList<pid_t> ended;
    QObject::connect(&rivals, &Rivals::ended, &rivals, [&](pid_t pid) { ended << pid; });

    EXPECT_THAT(rivals.running(),
        ElementsAre(RunningApplication{interpreted->pid(), u"quicktile"_s, u"QuickTile"_s, false},
            RunningApplication{first->pid(), u"cortile"_s, u"Cortile"_s, false}));
    for (const auto *each : {&first, &second, &stranger, &elsewhere})
        rivals.terminate((*each)->pid());

    EXPECT_TRUE(eventually([&] { return !ended.isEmpty(); }));
    EXPECT_THAT(ended, ElementsAre(first->pid()));
    EXPECT_FALSE(first->isRunning());
    EXPECT_TRUE(second->isRunning() && stranger->isRunning() && elsewhere->isRunning());
    EXPECT_EQ(rivals.running().value(1).pid, second->pid());
    interpreted->stop();
    second->stop();
    EXPECT_THAT(rivals.running(), testing::IsEmpty());
}

} // namespace corvane::freedesktop
