#include "ApplicationMatch.h"
#include "Testing.h"

#include <sys/stat.h>

namespace corvane::freedesktop {

/// An entry comes, and from then on this is the application.
using Step = std::tuple<QString, QByteArray, QString>;

struct ApplicationMatchTests : EntryTests {
    const ProcessFiles processes{path(u"proc"_s)};

    QString find(const ApplicationTraces &traces)
    {
        return findApplication(entries, traces, processes).value_or(DesktopEntry{}).id;
    }
    void expectSteps(const ApplicationTraces &traces, std::initializer_list<Step> steps)
    {
        for (const auto &[id, keys, expected] : steps) {
            // A file written anew in place is not noticed at once.
            remove(id);
            EXPECT_FALSE(entries.entry(id));
            install(id, keys);
            EXPECT_EQ(find(traces), expected) << qPrintable(id);
        }
    }
};

TEST_F(ApplicationMatchTests, theSurestSignThatHasAnEntryDecides)
{
    runProgram(addProgram(u"program"_s), "program");
    write(u"proc/7/root/.flatpak-info"_s, "[Application]\nname=org.example.Box\n");

    expectSteps({7, u"/usr/org.example.Published.desktop"_s, u"AppClass"_s, u"Instance"_s},
        {{u"other"_s, "StartupWMClass=Other", {}}, {u"runs"_s, "Exec=program %U", u"runs"_s},
            {u"org.example.AppClass"_s, {}, u"org.example.AppClass"_s},
            {u"appclass"_s, {}, u"appclass"_s},
            {u"a.hidden"_s, "StartupWMClass=AppClass\nNoDisplay=true", u"a.hidden"_s},
            {u"announced"_s, "Exec=program\nStartupWMClass=AppClass", u"announced"_s},
            {u"a.uninstalled"_s, "Exec=gone\nStartupWMClass=AppClass", u"announced"_s},
            {u"site"_s, "StartupWMClass=Instance", u"site"_s},
            {u"org.example.Box"_s, {}, u"org.example.Box"_s},
            {u"org.example.Box.part"_s, "StartupWMClass=AppClass", u"org.example.Box.part"_s},
            {u"org.example.Published"_s, {}, u"org.example.Published"_s}});
}

TEST_F(ApplicationMatchTests, anUncertainSignCountsOnlyWhereItIsTheOnlyOne)
{
    runProgram(addProgram(u"suite"_s), "suite");
    expectSteps({7, {}, {}, {}},
        {{u"org.example.Shell"_s, "Exec=sh -c suite", {}},
            {u"org.example.Write"_s, "Exec=suite --write", u"org.example.Write"_s},
            {u"org.example.Draw"_s, "Exec=suite --draw", {}}});
    expectSteps({7, {}, u"Texteditor"_s, u"window"_s},
        {{u"org.one.TextEditor"_s, {}, u"org.one.TextEditor"_s},
            {u"org.two.TextEditor"_s, "NoDisplay=true", u"org.one.TextEditor"_s},
            {u"org.two.TextEditor"_s, {}, {}}});
}

TEST_F(ApplicationMatchTests, aProgramIsFoundThroughLinksScriptsAndJavaNames)
{
    const QString linked = addProgram(u"app.real"_s);
    QFile::link(linked, path(u"bin/app"_s));
    const QByteArray script = addProgram(u"script"_s).toLocal8Bit();
    for (const auto &[id, keys] :
        {std::pair(u"linked"_s, "Exec=app %U"), {u"wrapped"_s, "Exec=/opt/start/wrapper"},
            {u"scripted"_s, "Exec=env A=b script"}, {u"trying"_s, "Exec=sh -c a\nTryExec=tried"},
            {u"jedit"_s, ""}, {u"archive"_s, "Exec=java -jar /opt/archive/Archive.jar %U"}})
        install(id, keys);
    using Case = std::tuple<QString, QByteArray, QString, QString>;
    const QString java = u"/usr/lib/jvm/bin/java"_s;
    for (const auto &[program, arguments, id, plain] : {Case{linked, "app", u"linked"_s, u"app"_s},
             Case{u"/opt/lib/wrapper (deleted)"_s, "w", u"wrapped"_s, u"w"_s},
             Case{u"/bin/python3.11"_s, "python3 -O " + script, u"scripted"_s, u"script"_s},
             Case{u"/opt/tried"_s, "tried", u"trying"_s, u"tried"_s},
             Case{java, "java -Xmx1g -jar /usr/jedit.jar file", u"jedit"_s, u"jedit"_s},
             Case{java, "java -cp a.jar:b.jar org.gjt.sp.jEdit", u"jedit"_s, u"jEdit"_s},
             Case{java, "java -p lib -m org.foo/org.foo.Archive", u"archive"_s, u"Archive"_s},
             Case{java, "java", {}, u"sun-awt-X11-XFramePeer"_s}}) {
        runProgram(program, arguments);
        const ApplicationTraces traces{7, {}, u"sun-awt-X11-XFramePeer"_s, {}};

        EXPECT_EQ(find(traces), id) << arguments.constData();
        EXPECT_EQ(plainName(traces, processes), plain);
    }
    EXPECT_EQ(find({7, {}, u"org-gjt-sp-jedit-jEdit"_s, {}}), u"jedit"_s);
}

TEST_F(ApplicationMatchTests, aSandboxNamesItsApplicationInItsOwnWay)
{
    // A pipe or a link in the place of the file is not opened.
    write(u"proc/8/root/info"_s, "[Application]\nname=org.example.App\n");
    QFile::link(u"info"_s, path(u"proc/8/root/.flatpak-info"_s));
    write(u"proc/9/root/other"_s, {});
    mkfifo(qPrintable(path(u"proc/9/root/.flatpak-info"_s)), 0600);
    EXPECT_EQ(processes.sandbox(8), std::nullopt);
    EXPECT_EQ(processes.sandbox(9), std::nullopt);

    const QByteArray uuid = "8d7f3c1e-5a5b-4c6d-9e8f-0123456789ab";
    for (const auto &[group, id] :
        {std::pair("snap.office.write-it-" + uuid + ".scope", u"office_write-it"_s),
            {"snap.office_two.calc.service", u"office_two_calc"_s}, {"app-snap.scope", {}}}) {
        write(u"proc/9/cgroup"_s, "1:name=systemd:/user.slice/" + group + "\n0::/a\n");
        EXPECT_EQ(processes.sandbox(9).value_or(Sandbox{}).entryId, id) << group.constData();
    }
    write(u"proc/9/environ"_s, QByteArray("A=b\0SNAP_INSTANCE_NAME=a_b\0", 28));
    EXPECT_EQ(processes.sandbox(9), (Sandbox{u"a_b_a_b"_s, u"a_b_"_s}));
}

} // namespace corvane::freedesktop
