#include "AutostartEntry.h"
#include "CommandLines.h"
#include "DesktopEntries.h"
#include "EntryFolders.h"

#include <QtCore/QFile>

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

struct AutostartEntryTests : testing::Test {
    EntryFolders folders;
    AutostartEntry entry{folders.path(u"autostart"_s), u"/usr/bin/corvane"_s};
};

} // namespace

TEST_F(AutostartEntryTests, anEntryComesAndGoesButStaysOffWhereTheUserSwitchedItOff)
{
    using enum LoginItem;
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
        EXPECT_TRUE(entry.remove());
        EXPECT_TRUE(entry.remove());
        EXPECT_EQ(entry.state(), absent);
        folders.writeFile(u"autostart/app.corvane.Corvane.desktop"_s,
            "[Desktop Entry]\nType=Application\nName=Corvane\nExec=other\n" + keys);
        EXPECT_EQ(entry.state(), before) << keys.constData();

        EXPECT_TRUE(entry.add());

        EXPECT_EQ(entry.state(), after) << keys.constData();
        QFile file(entry.path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll().contains("\nExec=\"/usr/bin/corvane\"\n"), after == present);
    }
}

TEST_F(AutostartEntryTests, everyPathIsStartedAsItIs)
{
    for (const QString &program : {u"/opt/two words/corvane"_s, u"/opt/\"it's\"/corvane"_s,
             u"/opt/$HOME `id`/corvane"_s, u"/opt/100%/%U/corvane"_s, u"/opt/a\\nb\\\\c"_s,
             u"/opt/two\nlines\t"_s, u"/opt/Größe;#~&"_s}) {
        EXPECT_TRUE(AutostartEntry(folders.path(u"home/applications"_s), program).add());

        const auto read = DesktopEntries().entry(u"app.corvane.Corvane"_s);

        ASSERT_TRUE(read) << qPrintable(program);
        EXPECT_EQ(ownPrograms(*read), QByteArrayList{program.toUtf8()});
    }
}

TEST_F(AutostartEntryTests, whatCannotBeChangedIsToldInOneSentenceAndStays)
{
    const AutostartEntry readOnly(u"/proc"_s, u"/usr/bin/corvane"_s);
    folders.writeFile(u"autostart/app.corvane.Corvane.desktop/in the way"_s, {});

    for (const auto &result : {readOnly.add(), entry.add(), entry.remove()}) {
        ASSERT_FALSE(result);
        EXPECT_THAT(result.error().toStdString(),
            testing::MatchesRegex("\"/.*desktop\" cannot be (written|removed): [^.]+\\."));
    }
    EXPECT_TRUE(QFile::exists(entry.path() + u"/in the way"_s));
}

TEST_F(AutostartEntryTests, theSettingsAreThoseOfTheDesktopThatAreInstalled)
{
    const QByteArray systemPath = qgetenv("PATH");
    qputenv("PATH", folders.path(u"bin"_s).toLocal8Bit());
    std::ignore = folders.addProgram(u"kcmshell5"_s);
    std::ignore = folders.addProgram(u"gnome-session-properties"_s);

    EXPECT_EQ(autostartSettings({"KDE"}), (QByteArrayList{"kcmshell5", "kcm_autostart"}));
    EXPECT_EQ(autostartSettings({"ubuntu", "GNOME"}), QByteArrayList{"gnome-session-properties"});
    EXPECT_EQ(autostartSettings({"XFCE"}), QByteArrayList());
    qputenv("PATH", systemPath);
}

} // namespace corvane::freedesktop
