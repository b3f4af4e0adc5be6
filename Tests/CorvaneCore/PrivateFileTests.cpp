#include "PrivateFile.h"
#include "StoreFolder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/stat.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

class PrivateFileTests : public testing::Test
{
protected:
    QString replace(const QString &name, const QByteArray &content) const
    {
        const auto result = PrivateFile::replace(folder.path(name), content);
        return result ? u"done"_s : result.error();
    }

    void link(const char *target, const QString &name) const
    {
        ASSERT_EQ(::symlink(target, folder.encoded(name).constData()), 0);
    }

    StoreFolder folder;
};

/// What stands in the file's place, and what both operations say to it.
struct Obstacle {
    const char *name;
    void (*place)(const StoreFolder &folder, const QByteArray &path);
    const char *sentence;
};

class PrivateFileObstacleTests : public testing::TestWithParam<Obstacle>
{
};

} // namespace

TEST_F(PrivateFileTests, newFilesAndFoldersAreForTheUserAlone)
{
    const mode_t before = ::umask(0);

    const QString result = replace(u"a/b/file"_s, "content");

    ::umask(before);
    EXPECT_EQ(result, u"done"_s);
    EXPECT_EQ(folder.read(u"a/b/file"_s), "content");
    EXPECT_EQ(folder.mode(u"a"_s), 0700u);
    EXPECT_EQ(folder.mode(u"a/b"_s), 0700u);
    EXPECT_EQ(folder.mode(u"a/b/file"_s), 0600u);
}

TEST_F(PrivateFileTests, aFileKeepsItsMode)
{
    folder.write(u"file"_s, "old");
    ::chmod(folder.encoded(u"file"_s).constData(), 0444);

    EXPECT_EQ(replace(u"file"_s, "new"), u"done"_s);

    EXPECT_EQ(folder.read(u"file"_s), "new");
    EXPECT_EQ(folder.mode(u"file"_s), 0444u);
}

TEST_F(PrivateFileTests, aLinkStaysAndTheFileAtItsEndIsReplaced)
{
    EXPECT_TRUE(PrivateFile::makeFolder(folder.path(u"dotfiles"_s)));
    folder.write(u"dotfiles/real"_s, "old");
    ::chmod(folder.encoded(u"dotfiles/real"_s).constData(), 0640);
    link("dotfiles/second", u"first"_s);
    link("real", u"dotfiles/second"_s);

    EXPECT_EQ(replace(u"first"_s, "new"), u"done"_s);

    EXPECT_TRUE(QFileInfo(folder.path(u"first"_s)).isSymbolicLink());
    EXPECT_TRUE(QFileInfo(folder.path(u"dotfiles/second"_s)).isSymbolicLink());
    EXPECT_EQ(folder.read(u"dotfiles/real"_s), "new");
    EXPECT_EQ(folder.mode(u"dotfiles/real"_s), 0640u);
    EXPECT_EQ(folder.names(), (QStringList{u"dotfiles"_s, u"first"_s}));
}

TEST_F(PrivateFileTests, aLinkToNothingGetsItsFile)
{
    link("later/real", u"link"_s);

    EXPECT_EQ(replace(u"link"_s, "new"), u"done"_s);

    EXPECT_TRUE(QFileInfo(folder.path(u"link"_s)).isSymbolicLink());
    EXPECT_EQ(folder.read(u"later/real"_s), "new");
}

TEST_F(PrivateFileTests, whatACrashLeftIsUsedUp)
{
    folder.write(u".file.new"_s, QByteArray(1000, 'x'));

    EXPECT_EQ(replace(u"file"_s, "new"), u"done"_s);

    EXPECT_EQ(folder.names(), QStringList{u"file"_s});
    EXPECT_EQ(folder.read(u"file"_s), "new");
    EXPECT_EQ(folder.mode(u"file"_s), 0600u);
}

TEST_P(PrivateFileObstacleTests, isLeftAloneAndNamed)
{
    const StoreFolder folder;
    GetParam().place(folder, folder.encoded(u"file"_s));
    const QStringList before = folder.names();

    const auto read = PrivateFile::read(folder.path(u"file"_s));
    const auto replaced = PrivateFile::replace(folder.path(u"file"_s), "new");

    ASSERT_FALSE(read);
    ASSERT_FALSE(replaced);
    EXPECT_EQ(read.error(), QString::fromUtf8(GetParam().sentence));
    EXPECT_EQ(replaced.error(), read.error());
    EXPECT_EQ(folder.names(), before);
}

