#include "../CorvaneCore/StoreFolder.h"
#include "BundleDraft.h"
#include "Installation.h"
#include "SealedFile.h"
#include "SelfTest.h"
#include "Unpacker.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mman.h>

namespace corvane {

using enum InstallProblem;
using testing::ElementsAre;

namespace {

template <typename T>
std::optional<InstallProblem> problem(const InstallResult<T> &result)
{
    return result ? std::nullopt : std::optional(result.error().problem);
}

Artefact artefactOf(const QByteArray &bytes)
{
    Artefact artefact;
    artefact.size = bytes.size();
    artefact.sha256 = sha256(bytes);
    return artefact;
}

/// What becomes of an archive in a folder of its own.
InstallResult<void> unpack(const QString &path, const QByteArray &bytes)
{
    SealedFile file(artefactOf(bytes));
    EXPECT_TRUE(file.write(bytes, 0) && file.seal());
    const FileDescriptor folder(::open(qPrintable(path), O_RDONLY | O_DIRECTORY));
    return Unpacker(folder.number(), 1024).unpack(*file.verified());
}

/// Where another process of this user finds what this one has open.
QByteArray pathOfOpen(const char *target)
{
    for (int number = 0; number < 1024; ++number) {
        const QByteArray path = "/proc/self/fd/" + QByteArray::number(number);
        char name[64]{};
        if (::readlink(path.constData(), name, sizeof name - 1) > 0
            && QByteArrayView(name).startsWith(target))
            return path;
    }
    return {};
}

} // namespace

TEST(SealedFileTests, onlyWhatWasSignedIsVerifiedAndNobodyChangesItAnyMore)
{
    const QByteArray bytes = "a release";
    const struct {
        const char *what;
        QByteArray received;
        std::function<void(int writer)> interfere = [](int) {}; ///< before the seal
        std::optional<InstallProblem> problem = notAsSigned;
    } rows[]{{.what = "the file", .received = bytes, .problem = {}},
        {.what = "a byte short", .received = bytes.chopped(1)},
        {"swapped", bytes, [](int writer) { EXPECT_EQ(::pwrite(writer, "x", 1, 0), 1); }},
        {"to be swapped through a mapping", bytes,
            [](int writer) {
                // Lasts until the test's process ends.
                EXPECT_NE(::mmap(nullptr, 1, PROT_WRITE, MAP_SHARED, writer, 0), MAP_FAILED);
            },
            cannotWrite}};
    for (const auto &[what, received, interfere, expected] : rows) {
        SCOPED_TRACE(what);
        SealedFile file(artefactOf(bytes));
        ASSERT_TRUE(file.write(received, 0));
        const FileDescriptor writer(::open(pathOfOpen("/memfd:update"), O_RDWR));
        ASSERT_TRUE(writer.isOpen());
        interfere(writer.number());

        EXPECT_EQ(problem(file.seal()), expected);

        EXPECT_EQ(file.verified().has_value(), !expected);
        if (expected)
            continue;
        EXPECT_EQ(::pwrite(writer.number(), "x", 1, 0), -1);
        EXPECT_EQ(::ftruncate(writer.number(), 0), -1);
        EXPECT_FALSE(file.write("x", bytes.size())) << "a byte long";
    }
}

TEST(UnpackerTests, filesAndFoldersComeOutWithTheirModesWhateverTheUmask)
{
    const StoreFolder folder;
    const mode_t before = ::umask(077);

    const auto result =
        unpack(folder.path(), archiveOf({binFolder, program, {.path = "bin/note"}}));

    ::umask(before);
    EXPECT_EQ(problem(result), std::nullopt);
    EXPECT_EQ(folder.read(u"bin/corvane"_s), "program");
    EXPECT_EQ(folder.mode(u"bin"_s), 0755u);
    EXPECT_EQ(folder.mode(u"bin/corvane"_s), 0755u);
    EXPECT_EQ(folder.mode(u"bin/note"_s), 0644u);
}

TEST(UnpackerTests, whatIsNoPlainFileOrFolderIsRefusedAndNothingIsWrittenElsewhere)
{
    const auto named = [](const char *path) {
        return QList<EntryDraft>{binFolder, {.path = path, .content = "x"}};
    };
    const struct {
        const char *what;
        QList<EntryDraft> entries;
        InstallProblem problem = entryRefused;
    } rows[]{{"above", named("../out")}, {"above, by the way", named("bin/../../out")},
        {"absolute", named("/tmp/out")}, {"here", named("./out")},
        {"two slashes", named("bin//out")}, {"a control character", named("o\nut")},
        {"a long name", named(QByteArray(129, 'x'))}, {"in no folder", named("lib/out")},
        {"beneath a file", {binFolder, program, {.path = "bin/corvane/out"}}},
        {"twice", {binFolder, program, program}}, {"a folder twice", {binFolder, binFolder}},
        {"a link", {{.path = "out", .type = AE_IFLNK, .symlink = "/tmp"}}},
        {"a second name", {binFolder, program, {.path = "out", .hardlink = "bin/corvane"}}},
        {"a pipe", {{.path = "out", .type = AE_IFIFO}}},
        {"an absolute folder", {{.path = "/tmp/out", .mode = 0755, .type = AE_IFDIR}}},
        {"beneath a link that is there", named("link/out")},
        {"setuid", {{.path = "out", .mode = 04755}}},
        {"a folder of others", {{.path = "bin", .mode = 0777, .type = AE_IFDIR}}},
        {"too long in all",
            {{.path = "a", .content = QByteArray(1000, 'x')},
                {.path = "b", .content = QByteArray(25, 'x')}},
            tooMuch}};
    for (const auto &[what, entries, expected] : rows) {
        SCOPED_TRACE(what);
        const StoreFolder outer;
        ASSERT_TRUE(QDir().mkpath(outer.path(u"staging"_s)));
        ASSERT_TRUE(QFile::link(u".."_s, outer.path(u"staging/link"_s)));

        EXPECT_EQ(problem(unpack(outer.path(u"staging"_s), archiveOf(entries))), expected);

        EXPECT_THAT(outer.names(), ElementsAre(u"staging"_s));
    }
}

TEST(UnpackerTests, whatIsNoWholeArchiveOfOurKindIsRefused)
{
    const QList<EntryDraft> good{binFolder, program};
    QList<EntryDraft> many;
    for (int i = 0; i <= Unpacker::mostEntries; ++i)
        many << EntryDraft{.path = QByteArray::number(i)};
    const struct {
        const char *what;
        QByteArray bytes;
        InstallProblem problem = archiveNotUnderstood;
    } rows[]{{"half", archiveOf(good).first(100)},
        {"packed otherwise", archiveOf(good, archive_write_add_filter_gzip)},
        {"a name without an end", archiveOf({{.path = QByteArray(2LL * 1024 * 1024, 'x')}})},
        {"too many entries", archiveOf(many), tooMuch}};
    for (const auto &[what, bytes, expected] : rows)
        EXPECT_EQ(problem(unpack(StoreFolder().path(), bytes)), expected) << what;
}

TEST(ManifestTests, theTreeIsExactlyWhatItsManifestLists)
{
    using Change = std::function<void(const QDir &tree)>;
    const QByteArray good = manifestLine("bin/a", "one") + manifestLine("c", "two");
    const std::tuple<const char *, QByteArray, InstallProblem, Change> rows[]{
        {"as listed, which only does not run", good, doesNotRun, {}},
        {"a file more", manifestLine("c", "two"), treeDiffers, {}},
        {"a file less", good + manifestLine("d", ""), treeDiffers, {}},
        {"another content", manifestLine("bin/a", "One") + manifestLine("c", "two"), treeDiffers,
            {}},
        {"an empty folder", good, treeDiffers, [](QDir tree) { tree.mkdir(u"lib"_s); }},
        {"a link", good, treeDiffers,
            [](QDir tree) {
                tree.remove(u"c"_s);
                QFile::link(u"bin/a"_s, tree.filePath(u"c"_s));
            }},
        {"a second name", good, treeDiffers,
            [](const QDir &tree) {
                ::link(qPrintable(tree.filePath(u"c"_s)), qPrintable(tree.filePath(u"../c"_s)));
            }},
        {"no manifest", good, treeDiffers, [](QDir tree) { tree.remove(u"MANIFEST"_s); }},
        {"cut", good.chopped(1), manifestNotUnderstood, {}},
        {"twice", good + manifestLine("c", "two"), manifestNotUnderstood, {}},
        {"above", manifestLine("../a", "one"), manifestNotUnderstood, {}},
        {"a sign", "c +3 " + sha256("two").toHex() + '\n', manifestNotUnderstood, {}},
        {"half a hash", "c 3 abcd\n", manifestNotUnderstood, {}},
    };
    for (const auto &[what, manifest, expected, change] : rows) {
        SCOPED_TRACE(what);
        const StoreFolder home;
        auto folder = InstallFolder::open(home.path());
        const auto staging = folder->stage(1);
        home.write(u"staging/bin/a"_s, "one");
        home.write(u"staging/c"_s, "two");
        home.write(u"staging/MANIFEST"_s, manifest);
        if (change)
            change(QDir(folder->stagingPath()));

        EXPECT_EQ(problem(tryStaged(*folder, *staging, 1)), expected);
    }
}

TEST(SelfTestTests, onlyAProgramThatSaysItsBuildAndEndsWellInTimeIsWell)
{
    const std::tuple<const char *, std::optional<InstallProblem>, std::chrono::milliseconds> rows[]{
        {"[ $1 = --self-test ] && echo 7", {}, 10s}, {"echo 7; exit 1", doesNotRun, 10s},
        {"echo 7; kill -9 $$", doesNotRun, 10s}, {"echo 7; exec sleep 60", doesNotRun, 200ms}};
    for (const auto &[script, expected, patience] : rows) {
        // Programs may not run from every memory.
        const StoreFolder folder{.folder = QTemporaryDir()};
        const QString path = folder.path(u"corvane"_s);
        folder.write(u"corvane"_s, QByteArray("#!/bin/sh\n") + script + '\n');
        ::chmod(qPrintable(path), 0755);

        EXPECT_EQ(problem(runSelfTest(path, 7, patience)), expected) << script;
    }
}

TEST(InstallFolderTests, whatRunsIsNotReplacedAndWhatIsNotOursStays)
{
    const StoreFolder home;
    auto folder = InstallFolder::open(home.path(u"corvane"_s));
    ASSERT_TRUE(folder->stage(1) && folder->adopt(1) && folder->makeCurrent(1));
    home.write(u"corvane/versions/1/build"_s, "1");
    home.write(u"corvane/versions/mine/file"_s, {});

    ASSERT_TRUE(folder->stage(1));
    EXPECT_EQ(problem(folder->adopt(1)), cannotWrite);
    EXPECT_FALSE(folder->makeCurrent(2)) << "there is none";
    EXPECT_TRUE(folder->keepOnly({}));

    EXPECT_EQ(home.read(u"corvane/current/build"_s), "1");
    EXPECT_TRUE(home.read(u"corvane/versions/mine/file"_s));
    EXPECT_EQ(problem(folder->stage(qint64(1) << 60)), noSpace);
    EXPECT_EQ(problem(InstallFolder::open(home.path(u"corvane"_s))), busy);
}

TEST(InstallFolderTests, aFolderThatOthersMayChangeIsRefusedAndSoIsRoot)
{
    const StoreFolder home;
    const QString path = home.path(u"corvane"_s);
    ASSERT_TRUE(InstallFolder::open(path));
    ASSERT_TRUE(QFile::link(path, home.path(u"link"_s)));
    EXPECT_EQ(problem(InstallFolder::open(home.path(u"link"_s))), folderNotOurs);

    ::chmod(qPrintable(path), 0777);

    EXPECT_EQ(problem(InstallFolder::open(path)), folderNotOurs);
    EXPECT_EQ(problem(InstallFolder::checkUser(0, 0)), isRoot);
    EXPECT_EQ(problem(InstallFolder::checkUser(1000, 0)), isRoot);
    EXPECT_TRUE(InstallFolder::checkUser(1000, 1000));
}

} // namespace corvane
