#include "ActivityLog.h"
#include "FlightRecorder.h"
#include "SettingsStore.h"
#include "StoreFolder.h"

#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <fcntl.h>
#include <sys/file.h>

namespace corvane {

namespace {

const QString file = u"activity.jsonl"_s;
const QString busy = u"Another process is writing it."_s;

ActivityEntry entryAt(const QDateTime &date, const QString &window = u"Inbox"_s)
{
    return ActivityEntry::moved({date, Placement::leftHalf, u"Mail"_s, window, {0.5, 25, 800, 600},
        {0, 25, 960, 1055}, u"Monitor"_s});
}

QByteArray lineOf(const QJsonObject &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray lineOf(const ActivityEntry &entry)
{
    return lineOf(entry.toJson());
}

/// Whether the settings are whole for everybody, and written unless another process writes them.
bool savesInTurn(const SettingsStore &store)
{
    const auto saved = store.save({});
    return !store.inspect().problem && (saved || saved.error() == busy);
}

class ActivityLogTests : public testing::Test
{
protected:
    [[nodiscard]] QStringList windows(int limit = 300) const
    {
        QStringList windows;
        for (const ActivityEntry &entry : log.recent(limit))
            windows << entry.window;
        return windows;
    }

    StoreFolder folder;
    ActivityLog log{folder.path()};
};

} // namespace

TEST_F(ActivityLogTests, whatIsNoEntryIsPassedOverInBoundedMemoryAndPruned)
{
    const QJsonObject whole = entryAt(noon, u"a"_s).toJson();
    QJsonObject cutFrame = whole;
    cutFrame[u"from"] = QJsonArray{1, 2, 3};
    QByteArray content =
        "\n\n" + QByteArray(1, '\0') + "\n[1]\n\xff\n" + lineOf(whole) + lineOf(cutFrame);
    for (const QString &member : whole.keys()) {
        QJsonObject damaged = whole;
        damaged[member] = false;
        content += lineOf(damaged);
    }
    folder.write(file, content);
    ASSERT_TRUE(QFile::resize(folder.path(file), 200'000'000)); // a line without end
    log.append(entryAt(noon, u"b"_s));
    struct rusage before;
    ::getrusage(RUSAGE_SELF, &before);

    EXPECT_EQ(windows(1), QStringList{u"b"_s});
    EXPECT_EQ(windows(), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(log.prune(30, noon));

    struct rusage after;
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 50'000);
    EXPECT_EQ(folder.read(file), lineOf(whole) + lineOf(entryAt(noon, u"b"_s)));
}

TEST_F(ActivityLogTests, pruningDropsWhatIsOlderToTheSecondAndKeepsGoodLinesAsTheyAre)
{
    const QByteArray oldest = lineOf(entryAt(noon.addDays(-30)));
    const QByteArray tooOld = lineOf(entryAt(noon.addDays(-30).addSecs(-1)));
    const QByteArray ofLater =
        lineOf(entryAt(noon)).replace(R"({"action")", R"({ "later":2, "action")");
    const QByteArray last = lineOf(entryAt(noon));
    folder.write(file, oldest + tooOld + "damaged\n\n" + ofLater + last.chopped(1));

    EXPECT_TRUE(log.prune(30, noon));

    EXPECT_EQ(folder.read(file), oldest + ofLater + last);
    EXPECT_EQ(folder.names(), QStringList{file});
    const QByteArray newest = last.repeated(ActivityLog::entryLimit);
    folder.write(file, oldest + newest);
    EXPECT_TRUE(log.prune(30, noon));
    EXPECT_TRUE(folder.read(file) == newest) << "up to the limit";
}

TEST_F(ActivityLogTests, whatCannotBeWrittenIsToldAndLosesNothing)
{
    log.append({entryAt(noon.addDays(-31), u"old"_s), entryAt(noon, u"a"_s)});
    const auto before = folder.read(file);

    limitFileSize(before->size() + 10);
    EXPECT_FALSE(log.append(entryAt(noon, u"b"_s)));
    limitFileSize(10);
    EXPECT_FALSE(log.prune(30, noon));
    EXPECT_TRUE(log.prune(60, noon)) << "where nothing is to be pruned, nothing is written";
    limitFileSize(RLIM_INFINITY);

    EXPECT_EQ(folder.read(file), before);
    EXPECT_TRUE(log.append(entryAt(noon, u"c"_s)));
    EXPECT_EQ(windows(), (QStringList{u"old"_s, u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_TRUE(ActivityLog(folder.path(u"none"_s)).prune(30, noon));
}

TEST_F(ActivityLogTests, twoProcessesThatWriteWhileAThirdOnePrunesLoseNothing)
{
    constexpr int count = 10'000;
    QList<pid_t> writers;
    for (const QString &window : {u"a"_s, u"b"_s}) {
        writers << startProcess([&, window] {
            for (int i = 0; i < count; ++i) {
                if (!log.append(entryAt(noon.addMSecs(i), window))
                    || (i % 100 == 0 && !savesInTurn(SettingsStore(folder.path()))))
                    ::_exit(1);
            }
            while (!log.append(QList<ActivityEntry>()).value_or(true)) { }
        });
    }
    for (int round = 0; round < 20; ++round) {
        log.append(entryAt(noon.addDays(-31)));
        EXPECT_TRUE(log.prune(30, noon));
    }
    for (const pid_t writer : writers)
        EXPECT_TRUE(waitFor(writer));

    QHash<QString, int> seen;
    for (const ActivityEntry &entry : log.recent(3 * count))
        EXPECT_EQ(entry.date, noon.addMSecs(seen[entry.window]++)) << entry.window.toStdString();
    EXPECT_EQ(seen, (QHash<QString, int>{{u"a"_s, count}, {u"b"_s, count}}));
    EXPECT_EQ(folder.names(), (QStringList{file, u"settings.json"_s}));
}

TEST_F(ActivityLogTests, aStoppedProcessThatHeldAFileStoppedEveryOneThatWroteIt)
{
    FlightRecorder recorder(folder.path());
    const auto writeBoth = [&](const QString &window) {
        recorder.record(u"launch"_s, window);
        recorder.flush();
        return log.append(entryAt(noon, window));
    };
    EXPECT_TRUE(writeBoth(u"first"_s));
    ::alarm(60); // where a wait has no end
    QList<int> held;
    for (const QString &name : {u".settings.json.new"_s, file, u"diagnostics.jsonl"_s}) {
        held << ::open(qPrintable(folder.path(name)), O_RDWR | O_CREAT, 0600);
        ASSERT_EQ(::flock(held.last(), LOCK_EX), 0);
    }

    const auto saved = SettingsStore(folder.path()).save({});
    EXPECT_EQ(writeBoth(u"second"_s), false);
    EXPECT_EQ(windows(), QStringList{u"first"_s});
    EXPECT_FALSE(log.prune(0, noon.addDays(1)));
    for (const int descriptor : std::as_const(held))
        ::close(descriptor);
    EXPECT_EQ(writeBoth(u"third"_s), true);

    ::alarm(0);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error(), busy);
    EXPECT_EQ(windows(), (QStringList{u"first"_s, u"second"_s, u"third"_s})) << "it waited";
    EXPECT_EQ(folder.read(u"diagnostics.jsonl"_s)->count('\n'), 3);
}

RC_GTEST_PROP(ActivityLogPropertyTests, entriesAreFoundWhereverTheBlocksAndACutOffLineEnd, ())
{
    const StoreFolder folder;
    ActivityLog log(folder.path());
    const auto sizes = *rc::gen::container<std::vector<int>>(
        rc::gen::weightedOneOf<int>({{3, rc::gen::inRange(0, 300)},
            {1, rc::gen::inRange(65'000, 66'000)}, {1, rc::gen::inRange(131'000, 132'000)}}));
    QList<ActivityEntry> entries;
    QByteArray content;
    for (const int size : sizes) {
        entries << entryAt(noon, QString(size, u'x'));
        content += lineOf(entries.last());
    }
    const int cutOff = *rc::gen::inRange(0, 4);
    content.chop(cutOff);
    if (cutOff > 1 && !entries.isEmpty())
        entries.removeLast();
    folder.write(file, content);
    const int limit = *rc::gen::inRange(0, static_cast<int>(sizes.size()) + 3);

    RC_ASSERT(log.recent(limit) == entries.last(qMin<qsizetype>(limit, entries.size())));
    entries << entryAt(noon, u"one more"_s);
    RC_ASSERT(log.append(entries.last()).has_value());
    RC_ASSERT(log.recent(1000) == entries);
    RC_ASSERT(log.prune(30, noon).has_value());
    RC_ASSERT(log.recent(1000) == entries);
}

} // namespace corvane
