#include "AutostartEntry.h"
#include "CommandLines.h"
#include "DesktopEntries.h"
#include "EntryFolders.h"

#include <QtCore/QFile>

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

class AutostartEntryTests : public testing::Test
{
protected:
    EntryFolders folders;
    AutostartEntry entry{folders.path(u"settings/autostart"_s), u"/usr/bin/corvane"_s};

    void writeEntry(const QByteArray &keys) const
    {
        folders.writeFile(u"settings/autostart/app.corvane.Corvane.desktop"_s,
            "[Desktop Entry]\nType=Application\nName=Corvane\nExec=other\n" + keys);
    }
    [[nodiscard]] QByteArray contents() const
    {
        QFile file(entry.path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

TEST_F(AutostartEntryTests, comesAndGoesAndMayBeAbsentAlready)
{
    EXPECT_TRUE(entry.remove());
    EXPECT_EQ(entry.state(), LoginItem::absent);
    EXPECT_TRUE(entry.add());
    EXPECT_EQ(entry.state(), LoginItem::present);
    EXPECT_TRUE(entry.remove());
    EXPECT_FALSE(QFile::exists(entry.path()));
}

TEST_F(AutostartEntryTests, whatTheUserSwitchedOffStaysOff)
{
    for (const QByteArray off : {"Hidden=true", "X-GNOME-Autostart-enabled=false",
             "X-MATE-Autostart-enabled=false", "X-GNOME-Autostart-enabled=perhaps"}) {
        writeEntry(off);
        const QByteArray before = contents();

        EXPECT_TRUE(entry.add()) << off.constData();

        EXPECT_EQ(entry.state(), LoginItem::awaitsApproval) << off.constData();
        EXPECT_EQ(contents(), before);
    }
    EXPECT_TRUE(entry.remove());
    EXPECT_EQ(entry.state(), LoginItem::absent);
}

TEST_F(AutostartEntryTests, anEntryThatIsOnIsBroughtUpToDateAndABrokenOneReplaced)
{
    for (const QByteArray keys : {"Hidden=false", "X-GNOME-Autostart-enabled=true", "[broken"}) {
        writeEntry(keys);

        EXPECT_TRUE(entry.add());

        EXPECT_EQ(entry.state(), LoginItem::present) << keys.constData();
        EXPECT_TRUE(contents().contains("Exec=\"/usr/bin/corvane\"\n")) << keys.constData();
    }
}

TEST_F(AutostartEntryTests, everyPathIsStartedAsItIs)
{
    for (const QString &program : {u"/opt/two words/corvane"_s, u"/opt/\"it's\"/corvane"_s,
             u"/opt/$HOME `id`/corvane"_s, u"/opt/100%/%U/corvane"_s, u"/opt/a\\nb\\\\c"_s,
             u"/opt/two\nlines\t"_s, u"/opt/Größe;#~&"_s}) {
        const AutostartEntry odd(folders.path(u"home/applications"_s), program);
        EXPECT_TRUE(odd.add());

        DesktopEntries entries;
        const auto read = entries.entry(u"app.corvane.Corvane"_s);

        ASSERT_TRUE(read) << qPrintable(program);
        EXPECT_EQ(ownPrograms(*read), QByteArrayList{program.toUtf8()});
    }
}

TEST_F(AutostartEntryTests, whatCannotBeChangedIsToldInOneSentenceAndStays)
{
    folders.writeFile(u"file"_s, {});
    const AutostartEntry below(folders.path(u"file"_s), u"/usr/bin/corvane"_s);
    const AutostartEntry device(u"/proc"_s, u"/usr/bin/corvane"_s);
    folders.writeFile(u"settings/autostart/app.corvane.Corvane.desktop/in the way"_s, {});

    for (const auto &result : {below.add(), device.add(), entry.add(), entry.remove()}) {
        ASSERT_FALSE(result);
        EXPECT_THAT(result.error().toStdString(),
            testing::MatchesRegex("\"/.*desktop\" cannot be (written|removed): [^.]+\\."));
    }
    EXPECT_TRUE(QFile::exists(entry.path() + u"/in the way"_s));
}

TEST_F(AutostartEntryTests, theSettingsAreThoseOfTheDesktopThatAreInstalled)
{
    const QString path = qEnvironmentVariable("PATH");
    qputenv("PATH", folders.path(u"bin"_s).toLocal8Bit());
    std::ignore = folders.addProgram(u"kcmshell5"_s);
    std::ignore = folders.addProgram(u"gnome-session-properties"_s);

    EXPECT_EQ(autostartSettings({"KDE"}), (QByteArrayList{"kcmshell5", "kcm_autostart"}));
    EXPECT_EQ(autostartSettings({"ubuntu", "GNOME"}), QByteArrayList{"gnome-session-properties"});
    EXPECT_EQ(autostartSettings({"XFCE"}), QByteArrayList());
    qputenv("PATH", path.toLocal8Bit());
}

} // namespace corvane::freedesktop
