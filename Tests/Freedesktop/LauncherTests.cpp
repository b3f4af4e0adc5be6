#include "EntryFolders.h"
#include "FreedesktopSession.h"
#include "Launcher.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtDBus/QDBusConnection>

#include <gmock/gmock.h>

#include <array>
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
using testing::StartsWith;

namespace {

const QByteArray recorder = CORVANE_TEST_RECORDER;

class LauncherTests : public testing::Test
{
protected:
    EntryFolders folders;
    DesktopEntries entries;
    Launcher launcher{entries};

    void SetUp() override { qputenv("RECORD", recordPath().toLocal8Bit()); }

    [[nodiscard]] QString recordPath() const { return folders.path(u"record"_s); }
    void installRecorder(const QByteArray &exec, const QByteArray &keys = {}) const
    {
        folders.install(u"org.example.App"_s, "Exec=" + exec + '\n' + keys);
    }
    expected<void, QString> open() { return launcher.open(u"org.example.App"_s); }
    [[nodiscard]] bool hasStarted() const { return QFile::exists(recordPath()); }
    /// What the recorder wrote under this heading, once it has run.
    std::vector<std::string> recorded(const QByteArray &heading)
    {
        EXPECT_TRUE(eventually([this] { return hasStarted(); }));
        QFile file(recordPath());
        std::vector<std::string> values;
        if (!file.open(QIODevice::ReadOnly))
            return values;
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(heading + ' '))
                values.push_back(line.mid(heading.size() + 1).toStdString());
        }
        return values;
    }
};

/// What the program sets for itself, or was started with.
struct OwnVariables {
    static constexpr std::array names{
        "QT_NO_GLIB", "QT_QPA_PLATFORM", "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"};

    OwnVariables()
    {
        for (const char *name : names)
            qputenv(name, "ours");
    }
    ~OwnVariables()
    {
        for (const char *name : names)
            qunsetenv(name);
    }
};

/// The application on the bus.
class BusApplication : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit BusApplication(const QString &name)
        : m_bus(QDBusConnection::connectToBus(
            qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), u"application"_s))
    {
        EXPECT_TRUE(
            m_bus.registerObject(u"/org/example/App_1"_s, this, QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(m_bus.registerService(name));
    }
    ~BusApplication() override { QDBusConnection::disconnectFromBus(u"application"_s); }

    QList<QVariantMap> activations;
    QStringList actions;

public Q_SLOTS:
    void Activate(const QVariantMap &platformData) { activations << platformData; }
    void ActivateAction(
        const QString &name, const QVariantList &parameters, const QVariantMap &platformData)
    {
        EXPECT_EQ(parameters, QVariantList());
        EXPECT_TRUE(platformData.contains(u"desktop-startup-id"_s));
        actions << name;
    }

private:
    QDBusConnection m_bus;
};

} // namespace

