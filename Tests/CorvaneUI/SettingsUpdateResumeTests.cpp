#include "ModelDesk.h"
#include "SettingsUpdateResume.h"

#include <QtCore/QFileInfo>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(SettingsUpdateResumeTests, aReceiptIsReadOnceAndOnlyWhileItIsGood)
{
    const StoreFolder folder;
    const QString path = folder.path(u"receipt.json"_s);
    const QDateTime now = QDateTime::fromString(u"2026-11-20T12:00:00Z"_s, Qt::ISODate);
    const auto receipt = [&](const QString &pane, qint64 age) {
        return u"{\"pane\":\"%1\",\"writtenAt\":\"%2\"}"_s
            .arg(pane, now.addSecs(-age).toString(Qt::ISODateWithMs))
            .toUtf8();
    };
    struct Case {
        const char *what;
        QByteArray content;
        std::optional<QString> pane = {};
    };
    for (const Case &each :
        {Case{"in time", receipt(u"about"_s, 599).leftJustified(4095), u"about"_s},
            {"600 seconds old", receipt(u"about"_s, 600)},
            {"from the future", receipt(u"about"_s, -1)}, {"without a pane", receipt({}, 0)},
            {"4096 bytes", receipt(u"about"_s, 0).leftJustified(4096)},
            {"cut", receipt(u"about"_s, 0).chopped(1)},
            {"another type", "{\"pane\":7,\"writtenAt\":0}"}}) {
        SCOPED_TRACE(each.what);
        folder.write(u"receipt.json"_s, each.content);

        const auto read = SettingsUpdateResume::consume(path, now);

        EXPECT_EQ(read ? std::optional(read->pane) : std::nullopt, each.pane);
        EXPECT_FALSE(QFileInfo::exists(path));
    }
}

TEST(SettingsUpdateResumeTests, whatIsRememberedIsForThisUserAlone)
{
    ModelDesk desk;
    const QString path = SettingsUpdateResume::receiptPath();
    QDir().mkpath(QFileInfo(path).path());
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly)); // as others may have left it
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    SettingsUpdateResume::pane = u"tremorLog"_s;

    SettingsUpdateResume::remember();

    SettingsUpdateResume::pane.clear();
    EXPECT_FALSE(QFileInfo(path).permissions() & QFile::ReadOther);
    const auto receipt = SettingsUpdateResume::consume(path, desk.platform.clock().date());
    EXPECT_EQ(receipt.value().pane, u"tremorLog");
}

} // namespace corvane
