#include "DeskFile.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

#include <random>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::EndsWith;
using testing::SizeIs;
using testing::StartsWith;

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The example that the format's description gives.
QByteArray example()
{
    const QByteArray text = contents(QStringLiteral(CORVANE_DESK_DESCRIPTION));
    const auto start = text.indexOf("```json\n") + 8;
    return text.mid(start, text.indexOf("```", start) - start);
}

/// Puts something else in the place of one value anywhere in the tree.
QJsonValue spoiled(const QJsonValue &value, std::mt19937 &random)
{
    const QList<QJsonValue> oddities{QJsonValue::Null, true, -1, 0.5, 1e300, u""_s, u"?"_s,
        QJsonArray{}, QJsonArray{1, 2, 3}, QJsonArray{-1, -1}, QJsonArray{0, 0, 0, 0},
        QJsonArray{QJsonObject{}}, QJsonObject{}};
    const auto pick = [&random](qsizetype count) { return qsizetype(random() % count); };
    if (value.isArray() && !value.toArray().isEmpty() && pick(8) > 0) {
        QJsonArray array = value.toArray();
        const auto index = pick(array.size());
        array.replace(index, spoiled(array.at(index), random));
        return array;
    }
    if (value.isObject() && !value.toObject().isEmpty() && pick(8) > 0) {
        QJsonObject object = value.toObject();
        const QString key = object.keys().at(pick(object.size()));
        object.insert(key, spoiled(object.value(key), random));
        return object;
    }
    return oddities.at(pick(oddities.size()));
}

} // namespace

class DeskFileTests : public testing::Test
{
protected:
    expected<std::unique_ptr<SimulatedPlatform>, QString> load(const QByteArray &json)
    {
        const QString path = folder.filePath(u"desk.json"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        file.close();
        return loadDesk(path);
    }

    /// What the file's sentence says after naming the file; empty when it was read.
    std::string complaint(const QByteArray &json)
    {
        const auto desk = load(json);
        if (desk)
            return {};
        return desk.error().mid(desk.error().indexOf(u"desk.json\" "_s) + 11).toStdString();
    }

    QTemporaryDir folder;
};

TEST_F(DeskFileTests, theDescribedExampleIsADeskOfItsOwn)
{
    const auto desk = load(example());
    ASSERT_TRUE(desk) << desk.error().toStdString();
    SimulatedPlatform &platform = **desk;

    EXPECT_EQ(&Platform::current(), &platform);
    const auto screens = platform.displays().all();
    ASSERT_THAT(screens, SizeIs(2));
    EXPECT_EQ(screens[0].visibleFrame, (Rect{0, 28, 1440, 872}));
    const auto focused = platform.windows().focusedWindow().window;
    ASSERT_TRUE(focused);
    EXPECT_EQ(platform.windows().title(*focused), u"Letter"_s);
    EXPECT_EQ(platform.windows().setPosition(*focused, {40, 40}), AXError::success);
    EXPECT_EQ(platform.hotKeys().registerHotKey(1, 123, HotKeys::controlKey | HotKeys::optionKey),
        HotKeys::hotKeyExists);
    EXPECT_NE(platform.desktop().installed(u"org.example.Mail"_s), nullptr);
    EXPECT_THAT(platform.applications().running(), SizeIs(2));
}

TEST_F(DeskFileTests, windowsStandFrontToBackAsListed)
{
    const auto desk = load(R"({"applications": [
        {"id": "a", "windows": [{"title": "1", "minimised": true}, {"title": "2"}]},
        {"id": "b", "windows": [{"title": "3"}]}]})");
    ASSERT_TRUE(desk);
    SimulatedDesktop &desktop = (*desk)->desktop();

    QString titles;
    for (const WindowElement &element : desktop.stack())
        titles += desktop.window(element).title;

    EXPECT_EQ(titles, u"123"_s);
    ASSERT_TRUE(desktop.focused());
    EXPECT_EQ(desktop.window(*desktop.focused()).title, u"2"_s);
}

