#include "ApplicationMatch.h"
#include "EntryFolders.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// An entry comes, and from then on this is the application.
struct Step {
    QString id;
    QByteArray keys;
    QString found;
};

struct ApplicationMatchTests : testing::Test {
    EntryFolders folders;
    DesktopEntries entries;
    const ProcessFiles processes{folders.path(u"proc"_s)};

    void expectSteps(const ApplicationTraces &traces, std::initializer_list<Step> steps)
    {
        for (const auto &[id, keys, expected] : steps) {
            // A file written anew in place is not noticed at once.
            folders.remove(id);
            EXPECT_FALSE(entries.entry(id));
            folders.install(id, keys);
            const auto found = findApplication(entries, traces, processes);
            EXPECT_EQ(found ? found->id : QString(), expected) << qPrintable(id);
        }
    }
};

} // namespace

TEST_F(ApplicationMatchTests, theSurestSignThatHasAnEntryDecides)
{
    folders.runProgram(folders.addProgram(u"program"_s), "program");
    folders.write(u"proc/7/root/.flatpak-info"_s, "[Application]\nname=org.example.Sandboxed\n");

    expectSteps({7, u"/usr/org.example.Published.desktop"_s, u"AppClass"_s, {}},
        {{u"other"_s, "StartupWMClass=Other", {}}, {u"runs"_s, "Exec=program %U", u"runs"_s},
            {u"org.example.AppClass"_s, {}, u"org.example.AppClass"_s},
            {u"appclass"_s, {}, u"appclass"_s},
            {u"announced"_s, "StartupWMClass=AppClass", u"announced"_s},
            {u"org.example.Sandboxed"_s, {}, u"org.example.Sandboxed"_s},
            {u"org.example.Sandboxed.part"_s, "StartupWMClass=AppClass",
                u"org.example.Sandboxed.part"_s},
            {u"org.example.Published"_s, {}, u"org.example.Published"_s}});
}

TEST_F(ApplicationMatchTests, oneOfSeveralEntriesThatAnnounceAClassIsChosen)
{
    expectSteps({7, {}, u"Browser"_s, u"site-instance"_s},
        {{u"a.hidden"_s, "StartupWMClass=Browser\nNoDisplay=true", u"a.hidden"_s},
            {u"c.offered"_s, "StartupWMClass=Browser", u"c.offered"_s},
            {u"b.offered"_s, "StartupWMClass=Browser", u"b.offered"_s},
            {u"browser"_s, "StartupWMClass=Browser", u"browser"_s},
            {u"site"_s, "StartupWMClass=site-instance", u"site"_s}});
}

TEST_F(ApplicationMatchTests, anUncertainSignCountsOnlyWhereItIsTheOnlyOne)
{
    folders.runProgram(folders.addProgram(u"suite"_s), "suite");
    expectSteps({7, {}, {}, {}},
        {{u"org.example.Shell"_s, "Exec=sh -c suite", {}},
            {u"org.example.Write"_s, "Exec=suite --write", u"org.example.Write"_s},
            {u"org.example.Draw"_s, "Exec=suite --draw", {}},
            {u"org.example.Draw"_s, "Exec=suite --draw\nNoDisplay=true", u"org.example.Write"_s}});
    folders.runProgram(u"/bin/sh"_s, "sh");
    expectSteps({7, {}, {}, {}}, {{u"org.example.Shell"_s, "Exec=sh -c suite", {}}});
    expectSteps({7, {}, u"Texteditor"_s, u"window"_s},
        {{u"org.one.TextEditor"_s, {}, u"org.one.TextEditor"_s},
            {u"org.one.OtherTextEditor"_s, {}, u"org.one.TextEditor"_s},
            {u"org.two.TextEditor"_s, "NoDisplay=true", u"org.one.TextEditor"_s},
            {u"org.two.TextEditor"_s, {}, {}}});
    folders.write(u"proc/7/environ"_s, "SNAP_INSTANCE_NAME=office");
    expectSteps({7, {}, {}, {}},
        {{u"office_write"_s, {}, u"office_write"_s}, {u"office_calc"_s, {}, {}},
            {u"office_office"_s, {}, u"office_office"_s}});
}

