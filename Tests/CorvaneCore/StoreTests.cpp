#include "DataFolder.h"
#include "LayoutStore.h"
#include "PrivateFile.h"
#include "SettingsStore.h"
#include "StoredJson.h"
#include "StoreFolder.h"

#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>

#include <gtest/gtest.h>

namespace corvane {

namespace {

/// A file that is no document at all.
struct DamagedFile {
    QByteArray content;
    const char *command = ""; ///< what became of the file $1
    const char *reason = "It is not JSON from its byte ";
    bool isKept = true;
    bool isSaved = true; ///< the next change
};

/// What is said of one file of them, and what became of it and of its copy.
void expectKept(const StoreFolder &folder, const DamagedFile &damage,
    const std::optional<StoreProblem> &problem, const expected<void, QString> &saved)
{
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->reason.startsWith(QLatin1StringView(damage.reason)));
    EXPECT_EQ(problem->kept.has_value(), damage.isKept);
    EXPECT_EQ(saved.has_value(), damage.isSaved);
    EXPECT_TRUE(saved || saved.error() == problem->reason);
    if (!problem->kept)
        return;
    const QString copy = problem->kept->fileName();
    const QRegularExpression name(u"^%1\\.unreadable-\\d{8}-\\d{6}$"_s.arg(problem->file));
    EXPECT_TRUE(copy.contains(name)) << copy.toStdString();
    EXPECT_TRUE(*damage.command || folder.read(copy) == damage.content);
}

} // namespace

TEST(StoreTests, whatIsNoDocumentGivesDefaultsAndOneCopyASecondOutlivesTheNextSave)
{
    const DamagedFile files[]{
        {""},
        {R"({"gap": 5, "cyc)"},
        {QByteArray(1'000'000, '[')},
        {"{}", "truncate -s 200M $1", "It is larger than 16 MiB."},
        {"{}", "rm $1 && mkdir $1", "There is a folder in its place.", false, false},
        {"{}", "rm $1 && mkfifo $1", "It is not a regular file.", true, false},
        {"{}", "rm $1 && ln -s $1 $1", "It is a link that leads nowhere.", true, false},
    };
    for (const DamagedFile &damage : files) {
        SCOPED_TRACE(damage.content.left(20).toStdString() + damage.command);
        const StoreFolder folder;
        for (const QString &name : {u"settings.json"_s, u"layouts.json"_s}) {
            folder.write(name, damage.content);
            QProcess::execute(
                u"sh"_s, {u"-c"_s, QString::fromUtf8(damage.command), u"sh"_s, folder.path(name)});
        }

        const SettingsStore settings(folder.path());
        const LayoutStore layouts(folder.path());

        const auto loadedSettings = settings.loadKeepingUnreadable();
        const auto loadedLayouts = layouts.loadKeepingUnreadable();

        EXPECT_EQ(loadedSettings.settings, Settings{});
        EXPECT_TRUE(loadedLayouts.layouts.isEmpty());
        expectKept(folder, damage, loadedSettings.problem, settings.save({}));
        expectKept(folder, damage, loadedLayouts.problem, layouts.save({}));
    }
}

TEST(StoreTests, aLongListOfLayoutsReadsAsAShortOne)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path());
    const QString file = u"layouts.json"_s;
    QList<WindowLayout> layouts(4000);
    for (WindowLayout &layout : layouts)
        layout = {.id = QUuid::createUuid(), .name = u"\u2014 ] and , \" in\n"_s};
    ASSERT_TRUE(store.save(layouts));
    EXPECT_EQ(store.loadKeepingUnreadable().layouts, layouts);

    const QByteArray whole = *folder.read(file);
    ASSERT_TRUE(halves(whole));
    for (const qsizetype from : {qsizetype(0), whole.size() * 3 / 4}) {
        const qsizetype behindElement = whole.indexOf("\n    },", from) + 7;
        for (const char *damage : {",", "]", " 5,"}) {
            folder.write(file, QByteArray(whole).insert(behindElement, damage));
            const auto loaded = store.loadKeepingUnreadable();
            EXPECT_TRUE(loaded.problem) << damage << from;
            EXPECT_EQ(loaded.layouts, damage[0] == ' ' ? layouts : QList<WindowLayout>());
        }
    }
}

