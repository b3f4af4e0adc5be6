#include "AutostartEntry.h"
#include "CommandLines.h"
#include "Launcher.h"
#include "Testing.h"

namespace corvane::freedesktop {

using enum Installation::State;

using DesktopEntryTests = EntryTests;

TEST_F(DesktopEntryTests, whetherAnApplicationCanBeOpenedFollowsFromItsEntryOrItSaysWhy)
{
    struct Case {
        QByteArray keys;
        Installation::State state;
        const char *complaint = nullptr;
    };
    Launcher launcher(entries);
    for (const auto &[keys, state, complaint] :
        {Case{"Exec=true %U\nTryExec=true", ready}, Case{"Exec=\nDBusActivatable=true", ready},
            Case{"Exec=true\nNoDisplay=true", hidden}, Case{"Exec=true\nOnlyShowIn=Other;", hidden},
            Case{"Exec=true\nOnlyShowIn=Other;Generic;", ready},
            Case{"Exec=true\nNotShowIn=Desk;", hidden},
            Case{"Exec=true\nOnlyShowIn=Desk;\nNotShowIn=Generic;", ready},
            Case{"Exec=true\nPath=/no/such/folder", ready, ".Application.*/no/such/folder.*\\."},
            Case{"Exec=true\nHidden=true", notInstalled, ".app. is not installed\\."},
            Case{"Exec=%U", broken, ".Application. cannot be opened: .* names no program\\."},
            Case{"Exec=true \"a", broken},
            Case{"Exec=no-such-program", broken, ".Application.*: its program is not .*\\."},
            Case{"Exec=\nDBusActivatable=true\nTryExec=/no/program", broken},
            Case{"Exec=true\nType=Link", broken, ".* entry describes no application\\."},
            Case{"Exec=true\nno equals sign", broken, ".app.* entry cannot be read\\."}}) {
        remove(u"app"_s);
        EXPECT_FALSE(entries.entry(u"app"_s));
        install(u"app"_s, keys);

        const auto entry = entries.entry(u"app"_s);

        EXPECT_EQ(entry ? installation(*entry).state : notInstalled, state) << keys.constData();
        if (complaint) {
            const auto opened = launcher.open(u"app"_s);
            EXPECT_THAT(opened ? "" : opened.error().toStdString(), MatchesRegex(complaint));
        }
    }
}

TEST_F(DesktopEntryTests, anEntryIsFoundByItsPathUnderTheUsersFolderThenTheSystemsAndReadAnew)
{
    qputenv("LANGUAGE", "de");
    install(u"changed"_s, "Icon=system", u"system"_s);
    install(u"changed"_s, "Icon=home\nName[de]=Geändert");
    install(u"deleted"_s, {}, u"system"_s);
    install(u"deleted"_s, "Hidden=true");

    EXPECT_EQ(entries.entry(u"changed"_s)->icon, "home");
    EXPECT_EQ(entries.entry(u"changed"_s)->name, u"Geändert"_s);
    qunsetenv("LANGUAGE");
    EXPECT_EQ(entries.entry(u"deleted"_s), std::nullopt);
    for (int round = 0; round < 3; ++round) {
        const quint64 before = entries.revision();
        install(u"vendor/tools/app"_s);
        EXPECT_TRUE(entries.entry(u"vendor-tools-app"_s));
        EXPECT_EQ(entries.all().size(), 2);
        EXPECT_NE(entries.revision(), before);
        remove(u"vendor/tools/app"_s);
        EXPECT_EQ(entries.entry(u"vendor-tools-app"_s), std::nullopt);
    }
    // A folder that has only just changed is read once more, later, and then no more.
    EXPECT_TRUE(eventually([&, last = quint64(0)]() mutable {
        return std::exchange(last, entries.revision()) == entries.revision();
    }));
    install(u"changed"_s, "Icon=anew");
    install(u"another"_s);
    EXPECT_EQ(entries.all().last().icon, "anew");
    for (const QString &id : {u""_s, u"unknown"_s, u"../applications/changed"_s, u"Changed"_s})
        EXPECT_EQ(entries.entry(id), std::nullopt) << qPrintable(id);
}

TEST_F(DesktopEntryTests, anApplicationIsDescribedInTheUsersLanguageWhereverItsEntryLies)
{
    qputenv("LANGUAGE", "de");
    install(u"web"_s, "GenericName=Browser\nComment=Reads\nKeywords=web;\nIcon=globe", u"system"_s);
    install(u"web"_s,
        "GenericName[de]=Netz\nGenericName=Net\nKeywords[de]=Welt;Netz;\nKeywords=world\nIcon=web");
    install(u"plain"_s, "GenericName=Application\nComment=Does things\nNoDisplay=true");
    install(u"sandboxed"_s, {}, u"home/flatpak/exports/share"_s);
    install(u"gone"_s, {}, u"system"_s);
    install(u"gone"_s, "Hidden=true");
    install(u"broken"_s, "Exec=no-such-program");
    install(u"link"_s, "Type=Link\nExec=true");
    QList<InstalledApplication> all;
    for (const DesktopEntry &entry : entries.all())
        all << installed(entry).value_or(InstalledApplication{});
    qunsetenv("LANGUAGE");
    all.removeAll(InstalledApplication{});

    const QString name = u"Application"_s;
    EXPECT_THAT(all,
        ElementsAre(InstalledApplication{u"plain"_s, name, u"Does things"_s, {}, {}, true},
            InstalledApplication{u"sandboxed"_s, name, {}, {}, {}, false},
            InstalledApplication{
                u"web"_s, name, u"Netz"_s, {u"Welt"_s, u"Netz"_s}, u"web"_s, false}));
}

TEST_F(DesktopEntryTests, anExecLineBecomesWordsWithItsFieldsFilledIn)
{
    DesktopEntry entry;
    entry.name = u"A Name"_s;
    entry.path = u"/the/file.desktop"_s;
    entry.icon = "picture";
    struct Case {
        QByteArray line;
        QByteArrayList words;
    };
    for (const auto &[line, words] : {Case{"app %f --new --file=%u", {"app", "--new", "--file="}},
             Case{"app %i %c %k", {"app", "--icon", "picture", "A Name", "/the/file.desktop"}},
             Case{"app 100%% %d %z %", {"app", "100%"}},
             Case{"\"/opt/An App/app\" \"\"", {"/opt/An App/app", ""}},
             Case{R"(app "\$HOME \`id\` \"q\" \\")", {"app", R"($HOME `id` "q" \)"}},
             Case{"app $HOME;id|`id`", {"app", "$HOME;id|`id`"}}, Case{"app 'a b", {}}}) {
        entry.exec = line;
        EXPECT_EQ(commandLine(entry), words) << line.constData();
    }
    for (const auto &[line, programs] :
        {Case{"env LANG=C X= app", {"app"}}, Case{"env", {}}, Case{"python3.11 -m app", {}},
            Case{"/usr/bin/flatpak run org.example.App", {}}, Case{"shotwell", {"shotwell"}}}) {
        entry.exec = line;
        EXPECT_EQ(ownPrograms(entry), programs) << line.constData();
    }
}

TEST_F(DesktopEntryTests, theUsersTerminalElseTheSystemsIsAskedInItsOwnWay)
{
    qputenv("PATH", path(u"bin"_s).toLocal8Bit());
    EXPECT_EQ(terminalCommandLine({"app"}), QByteArrayList());
    for (const auto &[terminal, variable, flag] : {std::tuple(u"xterm"_s, "no-such-terminal", "-e"),
             {u"xfce4-terminal"_s, "xfce4-terminal", "-x"}}) {
        std::ignore = addProgram(terminal);
        qputenv("TERMINAL", variable);
        EXPECT_EQ(terminalCommandLine({"app", "a b"}),
            (QByteArrayList{terminal.toLatin1(), flag, "app", "a b"}));
    }
    std::ignore = addProgram(u"kcmshell5"_s);
    EXPECT_EQ(autostartSettings({"KDE"}), (QByteArrayList{"kcmshell5", "kcm_autostart"}));
}

TEST_F(DesktopEntryTests, aLoginItemComesAndGoesButStaysOffWhereTheUserSwitchedItOff)
{
    using enum LoginItem;
    const QString file = u"autostart/app.corvane.Corvane.desktop"_s;
    const AutostartEntry entry(path(u"autostart"_s), u"/usr/bin/corvane"_s);
    for (const auto &[keys, before, after] :
        {std::tuple("[broken", absent, present), {"Hidden=true", awaitsApproval, awaitsApproval},
            {"X-GNOME-Autostart-enabled=false", awaitsApproval, awaitsApproval},
            {"Hidden=false\nX-GNOME-Autostart-enabled=true", present, present}}) {
        EXPECT_TRUE(entry.remove() && entry.remove());
        EXPECT_EQ(entry.state(), absent);
        write(file, QByteArray("[Desktop Entry]\nType=Application\nExec=other\n") + keys);
        EXPECT_EQ(entry.state(), before) << keys;

        EXPECT_TRUE(entry.add());

        EXPECT_EQ(entry.state(), after) << keys;
    }
    for (const QString &program : {u"/opt/\"it's\"/corvane"_s, u"/opt/$HOME `id`/corvane"_s,
             u"/opt/100%/%U/a\\nb\\\\c"_s, u"/opt/two\nlines\t"_s, u"/opt/Größe;#~&"_s}) {
        EXPECT_TRUE(AutostartEntry(path(u"home/applications"_s), program).add());
        const auto read = DesktopEntries().entry(u"app.corvane.Corvane"_s);
        ASSERT_TRUE(read) << qPrintable(program);
        EXPECT_EQ(ownPrograms(*read), QByteArrayList{program.toUtf8()});
    }
    EXPECT_TRUE(entry.remove());
    write(file + u"/in the way"_s, {});
    for (const auto &result : {entry.add(), entry.remove()})
        EXPECT_THAT(result ? "" : result.error().toStdString(),
            MatchesRegex("\"/.*desktop\" cannot be (written|removed): [^.]+\\."));
}

} // namespace corvane::freedesktop
