#include "AutostartEntry.h"
#include "CommandLines.h"
#include "DesktopEntries.h"
#include "EntryFolders.h"

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using enum Installation::State;

namespace {

struct DesktopEntryTests : testing::Test {
    EntryFolders folders;
    DesktopEntries entries;
};

} // namespace

TEST_F(DesktopEntryTests, whetherAnApplicationCanBeOpenedFollowsFromItsEntry)
{
    struct Case {
        QByteArray keys;
        Installation::State state;
    };
    for (const auto &[keys, state] :
        {Case{"Exec=true %U", ready}, Case{"Exec=true\nTryExec=true", ready},
            Case{"Exec=\nDBusActivatable=true", ready}, Case{"Exec=true\nNoDisplay=true", hidden},
            Case{"Exec=true\nOnlyShowIn=Other;", hidden},
            Case{"Exec=true\nOnlyShowIn=Other;Generic;", ready},
            Case{"Exec=true\nNotShowIn=Desk;", hidden},
            Case{"Exec=true\nOnlyShowIn=Desk;\nNotShowIn=Generic;", ready},
            Case{"Exec=true\nHidden=true", notInstalled}, Case{"Exec=\nIcon=app", broken},
            Case{"Exec=%U", broken}, Case{"Exec=true \"a", broken},
            Case{"Exec=no-such-program", broken},
            Case{"Exec=true\nTryExec=no-such-program", broken},
            Case{"Exec=\nDBusActivatable=true\nTryExec=/no/program", broken},
            Case{"Exec=true\nType=Link\nURL=https://example.org", broken},
            Case{"Exec=true\nno equals sign", broken}}) {
        folders.remove(u"app"_s);
        EXPECT_FALSE(entries.entry(u"app"_s));
        folders.install(u"app"_s, keys);

        const auto entry = entries.entry(u"app"_s);

        EXPECT_EQ(entry ? installation(*entry).state : notInstalled, state) << keys.constData();
    }
}

TEST_F(DesktopEntryTests, anEntryIsFoundByItsPathUnderTheUsersFolderThenTheSystems)
{
    qputenv("LANGUAGE", "de");
    folders.install(u"changed"_s, "Icon=system", u"system"_s);
    folders.install(u"changed"_s, "Icon=home\nName[de]=Geändert");
    folders.install(u"deleted"_s, {}, u"system"_s);
    folders.install(u"deleted"_s, "Hidden=true");
    folders.install(u"vendor/tools/app"_s);
    folders.write(u"home/applications/nameless.desktop"_s, "[Desktop Entry]\nType=Application\n");

    EXPECT_EQ(entries.entry(u"changed"_s)->icon, "home");
    EXPECT_EQ(entries.entry(u"changed"_s)->name, u"Geändert"_s);
    EXPECT_EQ(entries.entry(u"nameless"_s)->name, u"nameless"_s);
    qunsetenv("LANGUAGE");
    EXPECT_EQ(entries.entry(u"deleted"_s), std::nullopt);
    EXPECT_TRUE(entries.entry(u"vendor-tools-app"_s));
    EXPECT_EQ(entries.all().size(), 3);
    for (const QString &id : {u""_s, u"unknown"_s, u"../applications/changed"_s, u"Changed"_s})
        EXPECT_EQ(entries.entry(id), std::nullopt) << qPrintable(id);
}

TEST_F(DesktopEntryTests, whatChangesIsReadAnewAndNothingElseIs)
{
    EXPECT_EQ(entries.entry(u"vendor-late"_s), std::nullopt);
    for (int round = 0; round < 3; ++round) {
        const quint64 before = entries.revision();
        folders.install(u"vendor/late"_s);
        EXPECT_TRUE(entries.entry(u"vendor-late"_s));
        EXPECT_NE(entries.revision(), before);
        folders.remove(u"vendor/late"_s);
        EXPECT_EQ(entries.entry(u"vendor-late"_s), std::nullopt);
    }
    for (const auto &[exec, state] :
        {std::pair("Exec=no-such-program", broken), {"Exec=true", ready}}) {
        folders.install(u"app"_s, exec);
        EXPECT_EQ(installation(*entries.entry(u"app"_s)).state, state);
    }
    // A folder that has only just changed is read once more, later.
    EXPECT_TRUE(eventually([&, last = quint64(0)]() mutable {
        return std::exchange(last, entries.revision()) == entries.revision();
    }));
    EXPECT_TRUE(entries.entry(u"app"_s));
}

