#include "ActivityLog.h"
#include "FlightRecorder.h"
#include "SettingsStore.h"
#include "StoreFolder.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <tuple>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const QDateTime now = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);
const QString busy = u"Another process is writing it."_s;

ActivityEntry entryOf(const QString &app, const QDateTime &date)
{
    return ActivityEntry::refused(Placement::center, app, u"is busy"_s, u"Display"_s, date);
}

expected<void, QString> save(const QString &folder, double gap)
{
    Settings settings;
    settings.gap = gap;
    return SettingsStore(folder).save(settings);
}

using Write = std::function<void(const QString &folder)>;

Write saving(double gap)
{
    return [gap](const QString &folder) { std::ignore = save(folder, gap); };
}

Write appending(const QList<int> &daysAgo)
{
    return [=](const QString &folder) {
        for (const int days : daysAgo)
            ActivityLog(folder).append(entryOf(u"Mail"_s, now.addDays(-days)));
    };
}

/// Whether the settings are whole for everybody, and written unless another process writes them.
bool savesInTurn(const QString &folder, double gap)
{
    const auto saved = save(folder, gap);
    return !SettingsStore(folder).inspect().problem && (saved || saved.error() == busy);
}

} // namespace

TEST(CrashTests, aFileIsTheOldOrTheNewOneWhereverTheProcessDies)
{
    const std::tuple<QString, Write, Write> writes[]{
        {u"settings.json"_s, [](const QString &) {}, saving(12)},
        {u"settings.json"_s, saving(1), saving(12)},
        {u"activity.jsonl"_s, appending({0}), appending({0})},
        {u"activity.jsonl"_s, appending({40, 20, 0}),
            [](const QString &folder) { ActivityLog(folder).prune(30, now); }},
    };
    int deaths = 0;
    for (const auto &[file, prepare, write] : writes) {
        const StoreFolder whole;
        prepare(whole.path());
        const auto before = whole.read(file);
        write(whole.path());
        const auto after = whole.read(file);
        ASSERT_NE(before, after);
        for (int boundary = 1;; ++boundary) {
            const StoreFolder folder;
            prepare(folder.path());
            const auto died = killAtBoundary(boundary, [&] { write(folder.path()); });
            if (!died)
                GTEST_SKIP() << "this system lets no process watch another one";
            const auto left = folder.read(file);
            EXPECT_TRUE(left == before || left == after)
                << boundary << ' ' << left.value_or("nothing").data();
            if (!*died)
                break;
            ++deaths;
            if (left == before)
                write(folder.path());
            EXPECT_EQ(folder.read(file), after) << boundary;
            EXPECT_LE(folder.names().size(), 1 + (left == after)) << boundary;
        }
    }
    EXPECT_GE(deaths, 100);
}

TEST(CrashTests, twoProcessesThatWriteWhileAThirdOnePrunesLoseNothing)
{
    constexpr int count = 10'000;
    const StoreFolder folder;
    ActivityLog log(folder.path());

    QList<pid_t> writers;
    for (const QString &app : {u"Mail"_s, u"Editor"_s}) {
        writers << startProcess([&, app] {
            for (int i = 0; i < count; ++i) {
                if (!log.append(entryOf(app, now.addMSecs(i)))
                    || (i % 100 == 0 && !savesInTurn(folder.path(), i)))
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
    EXPECT_EQ(folder.names(), (QStringList{u"activity.jsonl"_s, u"settings.json"_s}));
}

TEST(CrashTests, aStoppedProcessThatHeldAFileStoppedEveryOneThatWroteIt)
{
    const StoreFolder folder;
    ActivityLog log(folder.path());
    FlightRecorder recorder(folder.path());
    const auto writeBoth = [&](const QString &app) {
        recorder.record(u"launch"_s, app);
        recorder.flush();
        return log.append(entryOf(app, now));
    };
    EXPECT_TRUE(writeBoth(u"First"_s));
    ::alarm(60); // where a wait has no end
    QList<int> held;
    for (const QString &name :
        {u".settings.json.new"_s, u"activity.jsonl"_s, u"diagnostics.jsonl"_s}) {
        held << ::open(qPrintable(folder.path(name)), O_RDWR | O_CREAT, 0600);
        ASSERT_EQ(::flock(held.last(), LOCK_EX), 0);
    }

    const auto saved = save(folder.path(), 1);
    EXPECT_EQ(writeBoth(u"Second"_s), false);
    EXPECT_EQ(log.recent(9).size(), 1);
    EXPECT_FALSE(log.prune(0, now.addDays(1)));
    for (const int file : std::as_const(held))
        ::close(file);
    EXPECT_EQ(writeBoth(u"Third"_s), true);

    ::alarm(0);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error(), busy);
    EXPECT_EQ(log.recent(2).first().app, u"Second"_s) << "it waited";
    EXPECT_EQ(log.recent(9).size(), 3);
    EXPECT_EQ(folder.read(u"diagnostics.jsonl"_s)->count('\n'), 3);
}

} // namespace corvane