INSTANTIATE_TEST_SUITE_P(Obstacles, PrivateFileObstacleTests,
    testing::Values(
        Obstacle{"Folder", [](const StoreFolder &, const QByteArray &path) { ::mkdir(path, 0700); },
            "There is a folder in its place."},
        Obstacle{"Pipe", [](const StoreFolder &, const QByteArray &path) { ::mkfifo(path, 0600); },
            "It is not a regular file."},
        Obstacle{"Device",
            [](const StoreFolder &, const QByteArray &path) {
                static_cast<void>(::symlink("/dev/null", path));
            },
            "It is not a regular file."},
        Obstacle{"LinkToItself",
            [](const StoreFolder &, const QByteArray &path) {
                static_cast<void>(::symlink("file", path));
            },
            "It is a link that leads nowhere."}),
    [](const auto &each) { return each.param.name; });

TEST_F(PrivateFileTests, aFileInPlaceOfTheFolderIsNamed)
{
    folder.write(u"file"_s, "old");

    const auto read = PrivateFile::read(folder.path(u"file/inner"_s));

    EXPECT_EQ(replace(u"file/inner"_s, "new"), u"Its folder is not a folder."_s);
    EXPECT_EQ(read.error(), u"Its folder is not a folder."_s);
}

TEST_F(PrivateFileTests, aFileThatNobodyCanHaveWrittenByHandIsNotRead)
{
    folder.write(u"file"_s, {});
    ASSERT_TRUE(QFile::resize(folder.path(u"file"_s), 200'000'000));

    EXPECT_EQ(PrivateFile::read(folder.path(u"file"_s)).error(), u"It is larger than 16 MiB."_s);
}

TEST_F(PrivateFileTests, noFileIsNoError)
{
    for (const QString &name : {u"none"_s, u"no/such/folder"_s}) {
        const auto read = PrivateFile::read(folder.path(name));
        ASSERT_TRUE(read);
        EXPECT_FALSE(read->has_value());
    }
}

TEST_F(PrivateFileTests, theOldContentOutlivesAFullDisk)
{
    folder.write(u"file"_s, "old");
    ASSERT_TRUE(PrivateFile::makeFolder(folder.path(u"disk"_s)));
    const QByteArray disk = folder.encoded(u"disk"_s);
    const bool isMounted = ::mount("tmpfs", disk, "tmpfs", 0, "size=16k") == 0;
    if (isMounted)
        folder.write(u"disk/file"_s, "old");

    const QString full = isMounted ? replace(u"disk/file"_s, QByteArray(100'000, 'x')) : QString();
    const QStringList left = QDir(folder.path(u"disk"_s)).entryList(QDir::Files | QDir::Hidden);
    const auto kept = folder.read(u"disk/file"_s);
    const FileSizeLimit limit(1000);
    const QString limited = replace(u"file"_s, QByteArray(100'000, 'x'));

    if (isMounted) {
        ::umount(disk);
        EXPECT_EQ(full, u"The disk is full."_s);
        EXPECT_EQ(left, QStringList{u"file"_s});
        EXPECT_EQ(kept, "old");
    }
    EXPECT_EQ(limited, u"The file would become too large."_s);
    EXPECT_EQ(folder.read(u"file"_s), "old");
    EXPECT_EQ(folder.names(), (QStringList{u"disk"_s, u"file"_s}));
}

TEST_F(PrivateFileTests, withoutThePermissionNothingHappens)
{
    folder.write(u"file"_s, "old");
    ::chmod(folder.encoded(u"file"_s).constData(), 0200);
    const WithoutPrivileges user(folder);
    ::chmod(folder.path().toUtf8().constData(), 0500);

    const QString replaced = replace(u"file"_s, "new");
    const QString made = replace(u"inner/file"_s, "new");
    const auto read = PrivateFile::read(folder.path(u"file"_s));

    ::chmod(folder.path().toUtf8().constData(), 0700);
    EXPECT_EQ(replaced, u"Permission was denied."_s);
    EXPECT_EQ(made, u"Permission was denied."_s);
    EXPECT_EQ(read.error(), u"Permission was denied."_s);
    EXPECT_EQ(folder.names(), QStringList{u"file"_s});
}

} // namespace corvane