TEST_F(DeskFileTests, badFilesAreExplainedInOneSentence)
{
    struct Case {
        QByteArray json;
        std::string complaint;
    };
    for (const auto &[json, expected] : {
             Case{"[]", "the whole of it must be an object."},
             Case{R"({"trusted": 1})", R"("trusted" must be true or false.)"},
             Case{R"({"clock": "slow"})", R"("clock" must be one of "real", "manual".)"},
             Case{R"({"displays": {}})", R"("displays" must be a list.)"},
             Case{R"({"displays": [{}, {"frame": [0, 0, "wide", 9]}]})",
                 R"("displays[1].frame" must be a list of four numbers: x, y, and )"
                 "width and height above 0."},
             Case{R"({"displays": [{"frame": [0, 0, 100, 0]}]})",
                 R"("displays[0].frame" must be a list of four numbers: x, y, and )"
                 "width and height above 0."},
             Case{R"({"displays": [{"panels": [{"thickness": -4}]}]})",
                 R"("displays[0].panels[0].thickness" must be a number from 0 to 1000.)"},
             Case{R"({"displays": [{"frame": [0, 0, 50, 50], "panels": [{"thickness": 50}]}]})",
                 R"("displays[0].panels" must be thin enough to leave room between them.)"},
             Case{R"({"applications": [7]})", R"("applications[0]" must be an object.)"},
             Case{R"({"applications": [{"name": "A"}]})",
                 R"("applications[0].id" must be a text that names the application.)"},
             Case{R"({"applications": [{"id": "a", "windows": [{"kind": "round"}]}]})",
                 R"("applications[0].windows[0].kind" must be one of "standard", )"
                 R"("dialog", "utility", "splash", "panel", "desktop".)"},
             Case{R"({"applications": [{"id": "a", "windows": [{"refusesSize": -1}]}]})",
                 R"("applications[0].windows[0].refusesSize" must be -25200, -25202, )"
                 "-25204 or -25211."},
             Case{R"({"rivals": [{}]})", R"("rivals[0].keyCode" must be a key code.)"},
             Case{R"({"missingKeys": [1.5]})", R"("missingKeys[0]" must be a whole number.)"},
         })
        EXPECT_EQ(complaint(json), "cannot be used: " + expected);
}

TEST_F(DeskFileTests, keysOfNoMeaningAreIgnored)
{
    const auto desk =
        load(R"({"unknown": [1, {}], "trusted": false, "distrustReason": "Closed."})");

    ASSERT_TRUE(desk);
    EXPECT_EQ((*desk)->windows().distrustReason(), u"Closed."_s);
}

TEST_F(DeskFileTests, filesThatAreNoJsonOrNotThereAreExplainedToo)
{
    EXPECT_THAT(complaint(""), StartsWith("is not JSON: "));
    EXPECT_THAT(complaint("{\"trusted\": tru}"), EndsWith("at byte 13."));
    EXPECT_THAT(complaint(QByteArray(5000, '[')), StartsWith("is not JSON: "));
    const auto missing = loadDesk(folder.filePath(u"none.json"_s));
    ASSERT_FALSE(missing);
    EXPECT_TRUE(missing.error().startsWith(u"The desk file"_s));
}

TEST_F(DeskFileTests, aSpoiledDeskIsReadOrExplained)
{
    std::mt19937 random(20240115);
    const QJsonValue desk = QJsonDocument::fromJson(example()).object();

    int explained = 0;
    for (int round = 0; round < 300; ++round) {
        QJsonValue value = desk;
        for (int times = 0; times <= round % 3; ++times)
            value = spoiled(value, random);
        const QByteArray json = value.isArray() ? QJsonDocument(value.toArray()).toJson()
                                                : QJsonDocument(value.toObject()).toJson();
        const std::string text = complaint(json);
        if (text.empty())
            continue;
        ++explained;
        EXPECT_THAT(text, StartsWith("cannot be used: ")) << json.toStdString();
        EXPECT_THAT(text, EndsWith(".")) << json.toStdString();
    }
    EXPECT_GT(explained, 50);
}

} // namespace corvane
