#include "../CorvaneCore/StoreFolder.h"
#include "BundleDraft.h"
#include "HomeInstall.h"
#include "Installation.h"
#include "Manifest.h"
#include "SealedFile.h"
#include "Unpacker.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/statvfs.h>

namespace corvane {

namespace {

constexpr qint64 oldBuild = 2;
constexpr qint64 newBuild = 3;
constexpr int patience = 60'000; ///< ms

/// How a version comes into a home folder, once it is on the disk: as an update does, or as a user does.
enum class Way { archive, unpacked };

bool installArchive(const QByteArray &bytes, const QString &home, qint64 build)
{
    auto folder = InstallFolder::open(InstallFolder::pathIn(home));
    // Nobody is offered what they have.
    if (!folder || folder->current() == build)
        return folder.has_value();
    Artefact artefact;
    artefact.size = bytes.size();
    artefact.sha256 = sha256(bytes);
    artefact.unpackedSize = 64LL * 1024;
    SealedFile file(artefact);
    if (!file.write(bytes, 0) || !file.seal())
        return false;
    const auto staging = folder->stage(artefact.unpackedSize);
    return staging && Unpacker(staging->number(), artefact.unpackedSize).unpack(*file.verified())
        && tryStaged(*folder, *staging, build) && adoptStaged(*folder, build);
}

/// Installs the archive or the folder at `path`.
bool installOnce(Way way, const QString &path, const QString &home)
{
    if (way == Way::unpacked) {
        const QString local = home + u"/.local/"_s;
        const HomeUser user{home, local + u"share"_s, {local + u"bin"_s}};
        return installHere(path, user, QDBusConnection(QString()), [](const QString &) {}) == 0;
    }
    QFile file(path);
    return file.open(QFile::ReadOnly) && installArchive(file.readAll(), home, newBuild);
}

/// A system call of an installation: which one of its kind, counted from the start of the process.
struct Call {
    QByteArray kind;
    int number = 0;
    bool canWrite = false;
};

struct Fault {
    const char *what;
    const char *injection;
    bool isForReaders; ///< also where nothing is written
};

constexpr Fault faults[]{{"killed", "signal=SIGKILL", false}, {"full", "error=ENOSPC", false},
    {"broken", "error=EIO", true}};

/// Whether the call may change what is on the disk.
bool canWrite(const QByteArray &kind, const QByteArray &line)
{
    const QByteArrayList writers{"write", "pwrite64", "mkdir", "mkdirat", "rename", "renameat",
        "renameat2", "unlink", "unlinkat", "rmdir", "symlink", "symlinkat", "link", "linkat",
        "fsync", "fdatasync", "fchmod", "fchmodat", "chmod", "ftruncate", "utimensat",
        "memfd_create"};
    return writers.contains(kind)
        || (kind.startsWith("open") && (line.contains("O_CREAT") || line.contains("O_WRONLY")));
}

/// What the first process did from the beginning of the installation on.
QList<Call> callsIn(const QByteArray &log)
{
    // These are no business of a disk, nor is what goes through a pipe. What is mapped are libraries.
    const QByteArrayList others{"close", "mmap", "execve", "pipe2", "poll", "ppoll"};
    QList<Call> calls;
    QMap<QByteArray, int> counts;
    const QByteArray process = log.first(log.indexOf(' '));
    bool hasBegun = false;
    for (const QByteArray &line : log.split('\n')) {
        const QByteArray call = line.sliced(qMin(process.size(), line.size())).trimmed();
        const QByteArray kind = call.first(qMax<qsizetype>(call.indexOf('('), 0));
        if (!line.startsWith(process + ' ') || kind.isEmpty() || kind.contains(' '))
            continue;
        const int number = ++counts[kind];
        if (hasBegun && !others.contains(kind) && !call.contains("<pipe:"))
            calls << Call{kind, number, canWrite(kind, call)};
        hasBegun |= call.contains("/installation-begins");
    }
    return calls;
}

/// What makes the tracer put the fault there.
QStringList injection(const Call &call, const Fault &fault)
{
    const QString kind = QString::fromUtf8(call.kind);
    QStringList how{u"-e"_s, u"trace="_s + kind, u"-e"_s,
        u"inject=%1:%2:when=%3"_s.arg(
            kind, QString::fromUtf8(fault.injection), QString::number(call.number))};
    // Ten times as quick; but no signal comes this way.
    if (fault.isForReaders)
        how << u"--seccomp-bpf"_s;
    return how;
}

/// In memory, where programs may run from there: each run waits for the disk many times.
QString workingPlace()
{
    struct statvfs status;
    const QString memory = u"/dev/shm"_s;
    const bool canRun =
        ::statvfs(qPrintable(memory), &status) == 0 && (status.f_flag & ST_NOEXEC) == 0;
    return (canRun ? memory : QDir::tempPath()) + u"/corvane-faults-XXXXXX"_s;
}

/// As small as can be, since it is installed some thousand times.
BundleDraft smallBundle(qint64 build)
{
    BundleDraft bundle(build);
    bundle.files.remove("share/man/man1/corvane.1");
    bundle.files.remove("share/bash-completion/completions/corvane");
    return bundle;
}

/// A home with two versions, settings and layouts, which a third version is installed into.
class FaultyHome final
{
public:
    explicit FaultyHome(Way way) : m_way(way)
    {
        smallBundle(newBuild).write(m_folder.path(u"unpacked"_s));
        m_folder.write(u"archive"_s, smallBundle(newBuild).archive());
        for (const qint64 build : {qint64(1), oldBuild})
            EXPECT_TRUE(installArchive(smallBundle(build).archive(), home(), build));
        for (const QString &name : keptFiles)
            m_folder.write(name, "{\"of\": \"the user\"}\n");
        std::filesystem::rename(home().toStdString(), m_folder.path(u"template"_s).toStdString());
        makeAnew();
        EXPECT_TRUE(installAgain());
        for (const QString &name : desktopFiles)
            m_expected.insert(name, m_folder.read(name));
    }

