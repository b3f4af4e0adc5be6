#include "FlightRecorder.h"
#include "StoreFolder.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <thread>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const QDateTime now = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);

class FlightRecorderTests : public testing::Test
{
protected:
    /// The details in the file, in order.
    [[nodiscard]] QStringList written()
    {
        recorder.flush();
        QStringList details;
        for (const QByteArray &line :
            folder.read(u"diagnostics.jsonl"_s).value_or("").split('\n')) {
            if (!line.isEmpty())
                details << QJsonDocument::fromJson(line)[u"detail"].toString();
        }
        return details;
    }

    StoreFolder folder;
    FlightRecorder recorder{folder.path()};
};

/// What a recorder that is made and used meanwhile writes to standard error.
std::string mirrored(const StoreFolder &folder, bool toJournal)
{
    testing::internal::CaptureStderr();
    struct stat status {
    };
    ::fstat(STDERR_FILENO, &status);
    const QByteArray stream =
        QByteArray::number(status.st_dev) + ':' + QByteArray::number(status.st_ino);
    qputenv("JOURNAL_STREAM", toJournal ? stream : stream + '1');
    {
        FlightRecorder recorder(folder.path());
        recorder.record(u"launch"_s, u"first\nsecond"_s);
    }
    qunsetenv("JOURNAL_STREAM");
    return testing::internal::GetCapturedStderr();
}

} // namespace

TEST_F(FlightRecorderTests, theLedgerKeepsTheNewestAndTheFileAll)
{
    QStringList details;
    for (int i = 0; i <= FlightRecorder::ledgerLimit; ++i) {
        details << QString::number(i);
        recorder.record(u"launch"_s, details.last());
    }

    EXPECT_EQ(written(), details);
    const auto ledger = recorder.ledger();
    ASSERT_EQ(ledger.size(), 300);
    EXPECT_EQ(ledger.first().detail, u"1"_s);
    EXPECT_EQ(ledger.last().detail, u"300"_s);
}

TEST_F(FlightRecorderTests, eventsFromManyThreadsStandOnWholeLinesInEachThreadsOrder)
{
    constexpr int count = 500;
    {
        std::vector<std::jthread> threads;
        for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
            threads.emplace_back([this, name] {
                for (int i = 0; i < count; ++i)
                    recorder.record(name, name + QString::number(i));
            });
        }
    }

    QHash<QChar, int> seen;
    for (const QString &detail : written())
        EXPECT_EQ(detail.mid(1).toInt(), seen[detail.front()]++);
    EXPECT_EQ(seen, (QHash<QChar, int>{{u'a', count}, {u'b', count}, {u'c', count}}));
}

TEST_F(FlightRecorderTests, pruningDropsOldAndDamagedLinesAndTitlesOfEarlierVersions)
{
    const auto line = [](const QDateTime &date, const char *detail) {
        const FlightRecorder::Event event{date, u"move"_s, QString::fromUtf8(detail)};
        return QJsonDocument(event.toJson()).toJson(QJsonDocument::Compact) + '\n';
    };
    folder.write(u"diagnostics.jsonl"_s,
        line(now.addDays(-30).addSecs(-1), "old") + line(now.addDays(-30), "kept") + "damaged\n"
            + line(
                now, R"(center: Mail "a" moved from "b" moved from 1,2 3×4 to 5,6 7×8 on Desk)"));

    recorder.prune(30, now);
    recorder.record(u"launch"_s, u"new"_s);

    EXPECT_EQ(written(),
        (QStringList{
            u"kept"_s, u"center: Mail moved from 1,2 3×4 to 5,6 7×8 on Desk"_s, u"new"_s}));
}

TEST_F(FlightRecorderTests, theSnapshotHoldsTheValuesTheTimeAndTheLedger)
{
    recorder.record(u"launch"_s, u"version 1"_s);

    recorder.snapshot({{u"version"_s, u"1"_s}, {u"writtenAt"_s, u"never"_s}});
    recorder.flush();

    const auto json = QJsonDocument::fromJson(folder.read(u"snapshot.json"_s).value()).object();
    EXPECT_EQ(json.keys(), (QStringList{u"recentEvents"_s, u"version"_s, u"writtenAt"_s}));
    EXPECT_EQ(json[u"recentEvents"].toArray().at(0), recorder.ledger().first().toJson());
    EXPECT_TRUE(QDateTime::fromString(json[u"writtenAt"].toString(), Qt::ISODate).isValid());
    EXPECT_EQ(folder.mode(u"snapshot.json"_s), 0600u);
}

TEST_F(FlightRecorderTests, aFolderThatCannotBeWrittenStopsNothingAndIsToldOnceForEachFile)
{
    folder.write(u"file"_s, {});
    FlightRecorder recorderWithoutFolder(folder.path(u"file"_s));
    QStringList told;
    QObject::connect(
        &recorderWithoutFolder, &FlightRecorder::written, &recorderWithoutFolder,
        [&](const QString &path, const QString &problem) {
            told << path.section(u'/', -1) + u": "_s + problem;
            if (!problem.isEmpty())
                recorderWithoutFolder.record(u"notice"_s, problem);
        },
        Qt::DirectConnection);

    recorderWithoutFolder.record(u"launch"_s, u"detail"_s);
    recorderWithoutFolder.prune(30);
    recorderWithoutFolder.snapshot({});
    recorderWithoutFolder.flush();
    EXPECT_EQ(recorderWithoutFolder.ledger().size(), 3) << "with what was told of the two files";
    ASSERT_TRUE(QFile::remove(folder.path(u"file"_s)));
    recorderWithoutFolder.record(u"launch"_s, u"later"_s);
    recorderWithoutFolder.flush();

    const QString problem = u": Its folder is not a folder."_s;
    EXPECT_EQ(told,
        (QStringList{u"diagnostics.jsonl"_s + problem, u"snapshot.json"_s + problem,
            u"diagnostics.jsonl: "_s, u"snapshot.json: "_s}));
    EXPECT_EQ(folder.read(u"file/diagnostics.jsonl"_s)->count('\n'), 4);
    EXPECT_TRUE(folder.read(u"file/snapshot.json"_s));
}

TEST_F(FlightRecorderTests, theJournalGetsOneLineWithAPriority)
{
    const std::string line = "<6>com.orvalle.corvane.flightrecorder launch: first second\n";

    EXPECT_EQ(mirrored(folder, true), line);
    EXPECT_EQ(mirrored(folder, false), "");
}

} // namespace corvane