TEST_F(DesktopEntryTests, anExecLineBecomesWordsWithItsFieldsFilledIn)
{
    struct Case {
        QByteArray line;
        QByteArrayList words;
    };
    for (const auto &[line, words] :
        {Case{"app", {"app"}}, Case{"app %U", {"app"}}, Case{"app %f --new", {"app", "--new"}},
            Case{"app --file=%u", {"app", "--file="}}, Case{"app %i", {"app", "--icon", "picture"}},
            Case{"app %c", {"app", "A Name"}}, Case{"app %k", {"app", "/the/file.desktop"}},
            Case{"app 100%%", {"app", "100%"}}, Case{"app %d %D %n %N %v %m %z", {"app"}},
            Case{"app %", {"app"}}, Case{"\"/opt/An App/app\" \"\"", {"/opt/An App/app", ""}},
            Case{R"(app "\$HOME \`id\` \"q\" \\")", {"app", R"($HOME `id` "q" \)"}},
            Case{"app $HOME;id|`id`", {"app", "$HOME;id|`id`"}}, Case{"app 'a b", {}}, Case{"", {}},
            Case{"%U", {}}}) {
        DesktopEntry entry;
        entry.name = u"A Name"_s;
        entry.path = u"/the/file.desktop"_s;
        entry.icon = "picture";
        entry.exec = line;

        EXPECT_EQ(commandLine(entry), words) << line.constData();
    }
    for (const auto &[line, programs] :
        {Case{"/opt/app %U", {"/opt/app"}}, Case{"env LANG=C X= app", {"app"}}, Case{"env", {}},
            Case{"python3.11 -m app", {}}, Case{"/usr/bin/flatpak run org.example.App", {}},
            Case{"sh -c app", {}}, Case{"shotwell", {"shotwell"}}}) {
        DesktopEntry entry;
        entry.exec = line;
        EXPECT_EQ(ownPrograms(entry), programs) << line.constData();
    }
}

TEST_F(DesktopEntryTests, theUsersTerminalElseTheSystemsIsAskedInItsOwnWay)
{
    const QByteArray systemPath = qgetenv("PATH");
    qputenv("PATH", folders.path(u"bin"_s).toLocal8Bit());
    qputenv("TERMINAL", "no-such-terminal");
    EXPECT_EQ(terminalCommandLine({"app"}), QByteArrayList());
    for (const auto &[terminal, flag] :
        {std::pair(u"xterm"_s, "-e"), {u"x-terminal-emulator"_s, "-e"}, {u"gnome-terminal"_s, "--"},
            {u"xfce4-terminal"_s, "-x"}}) {
        std::ignore = folders.addProgram(terminal);
        if (!terminal.startsWith(u'x') || terminal.startsWith(u"xfce"))
            qputenv("TERMINAL", terminal.toLatin1());
        EXPECT_EQ(terminalCommandLine({"app", "a b"}),
            (QByteArrayList{terminal.toLatin1(), flag, "app", "a b"}));
    }
    std::ignore = folders.addProgram(u"kcmshell5"_s);
    std::ignore = folders.addProgram(u"gnome-session-properties"_s);
    EXPECT_EQ(autostartSettings({"KDE"}), (QByteArrayList{"kcmshell5", "kcm_autostart"}));
    EXPECT_EQ(autostartSettings({"ubuntu", "GNOME"}), QByteArrayList{"gnome-session-properties"});
    EXPECT_EQ(autostartSettings({"XFCE"}), QByteArrayList());
    qputenv("PATH", systemPath);
}

TEST_F(DesktopEntryTests, aLoginItemComesAndGoesButStaysOffWhereTheUserSwitchedItOff)
{
    using enum LoginItem;
    const QString path = u"autostart/app.corvane.Corvane.desktop"_s;
    const AutostartEntry entry(folders.path(u"autostart"_s), u"/usr/bin/corvane"_s);
    struct Case {
        QByteArray keys;
        LoginItem before;
        LoginItem after;
    };
    for (const auto &[keys, before, after] :
        {Case{"[broken", absent, present}, Case{"Hidden=true", awaitsApproval, awaitsApproval},
            Case{"X-GNOME-Autostart-enabled=false", awaitsApproval, awaitsApproval},
            Case{"X-MATE-Autostart-enabled=false", awaitsApproval, awaitsApproval},
            Case{"Hidden=false\nX-GNOME-Autostart-enabled=true", present, present}}) {
        EXPECT_TRUE(entry.remove() && entry.remove());
        EXPECT_EQ(entry.state(), absent);
        folders.write(path, "[Desktop Entry]\nType=Application\nName=Corvane\nExec=other\n" + keys);
        EXPECT_EQ(entry.state(), before) << keys.constData();

        EXPECT_TRUE(entry.add());

        EXPECT_EQ(entry.state(), after) << keys.constData();
        QFile file(entry.path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll().contains("\nExec=\"/usr/bin/corvane\"\n"), after == present);
    }
    for (const QString &program : {u"/opt/two words/corvane"_s, u"/opt/\"it's\"/corvane"_s,
             u"/opt/$HOME `id`/corvane"_s, u"/opt/100%/%U/corvane"_s, u"/opt/a\\nb\\\\c"_s,
             u"/opt/two\nlines\t"_s, u"/opt/Größe;#~&"_s}) {
        EXPECT_TRUE(AutostartEntry(folders.path(u"home/applications"_s), program).add());
        const auto read = DesktopEntries().entry(u"app.corvane.Corvane"_s);
        ASSERT_TRUE(read) << qPrintable(program);
        EXPECT_EQ(ownPrograms(*read), QByteArrayList{program.toUtf8()});
    }

    EXPECT_TRUE(entry.remove());
    folders.write(path + u"/in the way"_s, {});
    for (const auto &result :
        {AutostartEntry(u"/proc"_s, u"/bin/a"_s).add(), entry.add(), entry.remove()}) {
        ASSERT_FALSE(result);
        EXPECT_THAT(result.error().toStdString(),
            testing::MatchesRegex("\"/.*desktop\" cannot be (written|removed): [^.]+\\."));
    }
    EXPECT_TRUE(QFile::exists(entry.path() + u"/in the way"_s));
}

} // namespace corvane::freedesktop
