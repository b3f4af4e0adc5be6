#include "ApplicationMatch.h"
#include "EntryFolders.h"

#include <QtCore/QFile>

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

class ApplicationMatchTests : public testing::Test
{
protected:
    EntryFolders folders;
    DesktopEntries entries;
    ApplicationTraces traces{7, {}, {}, {}};

    /// The id that was found; empty when none was.
    QString found()
    {
        const auto entry = findApplication(entries, traces, ProcessFiles(folders.path(u"proc"_s)));
        return entry ? entry->id : QString();
    }
    void setSandbox(const QByteArray &name)
    {
        folders.writeFile(u"proc/7/root/.flatpak-info"_s, "[Application]\nname=" + name + '\n');
    }
    void setProgram(const QString &executable, const QByteArray &arguments = {})
    {
        folders.writeFile(u"proc/7/cmdline"_s, arguments);
        QFile::remove(folders.path(u"proc/7/exe"_s));
        QFile::link(executable, folders.path(u"proc/7/exe"_s));
    }
};

} // namespace

TEST_F(ApplicationMatchTests, theSurestSignDecides)
{
    const QString program = folders.addProgram(u"app-program"_s);
    folders.install(u"org.example.Program"_s, "Exec=app-program %U");
    folders.install(u"org.example.AppClass"_s);
    folders.install(u"appclass"_s);
    folders.install(u"org.example.Announced"_s, "StartupWMClass=AppClass");
    folders.install(u"org.example.Sandboxed"_s);
    folders.install(u"org.example.Published"_s);

    setProgram(program);
    EXPECT_EQ(found(), u"org.example.Program");
    traces.className = u"AppClass"_s;
    EXPECT_EQ(found(), u"org.example.Announced");
    folders.remove(u"org.example.Announced"_s);
    EXPECT_EQ(found(), u"appclass");
    folders.remove(u"appclass"_s);
    EXPECT_EQ(found(), u"org.example.AppClass");
    setSandbox("org.example.Sandboxed");
    EXPECT_EQ(found(), u"org.example.Sandboxed");
    traces.publishedId = u"org.example.Published"_s;
    EXPECT_EQ(found(), u"org.example.Published");
}

TEST_F(ApplicationMatchTests, aPublishedIdMayBeAFileOrAPath)
{
    folders.install(u"org.example.App"_s);

    for (const QString &published : {u"org.example.App"_s, u"org.example.App.desktop"_s,
             u"/usr/share/applications/org.example.App.desktop"_s}) {
        traces.publishedId = published;
        EXPECT_EQ(found(), u"org.example.App") << qPrintable(published);
    }
}

TEST_F(ApplicationMatchTests, aPublishedIdOrSandboxWithoutAnEntryGivesWay)
{
    folders.install(u"app"_s);
    traces = {7, u"org.example.Uninstalled"_s, u"App"_s, u"app"_s};
    setSandbox("org.example.Elsewhere");

    EXPECT_EQ(found(), u"app");
    folders.remove(u"app"_s);
    EXPECT_EQ(found(), QString());
}

TEST_F(ApplicationMatchTests, aSandboxWithSeveralEntriesIsToldApartByTheClass)
{
    folders.install(u"org.example.Office"_s);
    folders.install(u"org.example.Office.writer"_s, "StartupWMClass=office-writer");
    folders.install(u"other"_s, "StartupWMClass=office-draw");
    setSandbox("org.example.Office");

    traces.className = u"office-writer"_s;
    EXPECT_EQ(found(), u"org.example.Office.writer");
    traces.className = u"office-draw"_s;
    EXPECT_EQ(found(), u"org.example.Office");
}

TEST_F(ApplicationMatchTests, anEntryOfASnapNeedNotBearThePackagesName)
{
    folders.writeFile(u"proc/7/environ"_s, "SNAP_INSTANCE_NAME=office");
    folders.install(u"office_write"_s);
    EXPECT_EQ(found(), u"office_write");

    folders.install(u"office_calc"_s);
    EXPECT_EQ(found(), QString());

    folders.install(u"office_office"_s);
    EXPECT_EQ(found(), u"office_office");
}

TEST_F(ApplicationMatchTests, oneOfSeveralEntriesThatAnnounceAClassIsChosen)
{
    traces = {7, {}, u"Browser"_s, u"site-instance"_s};
    folders.install(u"a.hidden"_s, "StartupWMClass=Browser\nNoDisplay=true");
    EXPECT_EQ(found(), u"a.hidden");
    folders.install(u"c.offered"_s, "StartupWMClass=Browser");
    EXPECT_EQ(found(), u"c.offered");
    folders.install(u"b.offered"_s, "StartupWMClass=Browser");
    EXPECT_EQ(found(), u"b.offered");
    folders.install(u"browser"_s, "StartupWMClass=Browser");
    EXPECT_EQ(found(), u"browser");
    folders.install(u"site"_s, "StartupWMClass=site-instance");
    EXPECT_EQ(found(), u"site");
}

