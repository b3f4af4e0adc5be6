#include "DeskFile.h"

#include <QtCore/QTemporaryFile>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace testing;

namespace {

expected<std::unique_ptr<SimulatedPlatform>, QString> load(const QByteArray &json)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(json) == json.size() && file.flush());
    return loadDesk(file.fileName());
}

/// What the file's sentence says after naming the file; empty when it was read.
std::string complaint(const QByteArray &json)
{
    const auto desk = load(json);
    return desk ? std::string() : desk.error().section(u"\" "_s, 1).toStdString();
}

} // namespace

TEST(SimulatedDesktopTests, theDescribedDeskIsReadWithItsWindowsFrontToBack)
{
    // The example that the description of a desk's file gives.
    QFile file(QStringLiteral(CORVANE_DESK_DESCRIPTION));
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const auto start = text.indexOf("```json\n") + 8;
    const auto desk = load(text.mid(start, text.indexOf("```", start) - start));
    ASSERT_TRUE(desk) << desk.error().toStdString();
    SimulatedPlatform &platform = **desk;

    EXPECT_EQ(&Platform::current(), &platform);
    ASSERT_THAT(platform.displays().all(), SizeIs(2));
    EXPECT_EQ(platform.displays().all()[0].visibleFrame, (Rect{0, 28, 1440, 872}));
    QStringList titles;
    for (const WindowElement &element : platform.desktop().stack())
        titles << platform.desktop().window(element).title;
    EXPECT_EQ(titles, QStringList({u"Shell"_s, u"Letter"_s, u"Print"_s}));
    EXPECT_EQ(platform.desktop().focused(), platform.desktop().stack()[1]);
    EXPECT_EQ(platform.hotKeys().registerHotKey(1, 123, HotKeys::controlKey | HotKeys::optionKey),
        HotKeys::hotKeyExists);
    EXPECT_NE(platform.desktop().installed(u"org.example.Mail"_s), nullptr);
    EXPECT_THAT(platform.applications().running(), SizeIs(2));

    const auto other = load(R"({"trusted": false, "distrustReason": "Closed.", "tiling": true,
        "applications": [{"id": "a", "windows": [{"minimised": true}, {"title": "2"}]}]})");
    ASSERT_TRUE(other);
    SimulatedWindows &windows = (*other)->windows();
    const WindowElement tiled = (*other)->desktop().stack()[1];
    EXPECT_EQ((*other)->desktop().focused(), tiled);
    EXPECT_EQ(windows.distrustReason(), u"Closed."_s);
    (*other)->desktop().regainTrust();
    EXPECT_EQ(windows.setPosition(tiled, {50, 40}), AXError::failure);
    EXPECT_EQ(windows.refusalDetail(tiled), u"tiled by the window manager"_s);
}

TEST(SimulatedDesktopTests, badFilesAreExplainedInOneSentence)
{
    for (const auto &[json, sentence] :
        {std::pair(QByteArray("[]"), std::string("the whole of it must be an object")),
            {R"({"trusted": 1})", R"("trusted" must be true or false)"},
            {R"({"displays": {}})", R"("displays" must be a list)"},
            {R"({"displays": [{}, {"frame": [0, 0, 100, 0]}]})",
                R"("displays\[1\].frame" must be a list of four numbers: x, y, .* above 0)"},
            {R"({"displays": [{"panels": [{"thickness": -4}]}]})",
                R"("displays\[0\].panels\[0\].thickness" must be a number from 0 to 1000)"},
            {R"({"displays": [{"frame": [0, 0, 50, 50], "panels": [{"thickness": 50}]}]})",
                R"("displays\[0\].panels" must be thin enough to leave room between them)"},
            {R"({"applications": [{"name": "A"}]})",
                R"("applications\[0\].id" must be a text that names the application)"},
            {R"({"applications": [{"id": "a", "windows": [{"kind": "round"}]}]})",
                R"(.*\.windows\[0\].kind" must be one of "standard", .*)"},
            {R"({"applications": [{"id": "a", "windows": [{"refusesSize": -1}]}]})",
                R"(.*\.refusesSize" must be -25200, .*)"},
            {R"({"rivals": [{}]})", R"("rivals\[0\].keyCode" must be a key code)"},
            {R"({"missingKeys": [1.5]})", R"("missingKeys\[0\]" must be a whole number)"}})
        EXPECT_THAT(complaint(json), MatchesRegex("cannot be used: " + sentence + "\\."));
    for (const QByteArray &json : {QByteArray(), QByteArray("{\"a\": tru}"), QByteArray(5000, '[')})
        EXPECT_THAT(complaint(json), MatchesRegex("is not JSON: .* at byte [0-9]+\\."));
    EXPECT_TRUE(loadDesk(u"/none.json"_s).error().startsWith(u"The desk file \"/none.json\""_s));
}

} // namespace corvane
