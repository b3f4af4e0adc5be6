#include "ActivityLog.h"
#include "FlightRecorder.h"
#include "LayoutStore.h"
#include "SettingsStore.h"
#include "StoreFolder.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const QDateTime now = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);

ActivityEntry entryOf(const QString &app, const QDateTime &date)
{
    return ActivityEntry::refused(Placement::center, app, u"is busy"_s, u"Display"_s, date);
}

const QString busy = u"Another process is writing it."_s;

Settings changedSettings()
{
    Settings settings;
    settings.gap = 12;
    settings.customShortcuts = map(ShortcutPreset::rectangle);
    return settings;
}

/// Something that writes, and the file that it leaves.
struct Write {
    const char *name;
    QString file;
    std::function<void(const StoreFolder &)> prepare;
    std::function<void(const StoreFolder &)> write;
};

QList<Write> writes()
{
    const auto saveSettings = [](const StoreFolder &folder) {
        static_cast<void>(SettingsStore(folder.path()).save(changedSettings()));
    };
    const auto saveDefaults = [](const StoreFolder &folder) {
        static_cast<void>(SettingsStore(folder.path()).save({}));
    };
    return {
        {"first settings", u"settings.json"_s, [](const StoreFolder &) {}, saveSettings},
        {"settings", u"settings.json"_s, saveDefaults, saveSettings},
        {"linked settings", u"settings.json"_s,
            [](const StoreFolder &folder) {
                folder.write(u"real.json"_s, "{}");
                QFile::link(u"real.json"_s, folder.path(u"settings.json"_s));
            },
            saveSettings},
        {"layouts", u"layouts.json"_s,
            [](const StoreFolder &folder) { folder.write(u"layouts.json"_s, "[]"); },
            [](const StoreFolder &folder) {
                const WindowLayout layout{
                    .id = QUuid::createUuidV5(QUuid(), u"id"_s), .name = u"Work"_s, .created = now};
                static_cast<void>(LayoutStore(folder.path()).save({100, layout}));
            }},
        {"history", u"activity.jsonl"_s,
            [](const StoreFolder &folder) { folder.write(u"activity.jsonl"_s, "{}"); },
            [](const StoreFolder &folder) {
                ActivityLog(folder.path()).append(entryOf(u"Mail"_s, now));
            }},
        {"pruning", u"activity.jsonl"_s,
            [](const StoreFolder &folder) {
                ActivityLog log(folder.path());
                for (const int days : {40, 20, 0})
                    log.append(entryOf(u"Mail"_s, now.addDays(-days)));
            },
            [](const StoreFolder &folder) { ActivityLog(folder.path()).prune(30, now); }},
    };
}

} // namespace

TEST(CrashTests, aFileIsTheOldOrTheNewOneWhereverTheProcessDies)
{
    int deaths = 0;
    for (const Write &each : writes()) {
        const StoreFolder folder;
        each.prepare(folder);
        const auto before = folder.read(each.file);
        const QStringList names = folder.names();
        each.write(folder);
        const auto after = folder.read(each.file);
        ASSERT_NE(before, after) << each.name;
        for (int boundary = 1;; ++boundary) {
            folder.clear();
            each.prepare(folder);
            const auto died = killAtBoundary(boundary, [&] { each.write(folder); });
            if (!died)
                GTEST_SKIP() << "this system lets no process watch another one";
            const auto left = folder.read(each.file);
            EXPECT_TRUE(left == before || left == after)
                << each.name << " at " << boundary << ": " << left.value_or("nothing").constData();
            if (!*died)
                break;
            ++deaths;
            if (left == before)
                each.write(folder);
            EXPECT_EQ(folder.read(each.file), after) << each.name << " after " << boundary;
            EXPECT_LE(folder.names().size(), qMax<qsizetype>(names.size(), 1) + (left == after))
                << each.name << " leaves files behind";
        }
    }
    RecordProperty("deaths", deaths);
    EXPECT_GE(deaths, 200);
}

