#include "../CorvaneCore/StoreFolder.h"
#include "InstallRecord.h"
#include "Testing.h"
#include "WallClock.h"

namespace corvane::freedesktop {

TEST(InstallRecordTests, whatIsNotThereOrDamagedIsACopyThatNobodyUpdates)
{
    const QDateTime built = noon;
    const std::pair<QByteArray, InstallRecord> rows[]{
        {R"({"kind": "bundle", "build": 7, "built": "2026-03-01T12:00:00Z"})",
            {InstallKind::bundle, 7, built, {}, {}}},
        {R"({"kind": "package", "build": 0, "built": "", "command": "up", "maker": "Debian"})",
            {InstallKind::package, 0, {}, u"up"_s, u"Debian"_s}},
        {R"({"kind": "other", "build": -1, "built": 5, "command": []})", {}},
        {"[]", {}},
        {"{\"kind\": \"bundle\"", {}},
    };
    for (const auto &[text, record] : rows) {
        const StoreFolder folder;
        folder.write(u"share/corvane/install.json"_s, text);
        EXPECT_EQ(InstallRecord::read(folder.path()), record) << text.toStdString();
    }
    EXPECT_EQ(InstallRecord::read(u"/nowhere"_s), InstallRecord());
}

TEST(WallClockTests, aDateThatIsOverComesAtOnceOneAheadLaterAndNoneOnceItsContextIsGone)
{
    WallClock clock;
    QStringList come;
    QObject context;
    auto gone = std::make_unique<QObject>();
    const QDateTime now = clock.date();
    clock.at(now.addSecs(2), &context, [&] { come << u"ahead"_s; });
    clock.at(now.addYears(-60), &context, [&] { come << u"over"_s; });
    clock.at(now, gone.get(), [&] { come << u"gone"_s; });
    clock.at(now.addYears(1), &context, [&] { come << u"too early"_s; });
    gone.reset();

    EXPECT_TRUE(eventually([&] { return come.size() == 2; }));

    EXPECT_EQ(come, (QStringList{u"over"_s, u"ahead"_s}));
    EXPECT_GE(QDateTime::currentSecsSinceEpoch(), now.addSecs(2).toSecsSinceEpoch());
}

} // namespace corvane::freedesktop
