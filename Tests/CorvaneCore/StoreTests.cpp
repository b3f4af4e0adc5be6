#include "DataFolder.h"
#include "LayoutStore.h"
#include "SettingsStore.h"
#include "StoredJson.h"
#include "StoreFolder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

const QDateTime created = QDateTime::fromString(u"2026-01-02T03:04:05Z"_s, Qt::ISODate);

Settings changedSettings()
{
    Settings settings;
    settings.gap = 0.1;
    settings.appearance = Appearance::light;
    settings.shortcuts.remove(Placement::original);
    settings.customShortcuts = ShortcutMap{{Placement::center, KeyCombo(8, KeyCombo::command)}};
    return settings;
}

WindowLayout deskLayout()
{
    return {.name = u"Desk \u2014 \U0001F5A5 \"quoted\"\n"_s,
        .displays = {{u"Monitor"_s, 2560, 1440}},
        .panes = {Pane{.rect = {0, 0, 1.0 / 3, 1},
                      .app = AppRef{u"org.example.Mail"_s, u"Mail"_s},
                      .titleContains = u"Inbox"_s,
                      .launch = false,
                      .stack = 2},
            Pane{.rect = {1.0 / 3, 0, 2.0 / 3, 1}}},
        .applyOnConnect = true,
        .shortcut = KeyCombo(18, KeyCombo::control),
        .created = created};
}

/// A file that is no document at all.
struct DamagedFile {
    const char *name;
    std::function<void(const StoreFolder &folder, const QString &file)> make;
    bool isKept = true;
};

DamagedFile withContent(const char *name, const QByteArray &content)
{
    return {name,
        [content](const StoreFolder &folder, const QString &file) { folder.write(file, content); }};
}

QList<DamagedFile> damagedFiles()
{
    return {
        withContent("Empty", {}),
        withContent("CutOff", R"({"gap": 5, "cyc)"),
        withContent("InvalidUtf8", "{\"preset\": \"\xff\xfe\"}"),
        withContent("ZeroBytes", QByteArray(1000, '\0')),
        withContent("ZeroBytesBehind", QByteArray("{}\0\0", 4)),
        withContent("DeepNesting", QByteArray(1'000'000, '[')),
        withContent("DeepObjects", QByteArray(R"({"gap":)").repeated(100'000)),
        withContent("TwoDocuments", "{}{}"),
        withContent("UnquotedKey", "{gap: 5}"),
        withContent("NumberAlone", "5"),
        withContent("WordAlone", "NaN"),
        {"Huge",
            [](const StoreFolder &folder, const QString &file) {
                folder.write(file, "{}");
                QFile::resize(folder.path(file), 200'000'000);
            }},
        {"Unreadable",
            [](const StoreFolder &folder, const QString &file) {
                folder.write(file, "{}");
                ::chmod(folder.encoded(file).constData(), 0);
            }},
        {"Folder",
            [](const StoreFolder &folder, const QString &file) { QDir(folder.path()).mkdir(file); },
            false},
    };
}

class DamagedFileTests : public testing::TestWithParam<DamagedFile>
{
protected:
    void expectKept(const std::optional<StoreProblem> &problem, const QString &file) const
    {
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->file, file);
        EXPECT_TRUE(problem->reason.endsWith(u'.')) << problem->reason.toStdString();
        ASSERT_EQ(problem->kept.has_value(), GetParam().isKept);
        if (!GetParam().isKept)
            return;
        EXPECT_TRUE(QRegularExpression(u"^"_s + file + u"\\.unreadable-\\d{8}-\\d{6}$"_s)
                        .match(problem->kept->fileName())
                        .hasMatch());
        const QFileInfo original(folder.path(file));
        const QFileInfo copy(problem->kept->toLocalFile());
        EXPECT_EQ(copy.size(), original.size());
        if (original.isReadable() && original.size() < 10'000'000) {
            EXPECT_EQ(folder.read(copy.fileName()), folder.read(file));
        }
    }

    StoreFolder folder;
};

KeyCombo anyCombo()
{
    KeyCombo combo(*rc::gen::arbitrary<quint16>(), 0);
    combo.modifiers = *rc::gen::arbitrary<quint64>() >> 1;
    return combo;
}

ShortcutMap anyShortcuts()
{
    ShortcutMap shortcuts;
    for (const Placement placement : allPlacements()) {
        if (*rc::gen::arbitrary<bool>())
            shortcuts.insert(placement, anyCombo());
    }
    return shortcuts;
}

QString anyText()
{
    const auto units = *rc::gen::arbitrary<std::vector<char16_t>>();
    return QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
}

double anyNumber()
{
    return *rc::gen::suchThat(
        rc::gen::arbitrary<double>(), [](double number) { return std::isfinite(number); });
}

} // namespace

