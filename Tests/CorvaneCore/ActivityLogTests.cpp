#include "ActivityLog.h"
#include "StoreFolder.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const QDateTime now = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);
const QString file = u"activity.jsonl"_s;

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
    const QByteArray whole = lineOf(entryAt(now, u"a"_s));
    const std::pair<const char *, const char *> damages[]{
        {"2026-03-01", "yesterday"},
        {R"("leftHalf")", "null"},
        {R"("title")", R"("name")"},
        {R"("Mail")", "5"},
        {R"("a")", "[]"},
        {R"("Monitor")", "false"},
        {"[0.5,25,800,600]", R"("0,0,1,1")"},
        {"[0.5,25,800,600]", "[1,2,3]"},
        {"[0,25,960,1055]", R"([1,2,3,"4"])"},
        {"[0,25,960,1055]", "[1,2,3,4,5]"},
    };
    QByteArray content = "\n\n" + QByteArray(1, '\0') + "\n{}\n[1]\n\xff\n" + whole;
    for (const auto &[good, bad] : damages)
        content += QByteArray(whole).replace(good, bad);
    folder.write(file, content);
    ASSERT_TRUE(QFile::resize(folder.path(file), 200'000'000)); // a line without end
    log.append(entryAt(now, u"b"_s));
    struct rusage before;
    ::getrusage(RUSAGE_SELF, &before);

    EXPECT_EQ(windows(1), QStringList{u"b"_s});
    EXPECT_EQ(windows(), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(log.prune(30, now));

    struct rusage after;
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 50'000);
    EXPECT_EQ(folder.read(file), whole + lineOf(entryAt(now, u"b"_s)));
}

TEST_F(ActivityLogTests, pruningDropsWhatIsOlderToTheSecondAndKeepsGoodLinesAsTheyAre)
{
    const QByteArray oldest = lineOf(entryAt(now.addDays(-30)));
    const QByteArray tooOld = lineOf(entryAt(now.addDays(-30).addSecs(-1)));
    const QByteArray ofLater =
        R"({"date":"2026-03-01T13:00:00+01:00", "action":"center","title":"","app":"","window":"",)"
        R"("display":"","from":[],"to":[],"later":{"version":2}})"
        "\n";
    const QByteArray last = lineOf(entryAt(now));
    folder.write(file, oldest + tooOld + "damaged\n\n" + ofLater + last.chopped(1));

    EXPECT_TRUE(log.prune(30, now));

    EXPECT_EQ(folder.read(file), oldest + ofLater + last);
    EXPECT_EQ(folder.names(), QStringList{file});
    const QByteArray newest = last.repeated(ActivityLog::entryLimit);
    folder.write(file, oldest + "damaged\n" + newest);
    EXPECT_TRUE(log.prune(30, now));
    EXPECT_TRUE(folder.read(file) == newest) << "up to the limit";
}

TEST_F(ActivityLogTests, whatCannotBeWrittenIsToldAndLosesNothing)
{
    log.append(entryAt(now, u"a"_s));
    const auto before = folder.read(file);

    limitFileSize(before->size() + 10);
    EXPECT_FALSE(log.append(entryAt(now, u"b"_s)));
    limitFileSize(RLIM_INFINITY);
    runAsUser(folder, [this] {
        folder.setMode({}, 0500);
        EXPECT_TRUE(log.prune(30, now)) << "where nothing is to be pruned, nothing is written";
        EXPECT_FALSE(log.prune(0, now.addDays(1)));
        folder.setMode({}, 0700);
    });
    EXPECT_EQ(folder.read(file), before);
    EXPECT_TRUE(log.append(entryAt(now, u"c"_s)));
    EXPECT_EQ(windows(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_TRUE(ActivityLog(folder.path(u"none"_s)).prune(30, now));
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
        entries << entryAt(now, QString(size, u'x'));
        content += lineOf(entries.last());
    }
    const int cutOff = *rc::gen::inRange(0, 4);
    content.chop(cutOff);
    if (cutOff > 1 && !entries.isEmpty())
        entries.removeLast();
    folder.write(file, content);
    const int limit = *rc::gen::inRange(0, static_cast<int>(sizes.size()) + 3);

    RC_ASSERT(log.recent(limit) == entries.last(qMin<qsizetype>(limit, entries.size())));
    entries << entryAt(now, u"one more"_s);
    RC_ASSERT(log.append(entries.last()).has_value());
    RC_ASSERT(log.recent(1000) == entries);
    RC_ASSERT(log.prune(30, now).has_value());
    RC_ASSERT(log.recent(1000) == entries);
}

} // namespace corvane
