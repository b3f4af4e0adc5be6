#include "EntryFolders.h"
#include "ProcessFiles.h"

#include <QtCore/QFile>

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

class ProcessFilesTests : public testing::Test
{
protected:
    EntryFolders folders;
    const ProcessFiles processes{folders.path(u"proc"_s)};

    void setProgram(const QString &executable, const QByteArrayList &arguments)
    {
        folders.writeFile(u"proc/7/cmdline"_s, arguments.join('\0') + '\0');
        QFile::remove(folders.path(u"proc/7/exe"_s));
        QFile::link(executable, folders.path(u"proc/7/exe"_s));
    }
};

} // namespace

TEST_F(ProcessFilesTests, aFlatpakNamesItsApplication)
{
    for (const auto &file : {u"proc/7/root/.flatpak-info"_s, u"proc/-7/root/.flatpak-info"_s})
        folders.writeFile(
            file, "[Application]\nname=org.example.App\nruntime=runtime/org.example/x86_64/1\n");

    EXPECT_EQ(processes.sandbox(7), (Sandbox{u"org.example.App"_s, u"org.example.App."_s}));
    EXPECT_EQ(processes.sandbox(8), std::nullopt);
    EXPECT_EQ(processes.sandbox(-7), std::nullopt); // stands for no process
}

TEST_F(ProcessFilesTests, aPipeOrALinkInThePlaceOfAFlatpaksFileIsNotOpened)
{
    folders.writeFile(u"proc/8/root/info"_s, "[Application]\nname=org.example.App\n");
    folders.writeFile(u"proc/7/root/other"_s, {});
    mkfifo(qPrintable(folders.path(u"proc/7/root/.flatpak-info"_s)), 0600);
    QFile::link(u"info"_s, folders.path(u"proc/8/root/.flatpak-info"_s));

    EXPECT_EQ(processes.sandbox(7), std::nullopt);
    EXPECT_EQ(processes.sandbox(8), std::nullopt);
}

TEST_F(ProcessFilesTests, aSnapIsKnownByItsControlGroup)
{
    struct Case {
        QByteArray group;
        QString entryId;
    };
    const QByteArray uuid = "8d7f3c1e-5a5b-4c6d-9e8f-0123456789ab";
    for (const auto &[group, entryId] : {Case{"snap.web.web-" + uuid + ".scope", u"web_web"_s},
             Case{"snap.office.write-it-" + uuid + ".scope", u"office_write-it"_s},
             Case{"snap.office.calc." + uuid + ".scope", u"office_calc"_s},
             Case{"snap.office_two.calc.service", u"office_two_calc"_s}}) {
        folders.writeFile(u"proc/7/cgroup"_s,
            "1:name=systemd:/user.slice/" + group + "\n0::/user.slice/app.slice\n");

        EXPECT_EQ(processes.sandbox(7).value_or(Sandbox{}).entryId, entryId) << group.constData();
    }
    folders.writeFile(u"proc/7/cgroup"_s, "0::/user.slice/app-snap.scope\n");
    EXPECT_EQ(processes.sandbox(7), std::nullopt);
}

TEST_F(ProcessFilesTests, aSnapIsKnownByItsVariables)
{
    folders.writeFile(u"proc/7/environ"_s,
        QByteArray("NOT_SNAP_INSTANCE_NAME=no\0SNAP_INSTANCE_NAME=office_two\0", 56));

    EXPECT_EQ(processes.sandbox(7), (Sandbox{u"office_two_office_two"_s, u"office_two_"_s}));
}

TEST_F(ProcessFilesTests, programsLeaveOutWhatOnlyRunsThem)
{
    struct Case {
        QString executable;
        QByteArrayList arguments;
        QStringList programs;
    };
    for (const auto &[executable, arguments, programs] :
        {Case{u"/usr/bin/app"_s, {"app", "file"}, {u"/usr/bin/app"_s, u"app"_s}},
            Case{u"/usr/bin/app (deleted)"_s, {"/usr/bin/app"}, {u"/usr/bin/app"_s}},
            Case{u"/usr/bin/python3.11"_s, {"/usr/bin/python3", "-O", "/usr/bin/app", "file"},
                {u"/usr/bin/app"_s}},
            Case{u"/usr/bin/perl"_s, {"renamed", "-w"}, {u"renamed"_s}},
            Case{u"/usr/bin/dash"_s, {"sh"}, {}},
            Case{u"/usr/lib/jvm/17/bin/java"_s,
                {"java", "-Xmx1g", "-jar", "/usr/share/jedit/jedit.jar", "file"}, {u"jedit"_s}},
            Case{u"/opt/java"_s, {"java", "-cp", "a.jar:b.jar", "-Da=b", "org.foo.Bar", "file"},
                {u"Bar"_s}},
            Case{u"/opt/java"_s, {"java", "-classpath", "a", "@options", "Bar"}, {u"Bar"_s}},
            Case{u"/opt/java"_s, {"java", "-p", "lib", "-m", "org.foo/org.foo.Bar"}, {u"Bar"_s}},
            Case{u"/opt/java"_s, {"java", "-cp", "a.jar"}, {}}}) {
        setProgram(executable, arguments);

        EXPECT_EQ(processes.programs(7), programs) << qPrintable(executable);
    }
    EXPECT_EQ(processes.programs(8), QStringList());
}

TEST_F(ProcessFilesTests, aRealProcessIsRead)
{
    EXPECT_EQ(
        ProcessFiles().programs(getpid()).value(0), QFile::symLinkTarget(u"/proc/self/exe"_s));
}

} // namespace corvane::freedesktop