TEST(StoreTests, copiesMadeByHandGetIdsOfTheirOwnTheSameAtEveryLoad)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path());
    const WindowLayout original{.name = u"Desk"_s};
    ASSERT_TRUE(store.save({original, original}));
    const WindowLayout copy = store.loadKeepingUnreadable().layouts.last();
    ASSERT_TRUE(store.save({original, original, copy, original}));

    const QList<WindowLayout> layouts = store.loadKeepingUnreadable().layouts;

    EXPECT_EQ(QSet({layouts[0].id, layouts[1].id, layouts[2].id, layouts[3].id}).size(), 4);
    EXPECT_EQ(layouts[0], original);
    EXPECT_EQ(layouts[2], copy);
    EXPECT_EQ(store.loadKeepingUnreadable().layouts, layouts);
}

TEST(StoreTests, theDataFolderIsTheUsersOwnWhateverTheWorkingDirectory)
{
    const QString home = QDir::homePath() + u"/.local/share/Corvane"_s;
    for (const auto &[variable, folder] :
        {std::pair("/data", u"/data/Corvane"_s), {"data", home}, {"", home}}) {
        const pid_t process = startProcess([&] {
            qputenv("XDG_DATA_HOME", variable);
            ::_exit(dataFolder() == folder ? 0 : 1);
        });
        EXPECT_TRUE(waitFor(process)) << variable;
    }
}

TEST(PrivateFileTests, newFilesAndFoldersAreForTheUserAloneAndWhatACrashLeftIsUsedUp)
{
    const StoreFolder folder;
    folder.write(u".file.new"_s, QByteArray(1000, 'x'));
    const mode_t before = ::umask(0);

    const auto file = PrivateFile::replace(folder.path(u"file"_s), "new");
    const auto inner = PrivateFile::replace(folder.path(u"a/b/file"_s), "new");

    ::umask(before);
    EXPECT_TRUE(file && inner);
    EXPECT_EQ(folder.names(), (QStringList{u"a"_s, u"file"_s}));
    for (const QString &name : {u"file"_s, u"a/b/file"_s}) {
        EXPECT_EQ(folder.read(name), "new");
        EXPECT_EQ(folder.mode(name), 0600u);
    }
    EXPECT_EQ(folder.mode(u"a"_s) | folder.mode(u"a/b"_s), 0700u);
}

TEST(PrivateFileTests, linksStayAndTheFileAtTheirEndIsReplacedWithItsMode)
{
    const StoreFolder folder;
    EXPECT_TRUE(PrivateFile::makeFolder(folder.path(u"dotfiles"_s)));
    folder.write(u"dotfiles/real"_s, "old");
    QFile::setPermissions(folder.path(u"dotfiles/real"_s), QFile::ReadOwner | QFile::ReadGroup);
    QFile::link(u"dotfiles/second"_s, folder.path(u"first"_s));
    QFile::link(u"real"_s, folder.path(u"dotfiles/second"_s));
    QFile::link(u"later/real"_s, folder.path(u"toNothing"_s));

    for (const QString &link : {u"first"_s, u"toNothing"_s}) {
        EXPECT_TRUE(PrivateFile::replace(folder.path(link), "new"));
        EXPECT_TRUE(QFileInfo(folder.path(link)).isSymbolicLink());
    }

    EXPECT_TRUE(QFileInfo(folder.path(u"dotfiles/second"_s)).isSymbolicLink());
    EXPECT_EQ(folder.read(u"dotfiles/real"_s), "new");
    EXPECT_EQ(folder.mode(u"dotfiles/real"_s), 0440u);
    EXPECT_EQ(folder.read(u"later/real"_s), "new");
}

TEST(PrivateFileTests, theOldContentOutlivesADiskThatTakesNoMore)
{
    const StoreFolder folder;
    folder.write(u"file"_s, "old");

    limitFileSize(1000);
    const auto replaced = PrivateFile::replace(folder.path(u"file"_s), QByteArray(100'000, 'x'));
    limitFileSize(RLIM_INFINITY);

    ASSERT_FALSE(replaced);
    EXPECT_EQ(replaced.error(), u"The file would become too large."_s);
    EXPECT_EQ(folder.read(u"file"_s), "old");
    EXPECT_EQ(folder.names(), QStringList{u"file"_s});
}

} // namespace corvane