TEST_F(ApplicationMatchTests, theEndOfAnIdCountsOnlyWhereItIsTheOnlyOne)
{
    traces = {7, {}, u"Texteditor"_s, u"window"_s};
    folders.install(u"org.one.TextEditor"_s);
    folders.install(u"org.one.OtherTextEditor"_s);
    EXPECT_EQ(found(), u"org.one.TextEditor");

    folders.install(u"org.two.TextEditor"_s, "NoDisplay=true");
    EXPECT_EQ(found(), u"org.one.TextEditor");

    // A file written anew in place is not noticed at once.
    folders.remove(u"org.two.TextEditor"_s);
    folders.install(u"org.two.TextEditor"_s);
    EXPECT_EQ(found(), QString());
}

TEST_F(ApplicationMatchTests, aProgramIsFoundThroughLinksAndScripts)
{
    const QString program = folders.addProgram(u"app.real"_s);
    QFile::link(program, folders.path(u"bin/app"_s));
    folders.install(u"org.example.Linked"_s, "Exec=app %U");
    folders.install(u"org.example.Wrapped"_s, "Exec=/opt/start/wrapped");
    folders.install(u"org.example.Script"_s, "Exec=env A=b script");
    folders.install(u"org.example.Tried"_s, "Exec=sh -c tried\nTryExec=tried");
    const QByteArray script = folders.addProgram(u"script"_s).toLocal8Bit();
    const QString tried = folders.addProgram(u"tried"_s);

    setProgram(program);
    EXPECT_EQ(found(), u"org.example.Linked");
    setProgram(u"/opt/lib/wrapped"_s);
    EXPECT_EQ(found(), u"org.example.Wrapped");
    setProgram(u"/usr/bin/python3.11"_s, QByteArray("python3\0", 8) + script);
    EXPECT_EQ(found(), u"org.example.Script");
    setProgram(tried);
    EXPECT_EQ(found(), u"org.example.Tried");
}

TEST_F(ApplicationMatchTests, aJavaProgramIsNamedByTheLastPartOfItsClassOrByItsCommandLine)
{
    struct Case {
        QString className;
        QByteArray arguments;
        QString id;
        QString plain;
    };
    folders.install(u"jedit"_s);
    folders.install(u"terminal"_s);
    folders.install(u"org.example.Archive"_s, "Exec=java -jar /opt/archive/Archive.jar %U");
    const QString swing = u"sun-awt-X11-XFramePeer"_s;
    const QString jEdit = u"org-gjt-sp-jedit-jEdit"_s;
    for (const auto &[className, arguments, id, plain] : {Case{jEdit, {}, u"jedit"_s, jEdit},
             Case{swing, "-jar /usr/share/jedit/jedit.jar", u"jedit"_s, u"jedit"_s},
             Case{swing, "-cp a.jar:b.jar org.gjt.sp.jEdit", u"jedit"_s, u"jEdit"_s},
             Case{swing, "-jar /opt/Archive.jar", u"org.example.Archive"_s, u"Archive"_s},
             Case{swing, "-cp a.jar org.foo.Bar", {}, u"Bar"_s}, Case{swing, {}, {}, swing},
             Case{u"gnome-terminal"_s, {}, {}, u"gnome-terminal"_s}}) {
        SCOPED_TRACE(arguments.constData());
        traces = {7, {}, className, swing};
        setProgram(u"/usr/lib/jvm/bin/java"_s, ("java " + arguments).split(' ').join('\0'));

        EXPECT_EQ(found(), id);
        EXPECT_EQ(plainName(traces, ProcessFiles(folders.path(u"proc"_s))), plain);
    }
}

TEST_F(ApplicationMatchTests, aProgramOfSeveralEntriesOrOfManyThingsSaysNothing)
{
    const QString program = folders.addProgram(u"suite"_s);
    folders.install(u"org.example.Write"_s, "Exec=suite --write");
    folders.install(u"org.example.Draw"_s, "Exec=suite --draw");
    folders.install(u"org.example.Shell"_s, "Exec=sh -c something");

    setProgram(program);
    EXPECT_EQ(found(), QString());
    setProgram(u"/bin/sh"_s, QByteArray("sh\0", 3));
    EXPECT_EQ(found(), QString());

    folders.install(u"org.example.Draw"_s, "Exec=suite --draw\nNoDisplay=true");
    folders.install(u"org.example.Other"_s);
    setProgram(program);
    EXPECT_EQ(found(), u"org.example.Write");
}

} // namespace corvane::freedesktop
