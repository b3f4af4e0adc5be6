#include "DesktopEntries.h"
#include "EntryFolders.h"

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using State = Installation::State;

namespace {

struct InstallationCase {
    const char *name;
    QByteArray keys;
    State state;
};

class InstallationTests : public testing::TestWithParam<InstallationCase>
{
};

QByteArray application(const QByteArray &keys)
{
    return "Type=Application\nName=Named\n" + keys;
}

} // namespace

TEST_P(InstallationTests, followsFromTheEntry)
{
    const EntryFolders folders;
    folders.write(u"org.example.App"_s, GetParam().keys);
    DesktopEntries entries;

    const auto entry = entries.entry(u"org.example.App"_s);

    EXPECT_EQ(entry ? installation(*entry).state : State::notInstalled, GetParam().state);
    EXPECT_EQ(entry.has_value(), GetParam().state != State::notInstalled);
}

INSTANTIATE_TEST_SUITE_P(All, InstallationTests,
    testing::Values(InstallationCase{"ready", application("Exec=true %U"), State::ready},
        InstallationCase{"tried", application("Exec=true\nTryExec=true"), State::ready},
        InstallationCase{"activatable", application("DBusActivatable=true"), State::ready},
        InstallationCase{"noDisplay", application("Exec=true\nNoDisplay=true"), State::hidden},
        InstallationCase{
            "otherDesktops", application("Exec=true\nOnlyShowIn=Other;"), State::hidden},
        InstallationCase{
            "thisDesktop", application("Exec=true\nOnlyShowIn=Other;Generic;"), State::ready},
        InstallationCase{
            "notThisDesktop", application("Exec=true\nNotShowIn=Desk;"), State::hidden},
        InstallationCase{"firstDesktopDecides",
            application("Exec=true\nOnlyShowIn=Desk;\nNotShowIn=Generic;"), State::ready},
        InstallationCase{"deleted", application("Exec=true\nHidden=true"), State::notInstalled},
        InstallationCase{"noProgram", application("Icon=app"), State::broken},
        InstallationCase{"onlyAField", application("Exec=%U"), State::broken},
        InstallationCase{"unbalancedQuotes", application("Exec=true \"a"), State::broken},
        InstallationCase{"missingProgram", application("Exec=no-such-program"), State::broken},
        InstallationCase{
            "missingTried", application("Exec=true\nTryExec=no-such-program"), State::broken},
        InstallationCase{"tracksATriedProgramOfAnActivatableOne",
            application("DBusActivatable=true\nTryExec=/no/program"), State::broken},
        InstallationCase{"link", "Type=Link\nName=Named\nURL=https://example.org", State::broken},
        InstallationCase{"malformed", "Type=Application\nno equals sign", State::broken}),
    [](const auto &each) { return std::string(each.param.name); });

TEST(DesktopEntriesTests, anUnknownIdIsNotInstalledWhateverItLooksLike)
{
    const EntryFolders folders;
    folders.install(u"known"_s);
    DesktopEntries entries;

    for (const QString &id : {u""_s, u"unknown"_s, u"../applications/known"_s, u"Known"_s})
        EXPECT_EQ(entries.entry(id), std::nullopt) << qPrintable(id);
}

TEST(DesktopEntriesTests, nameIsInTheUsersLanguageAndNeverEmpty)
{
    const EntryFolders folders;
    qputenv("LANGUAGE", "de");
    folders.write(u"named"_s, "Type=Application\nExec=true\nName=Files\nName[de]=Dateien");
    folders.write(u"nameless"_s, "Type=Application\nExec=true");
    DesktopEntries entries;

    EXPECT_EQ(entries.entry(u"named"_s)->name, u"Dateien");
    EXPECT_EQ(entries.entry(u"nameless"_s)->name, u"nameless");
    qunsetenv("LANGUAGE");
}

TEST(DesktopEntriesTests, theUsersFolderGoesBeforeTheSystems)
{
    using enum EntryFolders::Place;
    const EntryFolders folders;
    folders.install(u"changed"_s, "Icon=system", system);
    folders.install(u"changed"_s, "Icon=home", home);
    folders.install(u"deleted"_s, {}, system);
    folders.install(u"deleted"_s, "Hidden=true", home);
    DesktopEntries entries;

    EXPECT_EQ(entries.entry(u"changed"_s)->icon, "home");
    EXPECT_EQ(entries.entry(u"deleted"_s), std::nullopt);
    EXPECT_EQ(entries.all().size(), 1);
}

TEST(DesktopEntriesTests, foldersWithinAreJoinedIntoTheId)
{
    const EntryFolders folders;
    folders.install(u"vendor/tools/app"_s);
    DesktopEntries entries;

    EXPECT_TRUE(entries.entry(u"vendor-tools-app"_s));
    folders.install(u"vendor/tools/second"_s);
    EXPECT_TRUE(entries.entry(u"vendor-tools-second"_s));
}

TEST(DesktopEntriesTests, whatIsInstalledOrRemovedLaterIsSeenAtOnce)
{
    const EntryFolders folders;
    DesktopEntries entries;
    EXPECT_EQ(entries.entry(u"late"_s), std::nullopt);

    for (int round = 0; round < 3; ++round) {
        const quint64 before = entries.revision();
        folders.install(u"late"_s);
        EXPECT_TRUE(entries.entry(u"late"_s));
        EXPECT_NE(entries.revision(), before);

        folders.remove(u"late"_s);
        EXPECT_EQ(entries.entry(u"late"_s), std::nullopt);
    }
}

TEST(DesktopEntriesTests, anEntryWrittenAnewInPlaceIsReadAnew)
{
    const EntryFolders folders;
    folders.install(u"app"_s, "Exec=no-such-program");
    DesktopEntries entries;
    ASSERT_EQ(installation(*entries.entry(u"app"_s)).state, State::broken);

    folders.install(u"app"_s, "Exec=true");

    EXPECT_EQ(installation(*entries.entry(u"app"_s)).state, State::ready);
}

TEST(DesktopEntriesTests, nothingIsReadAgainWhileNothingChanges)
{
    const EntryFolders folders;
    folders.install(u"app"_s);
    DesktopEntries entries;

    // A folder that has only just changed is read once more, later.
    EXPECT_TRUE(eventually([&, last = quint64(0)]() mutable {
        return std::exchange(last, entries.revision()) == entries.revision();
    }));
    EXPECT_TRUE(entries.entry(u"app"_s));
}

} // namespace corvane::freedesktop
