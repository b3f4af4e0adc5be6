#include "CommandLines.h"
#include "EntryFolders.h"

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

TEST(ExecLineTests, aLineBecomesWordsWithItsFieldsFilledIn)
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
}

TEST(ExecLineTests, eachTerminalIsAskedInItsOwnWay)
{
    const EntryFolders folders;
    struct Case {
        QString terminal;
        QByteArray flag;
    };
    for (const auto &[terminal, flag] : {Case{u"some-terminal"_s, "-e"},
             Case{u"gnome-terminal"_s, "--"}, Case{u"xfce4-terminal"_s, "-x"}}) {
        const QByteArray path = folders.addProgram(terminal).toLocal8Bit();
        qputenv("TERMINAL", path);

        EXPECT_EQ(terminalCommandLine({"app", "a b"}), (QByteArrayList{path, flag, "app", "a b"}));
    }
}

TEST(ExecLineTests, withoutTheUsersTerminalTheSystemsIsTaken)
{
    const EntryFolders folders;
    qputenv("PATH", folders.path(u"bin"_s).toLocal8Bit());
    qputenv("TERMINAL", "no-such-terminal");
    EXPECT_EQ(terminalCommandLine({"app"}), QByteArrayList());

    std::ignore = folders.addProgram(u"xterm"_s);
    EXPECT_EQ(terminalCommandLine({"app"}), (QByteArrayList{"xterm", "-e", "app"}));

    std::ignore = folders.addProgram(u"x-terminal-emulator"_s);
    EXPECT_EQ(terminalCommandLine({"app"}), (QByteArrayList{"x-terminal-emulator", "-e", "app"}));
}

TEST(ExecLineTests, interpretersAndSandboxesAreNobodysOwnProgram)
{
    struct Case {
        QByteArray line;
        QByteArrayList programs;
    };
    for (const auto &[line, programs] :
        {Case{"/opt/app %U", {"/opt/app"}}, Case{"env LANG=C X= app", {"app"}}, Case{"env", {}},
            Case{"python3.11 -m app", {}}, Case{"/usr/bin/flatpak run org.example.App", {}},
            Case{"sh -c app", {}}, Case{"shotwell", {"shotwell"}}}) {
        DesktopEntry entry;
        entry.exec = line;

        EXPECT_EQ(ownPrograms(entry), programs) << line.constData();
    }
}

} // namespace corvane::freedesktop