TEST_F(ApplicationMatchTests, aProgramIsFoundThroughLinksScriptsAndJavaNames)
{
    const QString linked = folders.addProgram(u"app.real"_s);
    QFile::link(linked, folders.path(u"bin/app"_s));
    const QByteArray script = folders.addProgram(u"script"_s).toLocal8Bit();
    const QString tried = folders.addProgram(u"tried"_s);
    for (const auto &[id, keys] : {std::pair(u"linked"_s, "Exec=app %U"),
             {u"wrapped"_s, "Exec=/opt/start/wrapper"}, {u"scripted"_s, "Exec=env A=b script"},
             {u"trying"_s, "Exec=sh -c tried\nTryExec=tried"}, {u"jedit"_s, ""},
             {u"terminal"_s, ""}, {u"archive"_s, "Exec=java -jar /opt/archive/Archive.jar %U"}})
        folders.install(id, keys);
    struct Case {
        QString program;
        QByteArray arguments;
        QString id;
        QString className{};
        QString plain{};
    };
    const QString swing = u"sun-awt-X11-XFramePeer"_s;
    const QString jEdit = u"org-gjt-sp-jedit-jEdit"_s;
    const QString terminal = u"gnome-terminal"_s;
    const QString java = u"/usr/lib/jvm/bin/java"_s;
    for (const auto &[program, arguments, id, className, plain] :
        {Case{linked, "app", u"linked"_s}, Case{u"/opt/lib/wrapper"_s, "w", u"wrapped"_s},
            Case{u"/usr/bin/python3.11"_s, "python3 " + script, u"scripted"_s},
            Case{tried, "tried", u"trying"_s}, Case{java, "java", u"jedit"_s, jEdit, jEdit},
            Case{java, "java -jar /usr/share/jedit/jedit.jar", u"jedit"_s, swing, u"jedit"_s},
            Case{java, "java -cp a.jar:b.jar org.gjt.sp.jEdit", u"jedit"_s, swing, u"jEdit"_s},
            Case{java, "java -jar /opt/Archive.jar", u"archive"_s, swing, u"Archive"_s},
            Case{java, "java -cp a.jar org.foo.Bar", {}, swing, u"Bar"_s},
            Case{java, "java", {}, swing, swing}, Case{java, "java", {}, terminal, terminal}}) {
        folders.runProgram(program, arguments);
        const ApplicationTraces traces{7, {}, className, className.isEmpty() ? QString() : swing};

        const auto found = findApplication(entries, traces, processes);

        EXPECT_EQ(found ? found->id : QString(), id) << arguments.constData();
        EXPECT_TRUE(plain.isEmpty() || plainName(traces, processes) == plain)
            << arguments.constData();
    }
}

TEST_F(ApplicationMatchTests, programsLeaveOutWhatOnlyRunsThem)
{
    struct Case {
        QString executable;
        QByteArray arguments;
        QStringList programs;
    };
    for (const auto &[executable, arguments, programs] :
        {Case{u"/usr/bin/app"_s, "app file", {u"/usr/bin/app"_s, u"app"_s}},
            Case{u"/usr/bin/app (deleted)"_s, "/usr/bin/app", {u"/usr/bin/app"_s}},
            Case{u"/usr/bin/python3.11"_s, "/usr/bin/python3 -O /usr/bin/app file",
                {u"/usr/bin/app"_s}},
            Case{u"/usr/bin/perl"_s, "renamed -w", {u"renamed"_s}}, Case{u"/bin/dash"_s, "sh", {}},
            Case{u"/jvm/17/bin/java"_s, "java -Xmx1g -jar /usr/jedit.jar file", {u"jedit"_s}},
            Case{u"/opt/java"_s, "java -cp a.jar:b.jar -Da=b org.foo.Bar file", {u"Bar"_s}},
            Case{u"/opt/java"_s, "java -classpath a @options Bar", {u"Bar"_s}},
            Case{u"/opt/java"_s, "java -p lib -m org.foo/org.foo.Bar", {u"Bar"_s}},
            Case{u"/opt/java"_s, "java -cp a.jar", {}}}) {
        folders.runProgram(executable, arguments);
        EXPECT_EQ(processes.programs(7), programs) << arguments.constData();
    }
    EXPECT_EQ(processes.programs(8), QStringList());
    EXPECT_EQ(
        ProcessFiles().programs(getpid()).value(0), QFile::symLinkTarget(u"/proc/self/exe"_s));
}

TEST_F(ApplicationMatchTests, aSandboxNamesItsApplicationInItsOwnWay)
{
    const auto sandboxed = [this](pid_t pid) { return processes.sandbox(pid).value_or(Sandbox{}); };
    const QByteArray info = "[Application]\nname=org.example.App\nruntime=runtime/org/x86_64/1\n";
    for (const auto &file : {u"proc/7/root/.flatpak-info"_s, u"proc/-7/root/.flatpak-info"_s})
        folders.write(file, info);
    EXPECT_EQ(sandboxed(7), (Sandbox{u"org.example.App"_s, u"org.example.App."_s}));
    EXPECT_EQ(processes.sandbox(-7), std::nullopt); // stands for no process

    // A pipe or a link in the place of the file is not opened.
    folders.write(u"proc/8/root/info"_s, info);
    folders.write(u"proc/9/root/other"_s, {});
    QFile::link(u"info"_s, folders.path(u"proc/8/root/.flatpak-info"_s));
    mkfifo(qPrintable(folders.path(u"proc/9/root/.flatpak-info"_s)), 0600);
    EXPECT_EQ(processes.sandbox(8), std::nullopt);
    EXPECT_EQ(processes.sandbox(9), std::nullopt);

    const QByteArray uuid = "8d7f3c1e-5a5b-4c6d-9e8f-0123456789ab";
    for (const auto &[group, entryId] : {std::pair("snap.web.web-" + uuid + ".scope", u"web_web"_s),
             {"snap.office.write-it-" + uuid + ".scope", u"office_write-it"_s},
             {"snap.office.calc." + uuid + ".scope", u"office_calc"_s},
             {"snap.office_two.calc.service", u"office_two_calc"_s}, {"app-snap.scope", {}}}) {
        folders.write(
            u"proc/9/cgroup"_s, "1:name=systemd:/user.slice/" + group + "\n0::/app.slice\n");
        EXPECT_EQ(sandboxed(9).entryId, entryId) << group.constData();
    }
    folders.write(
        u"proc/9/environ"_s, QByteArray("NOT_SNAP_INSTANCE_NAME=no\0SNAP_INSTANCE_NAME=a_b\0", 49));
    EXPECT_EQ(sandboxed(9), (Sandbox{u"a_b_a_b"_s, u"a_b_"_s}));
}

} // namespace corvane::freedesktop