TEST_P(DamagedFileTests, givesDefaultsAndIsKept)
{
    GetParam().make(folder, u"settings.json"_s);
    GetParam().make(folder, u"layouts.json"_s);
    const WithoutPrivileges user(folder);

    const auto settings = SettingsStore(folder.path()).loadKeepingUnreadable();
    const auto layouts = LayoutStore(folder.path()).loadKeepingUnreadable();

    EXPECT_EQ(settings.settings, Settings{});
    EXPECT_EQ(layouts.layouts, QList<WindowLayout>());
    expectKept(settings.problem, u"settings.json"_s);
    expectKept(layouts.problem, u"layouts.json"_s);
}

TEST_P(DamagedFileTests, staysKeptThroughTheNextSave)
{
    GetParam().make(folder, u"settings.json"_s);
    const SettingsStore store(folder.path());
    const WithoutPrivileges user(folder);
    const qint64 size = QFileInfo(folder.path(u"settings.json"_s)).size();
    const auto problem = store.loadKeepingUnreadable().problem;

    const auto saved = store.save(changedSettings());

    EXPECT_EQ(saved.has_value(), GetParam().isKept);
    if (problem->kept) {
        EXPECT_EQ(QFileInfo(problem->kept->toLocalFile()).size(), size);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, DamagedFileTests, testing::ValuesIn(damagedFiles()),
    [](const auto &each) { return each.param.name; });

TEST(DataFolderTests, isTheUsersOwnWhateverTheWorkingDirectory)
{
    const QString home = QDir::homePath() + u"/.local/share/Corvane"_s;
    const std::pair<const char *, QString> examples[]{
        {"/data", u"/data/Corvane"_s}, {"data", home}, {"", home}};

    for (const auto &[variable, folder] : examples) {
        const pid_t process = startProcess([&] {
            qputenv("XDG_DATA_HOME", variable);
            ::_exit(dataFolder() == folder ? 0 : 1);
        });
        EXPECT_TRUE(waitFor(process)) << variable;
    }
}

TEST(SettingsStoreTests, noFileIsTheDefaultsAndLeavesTheFolderAlone)
{
    const StoreFolder folder;

    const auto loaded = SettingsStore(folder.path()).loadKeepingUnreadable();

    EXPECT_EQ(loaded.settings, Settings{});
    EXPECT_FALSE(loaded.problem);
    EXPECT_TRUE(folder.names().isEmpty());
}

TEST(SettingsStoreTests, aDamagedFieldKeepsACopyOncePerSecond)
{
    const StoreFolder folder;
    folder.write(u"settings.json"_s, R"({"gap": "wide", "sizeStep": 20})");
    const QUrl url = SettingsStore(folder.path()).url();
    const QDateTime time(QDate(2026, 11, 21), QTime(9, 5, 3));

    const auto first = StoreProblem::keep(url, u"reason"_s, time);
    const auto second = StoreProblem::keep(url, u"reason"_s, time);
    const auto loaded = SettingsStore(folder.path()).loadKeepingUnreadable();

    EXPECT_EQ(first, second);
    EXPECT_EQ(first.kept->fileName(), u"settings.json.unreadable-20261121-090503"_s);
    EXPECT_EQ(loaded.settings.sizeStep, 20);
    EXPECT_EQ(loaded.settings.gap, 0);
    ASSERT_TRUE(loaded.problem && loaded.problem->kept);
    EXPECT_EQ(folder.read(loaded.problem->kept->fileName()), folder.read(u"settings.json"_s));
    EXPECT_EQ(folder.names().size(), 3);
}

TEST(SettingsStoreTests, theFileIsForPeopleToRead)
{
    const StoreFolder folder;
    const SettingsStore store(folder.path() + u"/new/folder"_s);

    ASSERT_TRUE(store.save(changedSettings()));

    const QByteArray text = folder.read(u"new/folder/settings.json"_s).value();
    EXPECT_THAT(text.toStdString(), HasSubstr("\n    \"gap\": 0.1,\n"));
    EXPECT_LT(text.indexOf("\"appearance\""), text.indexOf("\"showInDock\""));
    EXPECT_EQ(store.inspect().settings, changedSettings());
}

TEST(LayoutStoreTests, aDamagedLayoutCostsItselfAlone)
{
    const struct {
        const char *content;
        QStringList names;
        bool isProblem = true;
    } examples[]{
        {R"([])", {}, false},
        {R"({})", {}},
        {R"([{"name": "A"}, "B", {"name": "C"}])", {u"A"_s, u"C"_s}},
        {R"([{"name": "A", "panes": [{"display": "x"}]}])", {u"A"_s}},
        {R"([{"name": "A", "shortcut": null}])", {u"A"_s}, false},
        {R"([{"name": "A", "shortcut": 5}, {"name": NaN}])", {u"A"_s, u"Layout"_s}},
        {R"([{"name": "A", "created": "yesterday"}])", {u"A"_s}},
    };

    for (const auto &example : examples) {
        const StoreFolder folder;
        folder.write(u"layouts.json"_s, example.content);
        const auto loaded = LayoutStore(folder.path()).loadKeepingUnreadable();
        QStringList names;
        for (const WindowLayout &layout : loaded.layouts)
            names << layout.name;
        EXPECT_EQ(names, example.names) << example.content;
        EXPECT_EQ(loaded.problem.has_value(), example.isProblem) << example.content;
        EXPECT_EQ(folder.names().size(), example.isProblem ? 2 : 1) << example.content;
    }
}

TEST(LayoutStoreTests, aLongFileReadsAsAShortOne)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path());
    const QString file = u"layouts.json"_s;
    QList<WindowLayout> layouts;
    for (int number = 0; number < 400; ++number) {
        layouts << deskLayout();
        layouts.last().name = u"%1, ] and \" in %2"_s.arg(number).arg(layouts.last().name);
    }
    ASSERT_TRUE(store.save(layouts));
    EXPECT_EQ(store.loadKeepingUnreadable().layouts, layouts);

    const QByteArray whole = *folder.read(file);
    ASSERT_TRUE(halves(whole));
    // A comma, a bracket or a quote too many, or an element that is no layout, in either half.
    for (const qsizetype from : {qsizetype(0), whole.size() * 3 / 4}) {
        const qsizetype behindElement = whole.indexOf("\n    },", from) + 7;
        for (const char *damage : {",", "]", "\""}) {
            folder.write(file, QByteArray(whole).insert(behindElement, damage));
            const auto loaded = store.loadKeepingUnreadable();
            EXPECT_TRUE(loaded.problem) << damage << from;
            EXPECT_TRUE(loaded.layouts.isEmpty()) << damage << from;
        }
        folder.write(file, QByteArray(whole).insert(behindElement, " 5,"));
        const auto loaded = store.loadKeepingUnreadable();
        EXPECT_TRUE(loaded.problem);
        EXPECT_EQ(loaded.layouts, layouts);
    }
}

