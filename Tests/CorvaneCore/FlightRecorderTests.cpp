#include "FlightRecorder.h"
#include "StoreFolder.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>

#include <thread>

namespace corvane {

namespace {

class FlightRecorderTests : public testing::Test
{
protected:
    [[nodiscard]] QStringList written()
    {
        recorder.flush();
        QStringList details;
        for (const QByteArray &line : folder.read(u"diagnostics.jsonl"_s)->split('\n')) {
            if (!line.isEmpty())
                details << QJsonDocument::fromJson(line)[u"detail"].toString();
        }
        return details;
    }

    StoreFolder folder;
    FlightRecorder recorder{folder.path()};
};

} // namespace

TEST_F(FlightRecorderTests, eventsFromManyThreadsStandOnWholeLinesAndTheSnapshotHoldsTheNewest)
{
    constexpr int count = FlightRecorder::ledgerLimit;
    {
        std::vector<std::jthread> threads;
        for (const QString &name : {u"a"_s, u"b"_s}) {
            threads.emplace_back([this, name] {
                for (int i = 0; i < count; ++i)
                    recorder.record(name, name + QString::number(i));
            });
        }
    }
    recorder.snapshot({{u"version"_s, u"1"_s}});
    const QStringList details = written();

    QHash<QChar, int> seen;
    for (const QString &detail : details)
        EXPECT_EQ(detail.mid(1).toInt(), seen[detail.front()]++);
    EXPECT_EQ(seen, (QHash<QChar, int>{{u'a', count}, {u'b', count}}));
    const auto json = QJsonDocument::fromJson(folder.read(u"snapshot.json"_s).value()).object();
    const QJsonArray recent = json[u"recentEvents"].toArray();
    EXPECT_EQ(recent.size(), count);
    EXPECT_EQ(recent.last()[u"detail"_s], details.last());
    EXPECT_EQ(json[u"version"], u"1"_s);
    for (const QString &name : {u"snapshot.json"_s, u"diagnostics.jsonl"_s})
        EXPECT_EQ(folder.mode(name), 0600u);
}

TEST_F(FlightRecorderTests, pruningDropsOldLinesAndTitlesOfEarlierVersions)
{
    const auto line = [](int daysAgo, const QString &detail) {
        const FlightRecorder::Event event{noon.addDays(-daysAgo), u"move"_s, detail};
        return QJsonDocument(event.toJson()).toJson(QJsonDocument::Compact) + '\n';
    };
    const QString titled = u"center: Mail%1 moved from 1,2 3×4 to 5,6 7×8 on Desk"_s;
    folder.write(u"diagnostics.jsonl"_s,
        line(31, u"old"_s) + line(30, u"kept"_s) + "damaged\n"
            + line(0, titled.arg(u" \"a\" moved from \"b\""_s)));

    recorder.prune(30, noon);
    recorder.record(u"launch"_s, u"new"_s);

    EXPECT_EQ(written(), (QStringList{u"kept"_s, titled.arg(QString()), u"new"_s}));
}

TEST_F(FlightRecorderTests, aFolderThatCannotBeWrittenStopsNothingAndIsToldOnceForEachFile)
{
    folder.write(u"file"_s, {});
    FlightRecorder withoutFolder(folder.path(u"file"_s));
    QStringList told;
    QObject::connect(
        &withoutFolder, &FlightRecorder::written, &withoutFolder,
        [&](const QString &path, const QString &problem) {
            told << path.section(u'/', -1) + u": "_s + problem;
            if (!problem.isEmpty())
                withoutFolder.record(u"notice"_s, problem);
        },
        Qt::DirectConnection);

    withoutFolder.record(u"launch"_s, u"detail"_s);
    withoutFolder.snapshot({});
    withoutFolder.flush();
    EXPECT_EQ(withoutFolder.ledger().size(), 3) << "with what was told of the two files";
    ASSERT_TRUE(QFile::remove(folder.path(u"file"_s)));
    withoutFolder.record(u"launch"_s, u"later"_s);
    withoutFolder.flush();

    const QString problem = u": Its folder is not a folder."_s;
    EXPECT_EQ(told,
        (QStringList{u"diagnostics.jsonl"_s + problem, u"snapshot.json"_s + problem,
            u"diagnostics.jsonl: "_s, u"snapshot.json: "_s}));
    EXPECT_EQ(folder.read(u"file/diagnostics.jsonl"_s)->count('\n'), 4);
}

TEST_F(FlightRecorderTests, theJournalGetsOneLineWithAPriority)
{
    const std::string line = "<6>com.orvalle.corvane.flightrecorder launch: first second\n";
    for (const auto &[other, written] : {std::pair{"", line}, {"1", std::string()}}) {
        testing::internal::CaptureStderr();
        struct stat status {
        };
        ::fstat(STDERR_FILENO, &status);
        qputenv("JOURNAL_STREAM",
            QByteArray::number(status.st_dev) + ':' + QByteArray::number(status.st_ino) + other);
        FlightRecorder toStream(folder.path());
        toStream.record(u"launch"_s, u"first\nsecond"_s);
        toStream.flush();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), written);
    }
    qunsetenv("JOURNAL_STREAM");
}

} // namespace corvane