    void makeAnew() const
    {
        using std::filesystem::copy_options;
        std::filesystem::remove_all(home().toStdString());
        std::filesystem::copy(m_folder.path(u"template"_s).toStdString(), home().toStdString(),
            copy_options::recursive | copy_options::copy_symlinks);
    }

    /// What an installation does in a process of its own.
    QByteArray watch(const QStringList &how)
    {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        // Whoever looks for leaks cannot be watched.
        environment.insert(
            u"ASAN_OPTIONS"_s, environment.value(u"ASAN_OPTIONS"_s) + u":detect_leaks=0"_s);
        process.setProcessEnvironment(environment);
        process.start(u"strace"_s,
            QStringList{u"-f"_s, u"-o"_s, m_folder.path(u"log"_s)} + how
                + QStringList{QCoreApplication::applicationFilePath(), QString::number(int(m_way)),
                    path(), home()});
        EXPECT_TRUE(process.waitForFinished(patience));
        m_status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        return m_folder.read(u"log"_s).value_or(QByteArray());
    }
    [[nodiscard]] bool hasSucceeded() const { return m_status == 0; }

    [[nodiscard]] bool installAgain() const { return installOnce(m_way, path(), home()); }

    void expectOneWholeVersion() const
    {
        const qint64 current = currentBuild();
        EXPECT_TRUE(current == oldBuild || current == newBuild) << current;
        EXPECT_TRUE(!hasSucceeded() || current == newBuild);
        const QDir versions(installation() + u"/versions"_s);
        EXPECT_TRUE(versions.exists(QString::number(current)));
        for (const QString &name : versions.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            const FileDescriptor version(
                ::open(qPrintable(versions.filePath(name)), O_RDONLY | O_DIRECTORY));
            EXPECT_TRUE(checkTree(version.number())) << qPrintable(name);
            const auto record = m_folder.read(
                u"home/.local/lib/corvane/versions/%1/share/corvane/install.json"_s.arg(name));
            EXPECT_EQ(record, smallBundle(name.toLongLong()).files["share/corvane/install.json"]);
        }
        for (const QString &name : keptFiles)
            EXPECT_EQ(m_folder.read(name), "{\"of\": \"the user\"}\n");
        for (const QString &name : desktopFiles) {
            const auto content = m_folder.read(name);
            EXPECT_TRUE(!content || content == m_expected[name]) << qPrintable(name);
        }
    }