TEST(LayoutStoreTests, layoutsComeBackInTheUsersOrder)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path() + u"/Corvane"_s);
    const QList<WindowLayout> layouts{deskLayout(), {.name = u"A"_s, .created = created}};

    ASSERT_TRUE(store.save(layouts));
    const auto loaded = store.loadKeepingUnreadable();

    EXPECT_EQ(loaded.layouts, layouts);
    EXPECT_FALSE(loaded.problem);
}

TEST(LayoutStoreTests, copiesMadeByHandGetIdsOfTheirOwnTheSameAtEveryLoad)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path());
    const WindowLayout original = deskLayout();
    ASSERT_TRUE(store.save({original, original}));
    const WindowLayout copy = store.loadKeepingUnreadable().layouts.last();
    ASSERT_TRUE(store.save({original, original, copy, original}));

    const QList<WindowLayout> layouts = store.loadKeepingUnreadable().layouts;

    QSet<QUuid> ids;
    for (const WindowLayout &layout : layouts)
        ids.insert(layout.id);
    EXPECT_EQ(ids.size(), 4);
    EXPECT_EQ(layouts[0], original);
    EXPECT_EQ(layouts[2], copy);
    EXPECT_EQ(store.loadKeepingUnreadable().layouts, layouts);
}

TEST(LayoutStoreTests, aFailedSaveSaysWhyAndLeavesTheFile)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path());
    ASSERT_TRUE(store.save({deskLayout()}));
    const auto before = folder.read(u"layouts.json"_s);
    const FileSizeLimit limit(before->size());

    const auto saved = store.save({deskLayout(), deskLayout()});

    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error(), u"The file would become too large."_s);
    EXPECT_EQ(folder.read(u"layouts.json"_s), before);
}

RC_GTEST_PROP(SettingsStorePropertyTests, savedSettingsComeBackEqual, ())
{
    const StoreFolder folder;
    const SettingsStore store(folder.path());
    Settings settings;
    settings.shortcuts = anyShortcuts();
    settings.gap = anyNumber();
    settings.cycling = *rc::gen::arbitrary<bool>();
    settings.sizeStep = anyNumber();
    settings.showInDock = *rc::gen::arbitrary<bool>();
    settings.appearance = *rc::gen::elementOf(appearances);
    settings.preset = anyText();
    if (*rc::gen::arbitrary<bool>())
        settings.customShortcuts = anyShortcuts();

    RC_ASSERT(store.save(settings).has_value());
    const auto loaded = store.loadKeepingUnreadable();

    RC_ASSERT(!loaded.problem);
    RC_ASSERT(loaded.settings == settings);
}

} // namespace corvane
