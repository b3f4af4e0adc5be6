#include "ActivityLog.h"
#include "StoreFolder.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <sys/resource.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const QDateTime now = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);

ActivityEntry entryAt(const QDateTime &date, const QString &window = u"Inbox"_s)
{
    return ActivityEntry::moved({date, Placement::leftHalf, u"Mail"_s, window, {0.5, 25, 800, 600},
        {0, 25, 960, 1055}, u"Monitor"_s});
}

QByteArray lineOf(const ActivityEntry &entry)
{
    return QJsonDocument(entry.toJson()).toJson(QJsonDocument::Compact) + '\n';
}

class ActivityLogTests : public testing::Test
{
protected:
    void write(const QByteArray &content) const { folder.write(u"activity.jsonl"_s, content); }
    [[nodiscard]] QByteArray content() const
    {
        return folder.read(u"activity.jsonl"_s).value_or("no file");
    }
    [[nodiscard]] QStringList windows(int limit) const
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

TEST(ActivityEntryTests, anEntryIsMadeThreeWays)
{
    const Rect from{1, 2, 3, 4};
    const Rect to{5, 6, 7, 8};

    const auto moved = ActivityEntry::moved(
        {now, Placement::topHalf, u"Mail"_s, u"Inbox"_s, from, to, u"Monitor"_s});
    const auto layout = ActivityEntry::placedByLayout(
        u"Work"_s, u"Mail"_s, u"Inbox"_s, u"Monitor"_s, from, to, now);
    const auto refused = ActivityEntry::refused(
        Placement::topHalf, u"Mail"_s, u"is in full screen"_s, u"Monitor"_s, now);

    EXPECT_EQ(moved,
        (ActivityEntry{now, u"topHalf"_s, u"Top Half"_s, u"Mail"_s, u"Inbox"_s, u"Monitor"_s,
            {1, 2, 3, 4}, {5, 6, 7, 8}}));
    EXPECT_EQ(layout,
        (ActivityEntry{now, u"layout"_s, u"Work"_s, u"Mail"_s, u"Inbox"_s, u"Monitor"_s,
            {1, 2, 3, 4}, {5, 6, 7, 8}}));
    EXPECT_EQ(refused,
        (ActivityEntry{now, u"refused"_s, u"Top Half"_s, u"Mail"_s, u"is in full screen"_s,
            u"Monitor"_s, {}, {}}));
    EXPECT_TRUE(refused.isRefusal());
    EXPECT_FALSE(moved.isRefusal() || layout.isRefusal());
    EXPECT_NE(moved.id(), layout.id());
}

TEST(ActivityEntryTests, aDamagedEntryIsNone)
{
    const QJsonObject whole = entryAt(now).toJson();
    const struct {
        const char *key;
        QJsonValue value;
    } damages[]{
        {"date", u"yesterday"_s},
        {"date", 1234},
        {"action", QJsonValue::Null},
        {"title", QJsonValue::Undefined},
        {"app", 5},
        {"window", QJsonArray()},
        {"display", false},
        {"from", u"0,0,1,1"_s},
        {"from", QJsonArray{1, 2, 3}},
        {"to", QJsonArray{1, 2, 3, u"4"_s}},
        {"to", QJsonArray{1, 2, 3, 4, 5}},
    };

    EXPECT_EQ(ActivityEntry::fromJson(whole), entryAt(now));
    for (const auto &damage : damages) {
        QJsonObject json = whole;
        json[QLatin1StringView(damage.key)] = damage.value;
        EXPECT_EQ(ActivityEntry::fromJson(json), std::nullopt) << damage.key;
    }
}

TEST_F(ActivityLogTests, theFirstEntryMakesFileAndFolder)
{
    ActivityLog fresh(folder.path(u"new/Corvane"_s));

    EXPECT_TRUE(fresh.append(entryAt(now)));
    EXPECT_TRUE(fresh.append(entryAt(now.addMSecs(1))));

    EXPECT_EQ(fresh.recent(10), (QList{entryAt(now), entryAt(now.addMSecs(1))}));
    EXPECT_EQ(folder.mode(u"new/Corvane"_s), 0700u);
    EXPECT_EQ(folder.mode(u"new/Corvane/activity.jsonl"_s), 0600u);
}

TEST_F(ActivityLogTests, theNewestEntriesComeLast)
{
    for (const QString &window : {u"a"_s, u"b"_s, u"c"_s})
        log.append(entryAt(now, window));

    EXPECT_EQ(windows(2), (QStringList{u"b"_s, u"c"_s}));
    EXPECT_EQ(windows(3), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(windows(300), windows(3));
    EXPECT_EQ(windows(0), QStringList());
    EXPECT_EQ(ActivityLog(folder.path(u"none"_s)).recent(5), QList<ActivityEntry>());
}

TEST_F(ActivityLogTests, whatIsNoEntryIsPassedOver)
{
    write("\n\ndamaged\n" + lineOf(entryAt(now, u"a"_s)) + QByteArray(1, '\0') + "\n{}\n[1]\n\xff\n"
        + lineOf(entryAt(now, u"b"_s)).chopped(1));

    EXPECT_EQ(windows(300), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(ActivityLogTests, anEntryBehindACutOffLineStandsOnALineOfItsOwn)
{
    const QByteArray cutOff = lineOf(entryAt(now)).first(50);
    write(lineOf(entryAt(now, u"a"_s)) + cutOff);

    log.append(entryAt(now, u"b"_s));

    EXPECT_EQ(
        content(), lineOf(entryAt(now, u"a"_s)) + cutOff + '\n' + lineOf(entryAt(now, u"b"_s)));
    EXPECT_EQ(windows(300), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(ActivityLogTests, pruningDropsWhatIsOlderToTheSecond)
{
    const ActivityEntry kept = entryAt(now.addDays(-30));
    for (const ActivityEntry &entry : {kept, entryAt(now.addDays(-30).addSecs(-1)), entryAt(now)})
        log.append(entry);

    EXPECT_TRUE(log.prune(30, now));

    EXPECT_EQ(content(), lineOf(kept) + lineOf(entryAt(now)));
}

TEST_F(ActivityLogTests, pruningKeepsGoodLinesAsTheyAre)
{
    const QByteArray extra =
        R"({"date":"2026-03-01T13:00:00+01:00", "action":"center","title":"","app":"","window":"",)"
        R"("display":"","from":[],"to":[],"later":{"version":2}})";
    write(lineOf(entryAt(now)) + "damaged\n\n" + extra + "\n" + lineOf(entryAt(now)).chopped(1));

    EXPECT_TRUE(log.prune(30, now));

    EXPECT_EQ(content(), lineOf(entryAt(now)) + extra + "\n" + lineOf(entryAt(now)));
    EXPECT_EQ(folder.names(), QStringList{u"activity.jsonl"_s});
}

TEST_F(ActivityLogTests, pruningKeepsTheNewestUpToTheLimit)
{
    const QByteArray newest = lineOf(entryAt(now)).repeated(ActivityLog::entryLimit);
    write("damaged\n" + lineOf(entryAt(now, u"surplus"_s)).repeated(2) + newest);

    EXPECT_TRUE(log.prune(30, now));

    EXPECT_TRUE(content() == newest);
}

TEST_F(ActivityLogTests, pruningNothingWritesNothing)
{
    log.append(entryAt(now));
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    {
        const WithoutPrivileges user(folder);
        EXPECT_TRUE(log.prune(30, now));
        EXPECT_FALSE(log.prune(0, now.addDays(1)));
    }
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(ActivityLog(folder.path(u"none"_s)).prune(30, now));

    EXPECT_EQ(content(), lineOf(entryAt(now)));
}

TEST_F(ActivityLogTests, aLineWithoutEndIsReadInBoundedMemory)
{
    write(lineOf(entryAt(now, u"a"_s)));
    ASSERT_TRUE(QFile::resize(folder.path(u"activity.jsonl"_s), 200'000'000));
    log.append(entryAt(now, u"b"_s));
    struct rusage before;
    ::getrusage(RUSAGE_SELF, &before);

    EXPECT_EQ(windows(1), QStringList{u"b"_s});
    EXPECT_EQ(windows(300), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(log.prune(30, now));

    struct rusage after;
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 50'000);
    EXPECT_EQ(content(), lineOf(entryAt(now, u"a"_s)) + lineOf(entryAt(now, u"b"_s)));
}

TEST_F(ActivityLogTests, entriesComeAndGoWhileAnotherProcessPrunes)
{
    log.append(entryAt(now.addDays(-31), u"old"_s));
    log.append(entryAt(now, u"a"_s));
    bool isWritten = true;

    const auto pruned =
        JsonLines(folder.path(u"activity.jsonl"_s))
            .revise(
                [&](QByteArrayView line) {
                    isWritten &= log.append(entryAt(now, u"b"_s)) == true;
                    return line.contains("old") ? std::nullopt : std::optional(line);
                },
                1000);

    EXPECT_TRUE(pruned && isWritten);
    EXPECT_EQ(windows(300), (QStringList{u"a"_s, u"b"_s, u"b"_s}));
}

TEST_F(ActivityLogTests, whatAFullDiskDoesNotTakeIsWrittenLater)
{
    log.append(entryAt(now, u"a"_s));
    const QByteArray before = content();
    {
        const FileSizeLimit limit(before.size() + 10);
        EXPECT_FALSE(log.append(entryAt(now, u"b"_s)));
        EXPECT_EQ(content(), before);
    }

    EXPECT_TRUE(log.append(entryAt(now, u"c"_s)));

    EXPECT_EQ(windows(300), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

RC_GTEST_PROP(ActivityLogPropertyTests, theNewestEntriesAreFoundWhereverTheBlocksEnd, ())
{
    const StoreFolder folder;
    ActivityLog log(folder.path());
    const auto sizes = *rc::gen::container<std::vector<int>>(
        rc::gen::weightedOneOf<int>({{3, rc::gen::inRange(0, 300)},
            {1, rc::gen::inRange(65'000, 66'000)}, {1, rc::gen::inRange(131'000, 132'000)}}));
    QList<ActivityEntry> entries;
    QByteArray content;
    for (const int size : sizes) {
        entries << entryAt(now, QString(size, u'x'));
        content += lineOf(entries.last());
    }
    folder.write(u"activity.jsonl"_s,
        *rc::gen::arbitrary<bool>() ? content : content.chopped(content.isEmpty() ? 0 : 1));
    const int limit = *rc::gen::inRange(1, static_cast<int>(sizes.size()) + 3);

    RC_ASSERT(log.recent(limit) == entries.last(qMin<qsizetype>(limit, entries.size())));
    RC_ASSERT(log.prune(30, now).has_value());
    RC_ASSERT(log.recent(1000) == entries);
}

} // namespace corvane