TEST(CrashTests, twoProcessesAppendingWhileAThirdOnePrunesLoseNothing)
{
    constexpr int count = 10'000;
    const StoreFolder folder;
    ActivityLog log(folder.path());
    log.append(entryOf(u"Old"_s, now.addDays(-31)));

    QList<pid_t> writers;
    for (const QString &app : {u"Mail"_s, u"Editor"_s}) {
        writers << startProcess([&log, app] {
            for (int i = 0; i < count; ++i) {
                if (!log.append(entryOf(app, now.addMSecs(i))))
                    ::_exit(1);
            }
            while (!log.append(QList<ActivityEntry>()).value_or(true)) { }
        });
    }
    for (int round = 0; round < 20; ++round) {
        log.append(entryOf(u"Old"_s, now.addDays(-31)));
        EXPECT_TRUE(log.prune(30, now));
    }
    for (const pid_t writer : writers)
        EXPECT_TRUE(waitFor(writer));

    QHash<QString, int> seen;
    for (const ActivityEntry &entry : log.recent(3 * count))
        EXPECT_EQ(entry.date, now.addMSecs(seen[entry.app]++)) << entry.app.toStdString();
    EXPECT_EQ(seen, (QHash<QString, int>{{u"Mail"_s, count}, {u"Editor"_s, count}}));
}

TEST(CrashTests, aStoppedProcessThatHeldAFileStoppedEveryOneThatWroteIt)
{
    const StoreFolder folder;
    ActivityLog log(folder.path());
    FlightRecorder recorder(folder.path());
    log.append(entryOf(u"First"_s, now));
    recorder.record(u"launch"_s, u"first"_s);
    recorder.flush();
    ::alarm(60); // where a wait has no end
    QList<int> held;
    for (const QString &name :
        {u".settings.json.new"_s, u"activity.jsonl"_s, u"diagnostics.jsonl"_s}) {
        held << ::open(folder.encoded(name), O_RDWR | O_CREAT, 0600);
        ASSERT_EQ(::flock(held.last(), LOCK_EX), 0);
    }

    const auto saved = SettingsStore(folder.path()).save({});
    const auto appended = log.append(entryOf(u"Second"_s, now));
    recorder.record(u"launch"_s, u"second"_s);
    recorder.flush();
    EXPECT_EQ(log.recent(9).size(), 1);
    EXPECT_FALSE(log.prune(0, now.addDays(1)));
    for (const int file : std::as_const(held))
        ::close(file);
    log.append(entryOf(u"Third"_s, now));
    recorder.record(u"launch"_s, u"third"_s);
    recorder.flush();

    ::alarm(0);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error(), busy);
    EXPECT_EQ(appended, false);
    QStringList apps;
    for (const ActivityEntry &entry : log.recent(9))
        apps << entry.app;
    EXPECT_EQ(apps, (QStringList{u"First"_s, u"Second"_s, u"Third"_s}));
    EXPECT_EQ(folder.read(u"diagnostics.jsonl"_s)->count('\n'), 3);
}

TEST(CrashTests, twoProcessesSavingTakeTurns)
{
    const StoreFolder folder;
    const SettingsStore store(folder.path());
    QList<pid_t> writers;
    for (const double gap : {1, 2}) {
        writers << startProcess([&store, gap] {
            Settings settings;
            settings.gap = gap;
            for (int i = 0; i < 100; ++i) {
                const auto loaded = store.loadKeepingUnreadable();
                const auto saved = store.save(settings);
                if (loaded.problem || (!saved && saved.error() != busy))
                    ::_exit(1);
            }
        });
    }
    for (const pid_t writer : writers)
        EXPECT_TRUE(waitFor(writer));

    EXPECT_GE(store.inspect().settings.gap, 1);
    EXPECT_EQ(folder.names(), QStringList{u"settings.json"_s});
}

} // namespace corvane
