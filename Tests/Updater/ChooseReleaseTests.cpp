#include "ChooseRelease.h"

#include <QtCore/QTimeZone>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QDateTime start({2026, 3, 1}, {}, QTimeZone::utc());
const RunningCopy running{10, u"linux"_s, u"x86_64"_s, {2, 36}, {}, 0};

Artefact artefact(const QString &glibc, const QString &os = u"linux"_s)
{
    return {os, u"x86_64"_s, glibc, {}, 1, {}, 1};
}

FeedEntry entry(
    qint64 build, qint64 minimumBuild = 0, const QList<Artefact> &artefacts = {artefact(u"2.36"_s)})
{
    return {{{}, {}, build, {}, minimumBuild, artefacts}, {start, 24h}, false, {}};
}

qint64 chosen(const QList<FeedEntry> &entries, const RunningCopy &copy = running,
    const QDateTime &now = start, Asker asker = Asker::user)
{
    const auto choice = chooseRelease(entries, copy, now, asker);
    return choice ? choice->entry.release.build : 0;
}

} // namespace

TEST(ChooseReleaseTests, onlyWhatThisCopyCanBecomeIsChosen)
{
    const std::tuple<const char *, FeedEntry, bool> rows[]{
        {"this one", entry(10), false},
        {"one for this build and later", entry(12, 10), true},
        {"one for an older system", entry(12, 0, {artefact(u"2.4"_s)}), true},
        {"one for another system", entry(12, 0, {artefact(u"2.36"_s, u"other"_s)}), false},
    };
    for (const auto &[name, offered, isChosen] : rows)
        EXPECT_EQ(chosen({offered}) != 0, isChosen) << name;
    const auto files = entry(11, 0, {artefact(u"2.4"_s), artefact(u"2.36"_s), artefact(u"2.31"_s)});
    EXPECT_EQ(chooseRelease({files}, running, start, Asker::user)->artefact.glibc, u"2.36"_s);
}

RC_GTEST_PROP(ChooseReleaseTests, itIsTheHighestOfThoseThatAreChosenAlone, ())
{
    QList<FeedEntry> entries;
    for (const int build : *rc::gen::unique<std::vector<int>>(rc::gen::inRange(5, 20))) {
        entries << entry(build, *rc::gen::inRange(0, build));
        entries.last().rollout.start = start.addDays(*rc::gen::inRange(-9, 9));
        entries.last().critical = *rc::gen::arbitrary<bool>();
    }
    const auto asker = *rc::gen::element(Asker::schedule, Asker::user);

    qint64 highest = 0;
    for (const FeedEntry &each : entries)
        highest = std::max(highest, chosen({each}, running, start, asker));
    RC_ASSERT(chosen(entries, running, start, asker) == highest);
}

TEST(ChooseReleaseTests, aRolloutReachesASeventhMoreEachTimeUnlessItIsCriticalOrTheUserAsks)
{
    FeedEntry critical = entry(11);
    critical.critical = true;
    for (int day = -1; day < 9; ++day) {
        const auto reached = [&](const FeedEntry &offered, Asker asker) {
            int count = 0;
            for (RunningCopy copy = running; copy.seed < 70; ++copy.seed)
                count += chosen({offered}, copy, start.addDays(day), asker) ? 1 : 0;
            return count;
        };

        EXPECT_EQ(reached(entry(11), Asker::schedule), 10 * std::clamp(day + 1, 0, 7)) << day;
        EXPECT_EQ(reached(entry(11), Asker::user), 70) << day;
        EXPECT_EQ(reached(critical, Asker::schedule), 70) << day;
    }
}

} // namespace corvane