    void expectInstalled() const
    {
        EXPECT_EQ(currentBuild(), newBuild);
        EXPECT_TRUE(QFile::exists(installation() + u"/versions/2/bin/corvane"_s));
        EXPECT_THAT(QDir(installation()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            testing::ElementsAre(u"current"_s, u"lock"_s, u"versions"_s));
        for (const QString &name : desktopFiles)
            EXPECT_EQ(m_folder.read(name), m_expected[name]) << qPrintable(name);
    }

private:
    [[nodiscard]] QString home() const { return m_folder.path(u"home"_s); }
    [[nodiscard]] QString installation() const { return InstallFolder::pathIn(home()); }
    [[nodiscard]] QString path() const
    {
        return m_folder.path(m_way == Way::archive ? u"archive"_s : u"unpacked"_s);
    }
    [[nodiscard]] qint64 currentBuild() const
    {
        return QFileInfo(QFile::symLinkTarget(installation() + u"/current"_s))
            .fileName()
            .toLongLong();
    }

    const QStringList keptFiles{
        u"home/.local/share/Corvane/settings.json"_s, u"home/.local/share/Corvane/layouts.json"_s};
    const QStringList desktopFiles{u"home/.local/bin/corvane"_s,
        u"home/.local/share/applications/app.corvane.Corvane.desktop"_s,
        u"home/.local/share/dbus-1/services/app.corvane.Corvane.service"_s,
        u"home/.local/share/icons/hicolor/scalable/apps/app.corvane.Corvane.svg"_s};

    Way m_way;
    StoreFolder m_folder{.folder = QTemporaryDir(workingPlace())};
    QMap<QString, std::optional<QByteArray>> m_expected;
    int m_status = 0;
};

} // namespace

TEST(InstallFaultTests, whereverAnInstallationFailsOneWholeVersionIsCurrentAndARepeatSucceeds)
{
    for (const Way way : {Way::archive, Way::unpacked}) {
        SCOPED_TRACE(way == Way::archive ? "an archive" : "an unpacked bundle");
        FaultyHome home(way);
        home.makeAnew();
        const QList<Call> calls = callsIn(home.watch({u"-y"_s, u"-e"_s, u"trace=%file,%desc"_s}));
        ASSERT_TRUE(home.hasSucceeded());
        ASSERT_GT(calls.size(), 100);
        home.expectInstalled();

        int points = 0;
        for (const Call &call : calls) {
            for (const Fault &fault : faults) {
                if (!call.canWrite && !fault.isForReaders)
                    continue;
                SCOPED_TRACE((QByteArray(fault.what) + ' ' + call.kind + ' '
                    + QByteArray::number(call.number))
                                 .toStdString());
                home.makeAnew();

                const QByteArray log = home.watch(injection(call, fault));

                // How often a pipe is read differs from run to run, and with it how many calls there are.
                const bool isReached =
                    log.contains("(INJECTED)") || log.contains("killed by SIGKILL");
                EXPECT_TRUE(isReached || home.hasSucceeded());
                home.expectOneWholeVersion();
                ASSERT_TRUE(home.installAgain());
                home.expectInstalled();
                ASSERT_FALSE(HasFailure()) << log.constData();
                points += isReached ? 1 : 0;
            }
        }
        EXPECT_GT(points, calls.size());
        std::printf("%d faults at %d system calls\n", points, int(calls.size()));
    }
}

} // namespace corvane

using namespace corvane;

/// The tests; or one installation: which way, what is installed, the home folder.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4) {
        // Whoever watches the system calls sees by it where the installation begins.
        static_cast<void>(::access("/installation-begins", F_OK));
        return installOnce(Way(arguments[1].toInt()), arguments[2], arguments[3]) ? 0 : 1;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