TEST_F(LauncherTests, argumentsArriveAsTheyAreWritten)
{
    installRecorder(
        recorder + R"( --new "two words" 100%% "\$HOME \`id\` \"q\"" $HOME;id %U last)");

    EXPECT_TRUE(open());

    EXPECT_THAT(recorded("argument"),
        ElementsAre("--new", "two words", "100%", R"($HOME `id` "q")", "$HOME;id", "last"));
}

TEST_F(LauncherTests, nothingOfOursIsInherited)
{
    installRecorder(recorder);
    const int descriptor = ::open("/dev/zero", O_RDONLY);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto handler = signal(SIGPIPE, SIG_IGN);
    const OwnVariables ours;

    EXPECT_TRUE(open());
    signal(SIGPIPE, handler);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    close(descriptor);

    EXPECT_THAT(recorded("descriptor"), ElementsAre("/dev/null", "/dev/null", "/dev/null"));
    const auto variables = recorded("variable");
    EXPECT_THAT(variables, Not(Contains(HasSubstr("=ours"))));
    EXPECT_THAT(variables, Contains(StartsWith("RECORD=")));
    EXPECT_THAT(variables, Contains(MatchesRegex("DESKTOP_STARTUP_ID=.+_TIME[1-9][0-9]*")));
    EXPECT_THAT(recorded("signals"), Each(MatchesRegex("Sig(Blk|Ign):\t0+")));
}

TEST_F(LauncherTests, whatOpensALinkInheritsNoneOfOurVariables)
{
    installRecorder(recorder + " %u", "MimeType=x-scheme-handler/corvanetest;");
    folders.writeFile(u"home/applications/mimeapps.list"_s,
        "[Default Applications]\nx-scheme-handler/corvanetest=org.example.App.desktop\n");
    const OwnVariables ours;

    EXPECT_TRUE(FreedesktopSession().openAddress(QUrl(u"corvanetest:page"_s)));

    EXPECT_THAT(recorded("argument"), ElementsAre("corvanetest:page"));
    EXPECT_THAT(recorded("variable"), Not(Contains(HasSubstr("=ours"))));
}

TEST_F(LauncherTests, theProgramStandsOnItsOwnAndLeavesNoZombie)
{
    installRecorder(recorder);

    EXPECT_TRUE(open());

    EXPECT_THAT(recorded("leads"), ElementsAre("1"));
    EXPECT_THAT(recorded("parent"), Each(testing::Ne(std::to_string(getpid()))));
    siginfo_t ended{};
    EXPECT_EQ(waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT), 0);
    EXPECT_EQ(ended.si_pid, 0);
}

TEST_F(LauncherTests, theWorkingFolderIsTheEntrysOrTheHome)
{
    const QString folder = folders.path(u"home/two words"_s);
    QDir().mkpath(folder);
    installRecorder(recorder, "Path=" + folder.toUtf8());
    EXPECT_TRUE(open());
    EXPECT_THAT(recorded("folder"), ElementsAre(folder.toStdString()));
    QFile::remove(recordPath());

    installRecorder(recorder);
    EXPECT_TRUE(open());
    EXPECT_THAT(recorded("folder"), ElementsAre(QDir::homePath().toStdString()));
}

TEST_F(LauncherTests, aTextProgramIsOpenedInATerminal)
{
    qputenv("TERMINAL", recorder);
    installRecorder("true \"two words\"", "Terminal=true");

    EXPECT_TRUE(open());

    EXPECT_THAT(recorded("argument"), ElementsAre("-e", "true", "two words"));
}

TEST_F(LauncherTests, whatCannotBeOpenedSaysWhyInOneSentence)
{
    struct Case {
        QByteArray keys;
        QString sentence;
    };
    const auto because = [](const QString &reason) {
        return u"\"Application\" cannot be opened: "_s + reason;
    };
    for (const auto &[keys, sentence] :
        {Case{"Exec=", because(u"its desktop entry names no program."_s)},
            Case{"Exec=no-such-program", because(u"its program is not installed."_s)},
            Case{"Exec=true\nType=Link", because(u"its desktop entry describes no application."_s)},
            Case{"Exec=true\n[broken",
                u"\"org.example.App\" cannot be opened: its desktop entry "
                "cannot be read."_s},
            Case{"Exec=true\nHidden=true", u"\"org.example.App\" is not installed."_s}}) {
        folders.install(u"org.example.App"_s, keys);

        const auto opened = open();

        EXPECT_EQ(opened ? QString() : opened.error(), sentence);
    }
    installRecorder(recorder, "Path=/no/such/folder");
    EXPECT_THAT(open().error().toStdString(), HasSubstr("/no/such/folder"));
    EXPECT_FALSE(hasStarted());
}

TEST_F(LauncherTests, anApplicationOnTheBusIsAskedToShowItself)
{
    BusApplication application(u"org.example.App-1"_s);
    folders.install(u"org.example.App-1"_s, "DBusActivatable=true\nExec=" + recorder);

    EXPECT_TRUE(launcher.open(u"org.example.App-1"_s));

    EXPECT_TRUE(eventually([&] { return !application.activations.isEmpty(); }));
    EXPECT_THAT(application.activations.first()[u"desktop-startup-id"_s].toString().toStdString(),
        MatchesRegex(".+_TIME[1-9][0-9]*"));

    folders.install(u"org.example.App-1"_s,
        "DBusActivatable=true\nExec=" + recorder
            + "\nActions=new-tab;new-window;\n[Desktop Action new-window]\nExec=" + recorder);
    EXPECT_TRUE(launcher.openFurtherWindow(u"org.example.App-1"_s));
    EXPECT_TRUE(eventually([&] { return !application.actions.isEmpty(); }));
    EXPECT_EQ(application.actions, QStringList{u"new-window"_s});
    EXPECT_EQ(application.activations.size(), 1);
    EXPECT_FALSE(hasStarted());
}

TEST_F(LauncherTests, aFurtherWindowIsAskedForByItsActionElseByAFurtherStart)
{
    struct Case {
        QByteArray keys;
        std::string argument; ///< of the program that is started
    };
    const auto action = [](const QByteArray &name) {
        return "Actions=new-private-window;" + name
            + ";\n[Desktop Action new-private-window]\nExec=" + recorder
            + " private\n[Desktop Action " + name + "]\nExec=" + recorder + " action\n";
    };
    for (const auto &[keys, argument] :
        {Case{action("new-window"), "action"}, Case{action("NewWindow"), "action"},
            Case{action("new_window"), "action"}, Case{action("new-empty-window"), "action"},
            Case{"SingleMainWindow=true\n" + action("new-window"), "action"},
            Case{"DBusActivatable=true\n" + action("new-window"), "action"},
            Case{action("other"), "start"}, Case{"Actions=new-window;", "start"}, Case{{}, "start"},
            Case{"DBusActivatable=true", "start"}}) {
        SCOPED_TRACE(keys.constData());
        installRecorder(recorder + " start", keys);

        EXPECT_TRUE(launcher.openFurtherWindow(u"org.example.App"_s));

        EXPECT_THAT(recorded("argument"), ElementsAre(argument));
        QFile::remove(recordPath());
    }
    installRecorder(recorder, "SingleMainWindow=true");
    EXPECT_EQ(launcher.openFurtherWindow(u"org.example.App"_s).error(),
        u"\"Application\" shows no more than one window."_s);
}

TEST_F(LauncherTests, whereNobodyAnswersOnTheBusTheProgramIsStarted)
{
    installRecorder(recorder + " --started", "DBusActivatable=true");

    EXPECT_TRUE(open());

    EXPECT_THAT(recorded("argument"), ElementsAre("--started"));
}

TEST_F(LauncherTests, anIdThatIsNoBusNameIsStarted)
{
    folders.install(u"app"_s, "DBusActivatable=true\nExec=" + recorder);

    EXPECT_TRUE(launcher.open(u"app"_s));

    EXPECT_TRUE(eventually([this] { return hasStarted(); }));
}

} // namespace corvane::freedesktop

#include "LauncherTests.moc"
